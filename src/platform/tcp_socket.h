// One TCP socket of the system.
//
// Not safe for use by two threads at once.
#ifndef QUILON_PLATFORM_TCP_SOCKET_H_
#define QUILON_PLATFORM_TCP_SOCKET_H_

#include <cstdint>

namespace quilon {

class TcpSocket {
 public:
  // What Receive and Send return when the system reports an error.
  static constexpr int32_t kError = -1;

  TcpSocket() = default;
  TcpSocket(const TcpSocket&) = delete;
  TcpSocket& operator=(const TcpSocket&) = delete;

  // Starts the system's socket library; may be called again at any time.
  static void StartLibrary();

  // The socket library's error code of the last failure on this thread.
  static int32_t LastError();

  // Gets an IPv4 stream socket whose sends give up after 10 s. Returns false
  // when the system has none.
  bool Create();

  // Connects to `address`, a dotted IPv4 address, on `port`. Returns false when
  // the address is none or nobody answers there.
  bool Connect(const char* address, uint16_t port);

  // Makes Receive a poll that gives up after 1 ms, switches the debug option on
  // and sends small frames at once.
  void SetPollingOptions();

  // Receives up to `count` bytes. Returns how many; 0 when the other side has
  // closed the connection, kError when nothing came or the system failed.
  int32_t Receive(void* buffer, int32_t count);

  // Sends `count` bytes. Returns how many were taken, or kError.
  int32_t Send(const void* buffer, int32_t count);

  // Closes the socket. Returns whether the system closed it; a socket that was
  // closed before, or never created, is not touched and gives false.
  bool Close();

 private:
  static constexpr uintptr_t kNone = ~uintptr_t{0};

  uintptr_t socket_ = kNone;
};

}  // namespace quilon

#endif  // QUILON_PLATFORM_TCP_SOCKET_H_
