#include "src/platform/tcp_socket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "src/platform/posix/descriptor.h"

namespace quilon {
namespace {

constexpr timeval kReceiveTimeout = {0, 1000};
constexpr int kOn = 1;

int Descriptor(uintptr_t socket) { return static_cast<int>(socket); }

template <typename Value>
void SetOption(uintptr_t socket, int level, int option, const Value& value) {
  setsockopt(Descriptor(socket), level, option, &value, sizeof(value));
}

bool Wait(uintptr_t socket, int16_t events, uint32_t milliseconds) {
  pollfd waiting = {Descriptor(socket), events, 0};
  return poll(&waiting, 1, static_cast<int>(milliseconds)) > 0;
}

// What a call that does not wait came to: bytes, nothing yet, or kGone.
int32_t Taken(ssize_t length) {
  if (length >= 0) {
    return static_cast<int32_t>(length);
  }
  return errno == EAGAIN || errno == EINTR ? 0 : TcpSocket::kGone;
}

}  // namespace

const int32_t TcpSocket::kConnectPatience = 10000;

void TcpSocket::StartLibrary() {}

int32_t TcpSocket::LastError() { return errno; }

bool TcpSocket::Create() {
  const int created = AwayFromStandard(::socket(
      AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, IPPROTO_TCP));
  if (created < 0) {
    return false;
  }
  socket_ = static_cast<uintptr_t>(created);
  return true;
}

TcpSocket::Progress TcpSocket::BeginConnect(const char* address,
                                            uint16_t port) {
  sockaddr_in peer = {};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(port);
  peer.sin_addr.s_addr = inet_addr(address);
  if (connect(Descriptor(socket_), reinterpret_cast<sockaddr*>(&peer),
              sizeof(peer)) == 0) {
    return Progress::kConnected;
  }
  return errno == EINPROGRESS || errno == EINTR ? Progress::kUnderWay
                                                : Progress::kFailed;
}

TcpSocket::Progress TcpSocket::FinishConnect() {
  int error = 0;
  socklen_t length = sizeof(error);
  return getsockopt(Descriptor(socket_), SOL_SOCKET, SO_ERROR, &error,
                    &length) == 0 &&
                 error == 0
             ? Progress::kConnected
             : Progress::kFailed;
}

void TcpSocket::SetOptions() {
  SetOption(socket_, SOL_SOCKET, SO_RCVTIMEO, kReceiveTimeout);
  SetOption(socket_, SOL_SOCKET, SO_DEBUG, kOn);
  SetOption(socket_, IPPROTO_TCP, TCP_NODELAY, kOn);
}

bool TcpSocket::WaitToRead(uint32_t milliseconds) {
  return Wait(socket_, POLLIN, milliseconds);
}

bool TcpSocket::WaitToWrite(uint32_t milliseconds) {
  return Wait(socket_, POLLOUT, milliseconds);
}

int32_t TcpSocket::Receive(void* buffer, int32_t count) {
  const ssize_t length =
      recv(Descriptor(socket_), buffer, static_cast<size_t>(count), 0);
  return length == 0 ? kGone : Taken(length);
}

int32_t TcpSocket::Send(const void* buffer, int32_t count) {
  // A broken connection is an error of this call, not a signal to the process.
  return Taken(send(Descriptor(socket_), buffer, static_cast<size_t>(count),
                    MSG_NOSIGNAL));
}

void TcpSocket::Close() {
  if (IsOpen()) {
    close(Descriptor(std::exchange(socket_, kNone)));
  }
}

}  // namespace quilon
