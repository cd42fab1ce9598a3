// A fiscal printer in this process: it listens as soon as it is constructed and
// stops when it is destroyed.
//
//   VirtualPrinter printer;
//   connect to 127.0.0.1, printer.tcp_port() ...
//   EXPECT_TRUE(printer.WaitUntil([](const Snapshot& now) { return
//   now.books.receipt_count == 1; }));
//
// Every member may be called from any thread at any time, except the
// destructor, which must be the last call.
#ifndef PRINTER_VIRTUAL_PRINTER_H_
#define PRINTER_VIRTUAL_PRINTER_H_

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "printer/fiscal/books.h"
#include "printer/fiscal/clock.h"
#include "printer/watch/status.h"
#include "printer/watch/watcher.h"

namespace quilon::printer {

// What the printer holds at one moment.
struct Snapshot : Status {
  std::vector<std::string> paper;  // lines of UTF-8, without line ends; the
                                   // newest Paper::kKeptLines
  std::vector<std::string>
      frames;  // bodies as they arrived, between ESC "P" and ESC "\", checksum
               // included; the newest 10 000
  std::map<std::string, std::string> files;  // stored whole, by name
};

class VirtualPrinter {
 public:
  static constexpr uint32_t kUsualBaud = 9600;

  struct Options {
    // "ADDRESS:PORT"; port 0 is any free one. Empty: no TCP.
    std::string tcp = "127.0.0.1:0";
    // Makes a pseudo-terminal, and a symbolic link to it when pty_link is not
    // empty. Not on Windows.
    bool pty = false;
    std::string pty_link;
    // A serial port of this machine; empty: none.
    std::string serial;
    // How fast the lines are, 300 to 4 000 000; 0: TCP and the pseudo-terminal
    // as fast as they can, the serial port kUsualBaud.
    uint32_t baud = 0;
    // How much later every answer goes out.
    std::chrono::milliseconds latency{0};
    // When a client is silent so long within a frame, what came of that is
    // dropped.
    std::chrono::milliseconds frame_patience{2000};
    // Where the printer's memory is kept; empty: nowhere. Read at the start if
    // it is there, replaced after every change, before the answer goes out.
    std::filesystem::path state_file;
    // Ordered before the first client comes; see OrderFault.
    std::vector<std::string> faults;
    // Keeps only the rules without which a command cannot be obeyed.
    bool lenient = false;
    // For the faults that happen by chance.
    uint64_t seed = 1;
    // Local time; empty: the system's.
    Clock clock;
    // None of them may end before the printer does.
    std::vector<Watcher*> watchers;
  };

  // Throws std::invalid_argument when an address or a fault is not written as
  // it should be, std::runtime_error when an address cannot be listened on, a
  // port cannot be opened, or the state file cannot be understood or written.
  VirtualPrinter();
  explicit VirtualPrinter(Options options);
  VirtualPrinter(const VirtualPrinter&) = delete;
  VirtualPrinter& operator=(const VirtualPrinter&) = delete;
  // Closes all connections and joins the printer's thread.
  ~VirtualPrinter();

  // "127.0.0.1:6001", with the port that is really listened on; empty without
  // TCP.
  std::string tcp_address() const;
  // That port; 0 without TCP.
  uint16_t tcp_port() const;

  // The device that a serial client opens; empty without a pseudo-terminal.
  std::string pty_path() const;

  Snapshot snapshot() const;
  std::vector<std::string> paper() const;
  std::vector<std::string> frames() const;
  Books books() const;

  // Waits until the condition holds, at most so long; returns whether it does.
  // The condition is tried after everything that the printer receives.
  bool WaitUntil(
      const std::function<bool(const Snapshot&)>& condition,
      std::chrono::milliseconds limit = std::chrono::seconds(10)) const;

  // While held, the printer reads nothing from its clients: what they send
  // stays
  // in the wires until those are full.
  void HoldInput(bool hold);
  void set_online(bool online);
  // Lines that cannot be printed wait until the paper is back.
  void set_paper_out(bool out);
  // The DLE answer's error bit: a lid open, a broken cutter.
  void set_mechanism_error(bool error);
  // Refuses the next command, whatever it is, with the given error number.
  void RefuseNext(int error);
  // Lets the printer misbehave as fault_table.h explains, for example
  // "book-other=-100@document=2" or "cut@byte=57". Faults add up until they are
  // cleared; paper that ran out stays out until set_paper_out(false). Throws
  // std::invalid_argument when the text is not a fault.
  void OrderFault(const std::string& fault);
  void ClearFaults();

 private:
  class Engine;
  std::unique_ptr<Engine> engine_;
};

}  // namespace quilon::printer

#endif  // PRINTER_VIRTUAL_PRINTER_H_
