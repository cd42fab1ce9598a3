// Opening connections, and what is expected of sound, failed and idle ones.
#ifndef QUILON_TESTS_SUPPORT_CONNECTIONS_H_
#define QUILON_TESTS_SUPPORT_CONNECTIONS_H_

#include <chrono>
#include <cstdint>
#include <string_view>

#include "tests/support/driver_test.h"
#include "tests/support/time_limit.h"

namespace quilon::testing {

// The kinds of serial connections.
inline constexpr uint32_t kBlocking = 0;
inline constexpr uint32_t kThreaded = 1;

inline SerialParams ParamsOf(std::string_view port, uint32_t threaded,
                             uint32_t reply_timeout = kReplyTimeout) {
  SerialParams params = {};
  Fill(port, params.port_name);
  params.baud_rate = 9600;
  params.data_bits = 8;
  params.write_timeout = 10000;
  params.threaded = threaded;
  params.reply_timeout = reply_timeout;
  return params;
}

inline int32_t OpenSerial(std::string_view port, uint32_t threaded,
                          uint32_t reply_timeout = kReplyTimeout) {
  const SerialParams params = ParamsOf(port, threaded, reply_timeout);
  return quil_open_serial_ex(&params);
}

inline int32_t OpenTcp(uint16_t port, uint32_t reply_timeout = kReplyTimeout,
                       std::string_view address = "127.0.0.1") {
  TcpParams params = {};
  Fill(address, params.address);
  params.port = port;
  params.reply_timeout = reply_timeout;
  return quil_open_tcpip_ex(&params);
}

// A status request and its answer; `peer` is the far end of any kind of
// connection.
template <typename Peer>
void ExpectExchange(Peer& peer) {
  ASSERT_EQ(Ioctl(QUIL_SEND_DLE), 0);
  ASSERT_EQ(peer.Receive(1), "\x10");
  peer.Send("\x74");
  DleStatus status = {};
  ASSERT_EQ(Ioctl(QUIL_READ_DLE, &status), 0);
  EXPECT_EQ(status.online, 1);
}

// On a TCP connection that failed to open, with the fixture's reply time-out,
// sending counts as done and reading times out; a document fails. None of it
// waits for the network.
inline void ExpectInertConnection() {
  using std::chrono::milliseconds;
  ExpectAtOnce([] { EXPECT_EQ(Ioctl(QUIL_SEND_DLE), 0); });
  DleStatus status = {};
  const auto time =
      TimeOf([&] { EXPECT_EQ(Ioctl(QUIL_READ_DLE, &status), -1); });
  EXPECT_GE(time, milliseconds(kReplyTimeout));
  EXPECT_LT(time, milliseconds(kReplyTimeout) + kAtOnce);
  DocumentHeader header = {};
  ExpectAtOnce([&] { EXPECT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header), -1); });
}

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_CONNECTIONS_H_
