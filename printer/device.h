// The printer's inside: takes frame bodies and control bytes, keeps all state,
// gives the answers. No sockets, no threads, no clock but the one it is given;
// not to be shared between threads without a lock.
#ifndef PRINTER_DEVICE_H_
#define PRINTER_DEVICE_H_

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "printer/books.h"
#include "printer/document.h"
#include "printer/errors.h"
#include "printer/faults.h"
#include "printer/paper.h"
#include "printer/status.h"
#include "printer/storage.h"

namespace quilon::printer {

// Local wall-clock time.
using Clock = std::function<std::chrono::local_seconds()>;

struct Device {
  explicit Device(Clock wall_clock) : clock(std::move(wall_clock)) {}

  // What a frame brought about.
  struct Outcome {
    std::string answer;    // with ESC "P" and ESC "\"; empty: there is none
    int error = kNoError;  // with which it was refused
  };
  // Executes one frame, given without ESC "P" and ESC "\".
  Outcome execute(std::string_view body);
  // Answers DLE, ENQ or SUB.
  std::string answer_control(char byte) const;
  // Orders a fault by its text; throws std::invalid_argument when it is none.
  void order_fault(const std::string& text);
  // Records that a frame was refused before it could be executed.
  void refuse(int error);

  // The printer's own clock.
  std::chrono::local_seconds now() const { return clock() + clock_offset; }
  // "2024-01-31 12:05".
  std::string date_and_time() const;
  Status status() const;

  Clock clock;

  bool online = true;
  bool mechanism_error = false;
  int next_refusal =
      kNoError;  // when not 0, the next command is refused with it

  int error = kNoError;  // of the last command
  bool last_command_ok = true;
  bool last_document_closed = true;

  std::optional<Document> document;
  Faults faults;
  Books books;
  Paper paper;

  bool slip_open = false;
  // A slip may follow the document that was just closed.
  bool slip_attached = false;
  std::int64_t cash = 0;  // paid in and not out again, grosze
  Cashier cashier;

  std::chrono::seconds clock_offset{0};  // what "$c" put between both clocks
  std::int32_t totals_mode = 0;          // chosen by "$r"
  // Not 0: every refusal is reported at once by an answer with "#Z".
  std::int32_t error_reports = 0;
  // By mnemonic.
  std::map<std::string, Setting, std::less<>> settings;
  std::array<ParameterSet, 4> parameter_sets;
  Display display;
  int drawer_openings = 0;
  std::map<std::string, StoredFile> files;
  std::map<std::int32_t, Logo> logos;
};

}  // namespace quilon::printer

#endif  // PRINTER_DEVICE_H_
