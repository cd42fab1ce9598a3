// One TCP socket of the system. It never waits but where it is told to.
//
// Not safe for use by two threads at once.
#ifndef QUILON_PLATFORM_TCP_SOCKET_H_
#define QUILON_PLATFORM_TCP_SOCKET_H_

#include <cstdint>

namespace quilon {

class TcpSocket {
 public:
  // How far connecting has come.
  enum class Progress { kConnected, kUnderWay, kFailed };

  // What Receive and Send return when nothing more will go that way.
  static constexpr int32_t kGone = -1;

  // Milliseconds after which connecting is given up.
  static const int32_t kConnectPatience;

  TcpSocket() = default;
  ~TcpSocket() { Close(); }
  TcpSocket(const TcpSocket&) = delete;
  TcpSocket& operator=(const TcpSocket&) = delete;

  // Starts the system's socket library; may be called again at any time.
  static void StartLibrary();

  // The socket library's error code of the last failure on this thread.
  static int32_t LastError();

  // Gets an IPv4 stream socket, which child processes do not inherit. Returns
  // false when the system has none.
  bool Create();

  // Begins to connect to `address`, a dotted IPv4 address, on `port`.
  Progress BeginConnect(const char* address, uint16_t port);

  // What became of it, once the socket can be written.
  Progress FinishConnect();

  // Sets what a connection to a printer needs: the receive time-out of 1 ms,
  // the debug option, small frames sent at once.
  void SetOptions();

  // Wait so many milliseconds at most until there is something to receive or
  // to learn, or room to send. Return false when there is not; a signal may
  // end the waiting earlier.
  bool WaitToRead(uint32_t milliseconds);
  bool WaitToWrite(uint32_t milliseconds);

  // Receives up to `count` bytes. Returns how many there were, 0 for none yet,
  // or kGone when the other side has closed the connection or it is broken.
  int32_t Receive(void* buffer, int32_t count);

  // Sends up to `count` bytes. Returns how many were taken, 0 for none yet, or
  // kGone; errno is left as the system set it.
  int32_t Send(const void* buffer, int32_t count);

  bool IsOpen() const { return socket_ != kNone; }

  // Closes the socket if it is open.
  void Close();

 private:
  static constexpr uintptr_t kNone = ~uintptr_t{0};

  uintptr_t socket_ = kNone;
};

}  // namespace quilon

#endif  // QUILON_PLATFORM_TCP_SOCKET_H_
