// The far end of a serial line: says and hears what a test tells it to. It
// lives in serial_host.py, which must have started the test program, so that
// the same tests know ports of Linux and of Windows.
#ifndef QUILON_TESTS_SUPPORT_SERIAL_PEER_H_
#define QUILON_TESTS_SUPPORT_SERIAL_PEER_H_

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace quilon::testing {

// How a port is set up.
struct SerialLine {
  int speed;  // baud
  bool rts_cts;
  bool xon_xoff_output;
  bool xon_xoff_input;
  int xon;
  int xoff;
  bool changes_bytes;  // the system interprets what passes
};

class SerialPeer {
 public:
  // Makes a port that nobody has used.
  SerialPeer();
  ~SerialPeer();
  SerialPeer(const SerialPeer&) = delete;
  SerialPeer& operator=(const SerialPeer&) = delete;

  // The port's name, for the driver.
  const std::string& port() const { return port_; }

  // The name of something that is there but is no serial port.
  const std::string& no_serial_port() const { return no_serial_port_; }

  // Sends in the background, as the driver reads.
  void Send(std::string_view bytes);

  // Waits for `count` bytes. What did not come within 10 s is missing from the
  // result. The driver's bytes stay in the line until then, and when it is full
  // the driver has to wait.
  std::string Receive(size_t count);

  // Waits for a whole frame, ESC "P" to ESC "\".
  std::string ReceiveFrame();

  // Waits up to 60 s until all bytes are sent, and `count` of them have come to
  // the port and were not read. Returns whether that happened. Bytes on their
  // way to the port are not seen.
  bool WaitForUnread(size_t count);

  SerialLine Line();

  // The port vanishes.
  void Hangup();

 private:
  std::string Ask(const std::string& request, std::string_view bytes = {});

  struct Network;
  std::unique_ptr<Network> network_;
  std::string port_;
  std::string no_serial_port_;
};

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_SERIAL_PEER_H_
