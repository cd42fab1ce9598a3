// A TCP connection to the printer's network interface.
#ifndef QUILON_COMM_TCPIP_COMM_H_
#define QUILON_COMM_TCPIP_COMM_H_

#include <atomic>

#include "quilon/records.h"
#include "src/comm/base_comm.h"
#include "src/platform/tcp_socket.h"

namespace quilon {

class TCPIPComm final : public BaseComm {
 public:
  // Connects; gives up when `interrupted` becomes true. Returns 1, or 0 when
  // that failed; `last_error` says why only when the system had no socket.
  int32_t OpenConnection(const TcpParams& params,
                         const std::atomic<bool>& interrupted,
                         LastErrorRecord* last_error);

  // Closes the log too, whether the connection was open or not.
  void Close() override;

  bool IsOpen() const override { return connected_; }
  bool IsBroken() const override { return broken_; }

  int32_t Read(void* buffer, int32_t count, uint32_t patience) override;

  // Waits 10 s at most for the printer to take all bytes; the connection is
  // broken when it did not.
  Written Write(const void* buffer, int32_t count) override;

  // Discards nothing.
  bool Purge() override { return false; }

  void Interrupt() override { interrupted_ = true; }

 private:
  bool Connect(const char* address, uint16_t port,
               const std::atomic<bool>& interrupted);
  bool SendAll(const char* bytes, int32_t count);

  TcpSocket socket_;
  bool connected_ = false;
  bool broken_ = false;
  std::atomic<bool> interrupted_ = false;
};

}  // namespace quilon

#endif  // QUILON_COMM_TCPIP_COMM_H_
