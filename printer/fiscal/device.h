// The printer's inside: all that it knows and keeps. No sockets, no threads, no
// clock but the one it is given; not to be shared between threads without a
// lock.
#ifndef PRINTER_FISCAL_DEVICE_H_
#define PRINTER_FISCAL_DEVICE_H_

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "printer/fiscal/books.h"
#include "printer/fiscal/clock.h"
#include "printer/fiscal/document.h"
#include "printer/fiscal/faults.h"
#include "printer/fiscal/paper.h"
#include "printer/fiscal/storage.h"
#include "printer/protocol/refusal.h"

namespace quilon::printer {

struct Device {
  explicit Device(Clock wall_clock);
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  ~Device() = default;

  // Orders a fault by its text; throws NotAFault when it is not one.
  void OrderFault(const std::string& text);
  void ClearFaults();
  // Records that a command was refused.
  void Refuse(int number);

  // A client is gone; its open document is anybody's now.
  void Leave(int64_t gone);

  // The printer's own clock.
  std::chrono::local_seconds Now() const { return clock() + clock_offset; }
  // "2024-01-31 12:05".
  std::string DateAndTime() const;
  // The running number of the printout that begins now.
  int32_t NextRunningNumber() const { return books.printout_count + 1; }
  // Ends it.
  void TearOff(Printout printout);

  Clock clock;

  bool strict = true;  // keeps also the rules that a lenient printer does not
  bool online = true;
  bool mechanism_error = false;
  int next_refusal =
      kNoError;  // when not 0, the next command is refused with it

  int error = kNoError;  // of the last command
  bool last_command_ok = true;
  bool last_document_closed = true;

  int64_t client = 0;  // whose command is obeyed, from 1; 0: the bench
  std::optional<Document> document;
  Faults faults;
  Books books;
  // Set when something is to be booked so much later: whoever keeps the time
  // takes it, and calls books.AddLate() then.
  std::optional<std::chrono::milliseconds> book_after;
  std::string owner;  // UTF-8
  Rates rates = kUsualRates;
  int rate_changes = 0;
  std::vector<DailyRecord> fiscal_memory;
  // The rate at which a name was sold since the last daily report.
  std::map<std::string, size_t, std::less<>> goods;
  std::set<std::string, std::less<>> invoice_numbers;
  Paper paper;

  bool slip_open = false;
  size_t slip_lines = 0;
  // A slip may follow the document that was just closed.
  bool slip_attached = false;
  int64_t cash = 0;  // paid in and not out again, grosze
  Cashier cashier;

  std::chrono::seconds clock_offset{0};  // what "$c" put between both clocks
  int32_t totals_mode = 0;               // chosen by "$r"
  // Not 0: every refusal is reported at once by an answer with "#Z".
  int32_t error_reports = 0;
  // By mnemonic.
  std::map<std::string, Setting, std::less<>> settings;
  std::array<ParameterSet, 4> parameter_sets;
  Display display;
  int drawer_openings = 0;
  std::map<std::string, StoredFile> files;
  std::map<int32_t, Logo> logos;
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_DEVICE_H_
