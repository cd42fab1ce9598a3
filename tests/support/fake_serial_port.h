// A serial port that a test sets up, and that records what is done with it.
#ifndef QUILON_TESTS_SUPPORT_FAKE_SERIAL_PORT_H_
#define QUILON_TESTS_SUPPORT_FAKE_SERIAL_PORT_H_

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "src/platform/serial_port.h"

namespace quilon::testing {

// What happens at a port, shared between the test and the transport's threads.
class SerialScript {
 public:
  // --- What the port does; to be set before it is opened ------------------

  bool opens = true;
  bool closes = true;
  bool tells_line_state = true;
  bool takes_line_state = true;
  bool takes_equal_characters = true;  // one for both Xon and Xoff
  bool takes_timeouts = true;
  bool purges = true;
  int32_t last_error = 0;
  LineState line = {};  // changed by SetLineState, unless it refuses

  // --- What was done ------------------------------------------------------

  std::string name;  // of the port
  SerialTimeouts timeouts = {};
  std::vector<LineState> lines_tried;  // what SetLineState was asked for

  // Operations so far, in their order, without reading and writing.
  std::vector<std::string> Operations();

  // What was written, one text for each write.
  std::vector<std::string> Writes();

  // Waits for that many writes to have begun.
  void WaitForWrites(size_t count);

  // --- What happens while it is open --------------------------------------

  // Bytes arrive at the port.
  void Receive(std::string_view bytes);

  // Waits until they are read and the reader has come back for more.
  void WaitForReader();

  // Writes wait until they are allowed again, or interrupted.
  void HoldWrites();

  // Writes take no byte.
  void RefuseWrites();

  void AllowWrites();

  // The line is gone.
  void Vanish();

 private:
  friend class FakeSerialPort;

  void Note(const std::string& operation);

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::string> operations_;
  std::vector<std::string> writes_;
  std::string unread_;
  bool reader_idle_ = false;
  bool writes_held_ = false;
  bool writes_refused_ = false;
  bool interrupted_ = false;
  bool vanished_ = false;
  int64_t sent_ = 0;
};

// A port that follows `script`, which must outlive it.
std::unique_ptr<SerialPort> MakeFakeSerialPort(SerialScript* script);

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_FAKE_SERIAL_PORT_H_
