#include "platform/tcp_socket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace quilon {
namespace {

constexpr timeval kSendTimeout = {10, 0};
constexpr timeval kReceiveTimeout = {0, 1000};
constexpr int kOn = 1;

template <typename Value>
void SetOption(uintptr_t socket, int level, int option, const Value& value) {
  setsockopt(static_cast<int>(socket), level, option, &value, sizeof(value));
}

}  // namespace

void TcpSocket::StartLibrary() {}

int32_t TcpSocket::LastError() { return errno; }

bool TcpSocket::Create() {
  const int created =
      ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, IPPROTO_TCP);
  if (created < 0) {
    return false;
  }
  socket_ = static_cast<uintptr_t>(created);
  SetOption(socket_, SOL_SOCKET, SO_SNDTIMEO, kSendTimeout);
  return true;
}

bool TcpSocket::Connect(const char* address, uint16_t port) {
  sockaddr_in peer = {};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(port);
  peer.sin_addr.s_addr = inet_addr(address);
  return connect(static_cast<int>(socket_), reinterpret_cast<sockaddr*>(&peer),
                 sizeof(peer)) == 0;
}

void TcpSocket::SetPollingOptions() {
  SetOption(socket_, SOL_SOCKET, SO_RCVTIMEO, kReceiveTimeout);
  SetOption(socket_, SOL_SOCKET, SO_DEBUG, kOn);
  SetOption(socket_, IPPROTO_TCP, TCP_NODELAY, kOn);
}

int32_t TcpSocket::Receive(void* buffer, int32_t count) {
  return static_cast<int32_t>(
      recv(static_cast<int>(socket_), buffer, static_cast<size_t>(count), 0));
}

int32_t TcpSocket::Send(const void* buffer, int32_t count) {
  // A broken connection is an error of this call, not a signal to the process;
  // a signal to the application before the first byte went is no error at all.
  ssize_t sent = 0;
  do {
    sent = send(static_cast<int>(socket_), buffer, static_cast<size_t>(count),
                MSG_NOSIGNAL);
  } while (sent < 0 && errno == EINTR);
  return static_cast<int32_t>(sent);
}

bool TcpSocket::Close() {
  const uintptr_t closing = std::exchange(socket_, kNone);
  return closing != kNone && close(static_cast<int>(closing)) == 0;
}

}  // namespace quilon
