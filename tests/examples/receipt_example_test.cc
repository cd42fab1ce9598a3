// The example program `receipt` prints on the virtual printer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/asio.hpp>
#include <filesystem>
#include <string>
#include <vector>

#include "printer/virtual_printer.h"
#include "tests/examples/example_program.h"
#include "tests/printer/bench.h"

namespace {

using quilon::printer::VirtualPrinter;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

using quilon::testing::AddressOf;
using quilon::testing::ReadFile;
using quilon::testing::Result;
using quilon::testing::RunExample;

TEST(Receipt, StandsOnThePaper) {
  const VirtualPrinter printer({.clock = quilon::printer::BenchTime});
  const Result run = RunExample("receipt", AddressOf(printer));
  EXPECT_TRUE(run.succeeded);
  EXPECT_THAT(run.output, EndsWith("receipt: printed\n"));
  EXPECT_THAT(printer.paper(),
              ElementsAre("             Sklep wzorcowy",      //
                          "              ul. Prosta 1",       //
                          "            00-001 Warszawa",      //
                          "          Sklep \"Pod Źródłem\"",  //
                          "   ul. Żółkiewskiego 7, 31-539 Kraków",
                          "           NIP 000-000-00-00",
                          "2024-01-31 12:05           wydruk 000001",
                          "            PARAGON FISKALNY",
                          "Chleb żytni",  //
                          "na zakwasie, krojony",
                          "  2 szt x 6,49                   12,98 C",
                          "Ser wędzony gołka",
                          "  0,755 kg x 38,90               29,37 C",
                          "Kubek błękitny \"Cześć!\"",
                          "  1 szt x 24,50                  24,50 A",
                          "----------------------------------------",
                          // 24,50 * 23 / 123 = 4,581
                          "SPRZEDAŻ OPODATKOWANA A            24,50",
                          "PTU A 23%                           4,58",
                          // 42,35 * 5 / 105 = 2,017
                          "SPRZEDAŻ OPODATKOWANA C            42,35",
                          "PTU C 5%                            2,02",
                          "SUMA PTU                            6,60",
                          "SUMA PLN                           66,85",
                          "Gotówka 1                          70,00",
                          "Reszta                              3,15",
                          "    Dziękujemy, zapraszamy ponownie",
                          "Paragon 1               2024-01-31 12:05", "Kasa 1",
                          "     WYDRUK WIRTUALNY QVP0000000001", ""));
  EXPECT_EQ(printer.books().receipt_count, 1);
}

TEST(Receipt, LeavesALog) {
  const std::filesystem::path folder =
      std::filesystem::absolute("receipt_example_test_log");
  std::filesystem::remove_all(folder);
  const VirtualPrinter printer;
  EXPECT_TRUE(RunExample("receipt", AddressOf(printer) + " " + folder.string())
                  .succeeded);

  std::vector<std::string> logs;
  for (const auto& file : std::filesystem::directory_iterator(folder)) {
    logs.push_back(ReadFile(file.path()));
  }
  ASSERT_EQ(logs.size(), 1U);
  EXPECT_THAT(logs[0], HasSubstr("QUILON DLL 1.450"));
  // "ż" is 0xA7 for the printer.
  EXPECT_THAT(logs[0], HasSubstr("PC -> <ESC>P0;0;0^lChleb <A7>ytni<CR>"));
}

TEST(Receipt, SaysWhyThePrinterRefusedAndCancels) {
  VirtualPrinter printer;
  // The totals are read twice by two frames each, and once more with flag 4;
  // then come the header and the first line.
  printer.OrderFault("refuse=20@frame=8");
  const Result run = RunExample("receipt", AddressOf(printer));
  EXPECT_FALSE(run.succeeded);
  EXPECT_EQ(run.output,
            "bread: refused, error 20: Błąd  wartosci towaru\n"
            "cancelling the document that is open\n"
            "receipt: not printed\n");
  EXPECT_EQ(printer.books().cancelled_count, 1);
}

TEST(Receipt, IsNotPrintedWhenThereIsNoPaper) {
  VirtualPrinter printer;
  printer.set_paper_out(true);
  const Result run = RunExample("receipt", AddressOf(printer));
  EXPECT_FALSE(run.succeeded);
  EXPECT_EQ(run.output, "printer: no paper\nreceipt: not printed\n");
}

// Somebody's document stands open.
void OpenDocument(const VirtualPrinter& printer) {
  boost::asio::io_context context;
  boost::asio::ip::tcp::socket client(context);
  client.connect({boost::asio::ip::address_v4::loopback(), printer.tcp_port()});
  // FF ^ 31 ^ 24 ^ 68 ^ 0D; all other bytes stand in pairs.
  const std::string header = "\x1BP0;0;0;1;0$h\r8f\x1B\\";
  boost::asio::write(client, boost::asio::buffer(header));
  ASSERT_TRUE(printer.WaitUntil(
      [](const quilon::printer::Snapshot& now) { return now.document_open; }));
}

TEST(Receipt, CancelsADocumentThatWasLeftOpen) {
  const VirtualPrinter printer;
  OpenDocument(printer);
  const Result run = RunExample("receipt", AddressOf(printer));
  EXPECT_TRUE(run.succeeded);
  EXPECT_EQ(run.output,
            "cancelling the document that is open\nreceipt: printed\n");
  EXPECT_EQ(printer.books().cancelled_count, 1);
  EXPECT_EQ(printer.books().receipt_count, 1);
}

TEST(Receipt, SaysThatThereIsNoPrinter) {
  uint16_t port = 0;
  {
    const VirtualPrinter printer;
    port = printer.tcp_port();
  }
  const Result run = RunExample("receipt", "127.0.0.1 " + std::to_string(port));
  EXPECT_FALSE(run.succeeded);
  EXPECT_THAT(run.output,
              StartsWith("there is no connection to the printer\n"));
}

TEST(Receipt, SaysThatThereIsNoSerialPort) {
  for (const char* arguments :
       {"--serial NOPORT 9600", "--serial NOPORT 9600 threaded"}) {
    const Result run = RunExample("receipt", arguments);
    EXPECT_FALSE(run.succeeded);
    EXPECT_THAT(run.output,
                StartsWith("there is no connection to the printer\n"));
  }
}

TEST(Receipt, RefusesSenselessArguments) {
  for (const char* arguments :
       {"", "127.0.0.1", "127.0.0.1 0", "127.0.0.1 65536", "127.0.0.1 x",
        "1 2 3 4", "--serial", "--serial COM7", "--serial COM7 0",
        "--serial COM7 fast", "--serial COM7 9600 threaded log 5"}) {
    const Result run = RunExample("receipt", arguments);
    EXPECT_FALSE(run.succeeded) << arguments;
    EXPECT_THAT(run.output, Not(IsEmpty())) << arguments;
  }
}

}  // namespace
