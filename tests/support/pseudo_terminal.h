// A pseudo-terminal of Linux as a serial port, and the far end of its line.
#ifndef QUILON_TESTS_SUPPORT_PSEUDO_TERMINAL_H_
#define QUILON_TESTS_SUPPORT_PSEUDO_TERMINAL_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quilon::testing {

// The bits of a terminal's settings that flow control and speed touch.
struct TerminalSettings {
  uint32_t speed;  // baud
  bool rts_cts;
  bool xon_xoff_output;
  bool xon_xoff_input;
};

class PseudoTerminal {
 public:
  // A new one, set up as terminals are: for a keyboard and a screen.
  PseudoTerminal();
  ~PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  // Its path; below "/dev/".
  const std::string& path() const { return path_; }

  TerminalSettings Settings() const;

  // Sends what the line has room for; returns how many bytes.
  size_t TrySend(std::string_view bytes);

  // Sends all bytes; waits while the line is full.
  void Send(std::string_view bytes);

  // Waits until that many bytes can be read from the port.
  void WaitForUnread(int count) const;

  // Takes up to `count` bytes that have arrived.
  std::string TryReceive(size_t count);

  // Waits for `count` bytes. What did not come within 10 s is missing from the
  // result.
  std::string Receive(size_t count);

  // The port vanishes.
  void Hangup();

 private:
  int far_end_;
  int port_;  // kept open, so that the line outlives the driver's use of it
  std::string path_;
};

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_PSEUDO_TERMINAL_H_
