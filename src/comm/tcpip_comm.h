// A TCP connection to the printer's network interface.
#ifndef QUILON_COMM_TCPIP_COMM_H_
#define QUILON_COMM_TCPIP_COMM_H_

#include <string_view>

#include "comm/base_comm.h"
#include "platform/tcp_socket.h"
#include "quilon/records.h"

namespace quilon {

class TCPIPComm final : public BaseComm {
 public:
  TCPIPComm() = default;
  ~TCPIPComm() override;

  // Connects. Returns 1, or 0 when that failed; `last_error` says why only when
  // the system had no socket.
  int32_t OpenConnection(const TcpParams& params, LastErrorRecord* last_error);

  int32_t Open() override { return 0; }

  // The result is upside down, and applications count on it: 0 when the system
  // closed the socket, which leaves the log open; 1 when there was nothing to
  // close any more, and then the log is closed.
  int32_t Close() override;

  // Waits 1 ms at most. Returns -1 when nothing came, 0 when the printer has
  // closed the connection.
  int32_t Read(void* buffer, int32_t count) override;

  // Returns -1 when the connection is broken.
  int32_t Write(const void* buffer, int32_t count) override;

  // Discards nothing and returns 1.
  int32_t Purge() override { return 1; }

 private:
  int32_t Receive(void* buffer, int32_t count);

  TcpSocket socket_;
  // The exchange reads byte by byte; asking the system for each would cost more
  // than all the rest of reading an answer.
  char received_[2048];
  std::string_view unread_;
};

}  // namespace quilon

#endif  // QUILON_COMM_TCPIP_COMM_H_
