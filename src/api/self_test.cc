#include "src/api/self_test.h"

#include <string>
#include <string_view>

#include "quilon/codes.h"
#include "src/api/dispatcher.h"
#include "src/api/versions.h"
#include "src/text/copy_text.h"
#include "src/text/cp1250.h"
#include "src/text/driver_name.h"

namespace quilon {
namespace {

// The first parameter of the slip's begin, lines and end.
constexpr int32_t kSlip = 200;

struct PrinterState {
  Identity identity;
  PortInfo port;
  PrinterVersion version;
  MemoryInfo memory;
};

PrinterState AskPrinter(Driver* driver) {
  PrinterState printer = {};
  TryCommand(driver, QUIL_SEND_IDENTITY);
  TryCommand(driver, QUIL_READ_IDENTITY, &printer.identity);
  TryCommand(driver, QUIL_SEND_PORT);
  TryCommand(driver, QUIL_READ_PORT, &printer.port);
  printer.version = AskPrinterVersion(driver);
  TryCommand(driver, QUIL_SEND_MEMORY);
  TryCommand(driver, QUIL_READ_MEMORY, &printer.memory);
  return printer;
}

void Display(Driver* driver, int32_t mode, std::string_view text) {
  DisplayText display = {.mode = mode};
  CopyText(text, display.text);
  TryCommand(driver, QUIL_DISPLAY, &display);
}

void PrintLine(Driver* driver, const char* label, const std::string& value) {
  NonFiscalLine line = {.parameter1 = kSlip};
  CopyText(label + value, line.lines[0]);
  TryCommand(driver, QUIL_NONFISCAL_LINE, &line);
}

void PrintSlip(Driver* driver, const PrinterState& printer) {
  NonFiscalBegin begin = {.first_parameter = kSlip};
  TryCommand(driver, QUIL_NONFISCAL_BEGIN, &begin);

  PrintLine(driver, "Wydruk testowy", "");
  PrintLine(driver, "Wersja sterownika: ", kDriverText);
  PrintLine(driver, "Port komunikacyjny: ", printer.port.port);
  PrintLine(driver, "Nazwa urządzenia: "_cp1250, printer.version.name);
  PrintLine(driver, "Wersja: ", printer.version.version);
  PrintLine(driver, "Numer unikatowy:  ", printer.identity.unique_number);
  PrintLine(driver, "Pojemność PM:  "_cp1250,
            std::to_string(printer.memory.capacity));
  PrintLine(driver, "Ilość wolnego miejsca w PM:  "_cp1250,
            std::to_string(printer.memory.free_space));

  NonFiscalEnd end = {.second_parameter = kSlip};
  TryCommand(driver, QUIL_NONFISCAL_END, &end);
}

}  // namespace

void RunSelfTest(Driver* driver, uint32_t display_milliseconds) {
  const PrinterState printer = AskPrinter(driver);

  constexpr int32_t kShow = 2;
  constexpr int32_t kClear = 3;
  Display(driver, kShow,
          std::string("\f\r\nWersja sterownika: \r\n") + kDriverText +
              "\r\nWersja urządzenia: \r\n"_cp1250 + printer.version.name +
              " " + printer.version.version + "\r\n");
  driver->device->Pause(display_milliseconds);
  Display(driver, kClear, "");

  PrintSlip(driver, printer);
}

}  // namespace quilon
