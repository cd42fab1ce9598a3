// The other end of a TCP connection, which says and hears exactly what a test
// tells it to. Works on the test's own thread: what the driver is to read
// during a call is sent before the call.
#ifndef QUILON_TESTS_SUPPORT_SCRIPTED_PEER_H_
#define QUILON_TESTS_SUPPORT_SCRIPTED_PEER_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace quilon::testing {

class ScriptedPeer {
 public:
  // Listens on a free loopback port.
  ScriptedPeer();
  ~ScriptedPeer();
  ScriptedPeer(const ScriptedPeer&) = delete;
  ScriptedPeer& operator=(const ScriptedPeer&) = delete;

  uint16_t port() const;

  // Takes the next connection, in place of the one before.
  void Accept();

  void Send(std::string_view bytes);

  // Waits for `count` bytes. What did not come within 10 s is missing from the
  // result.
  std::string Receive(size_t count);

  // Waits for bytes up to and including `end`.
  std::string ReceiveUpTo(std::string_view end);

  // A whole frame, ESC "P" to ESC "\".
  std::string ReceiveFrame() { return ReceiveUpTo("\x1B\\"); }

  // Waits for the other end to close the connection; returns whether it did.
  bool WaitForHangup();

  // Closes the connection.
  void Hangup();

 private:
  // Reads on until `length_wanted` says how many of the received bytes are
  // wanted, and takes these.
  template <typename LengthWanted>
  std::string Take(LengthWanted length_wanted);
  // Reads once. Returns false when the connection or the patience ended.
  bool ReadSome();

  // Asio's headers take a compiler seconds, which every test would pay.
  struct Network;
  std::unique_ptr<Network> network_;
  std::string received_;
  bool closed_by_peer_ = false;
};

// A TCP port of this machine that refuses connections.
uint16_t PortOfNobody();

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_SCRIPTED_PEER_H_
