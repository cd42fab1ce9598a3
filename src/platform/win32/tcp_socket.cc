#include "src/platform/tcp_socket.h"

#include <winsock2.h>

#include <utility>

namespace quilon {
namespace {

constexpr int64_t kReceiveTimeout = 1;
constexpr int kOn = 1;

template <typename Value>
void SetOption(uintptr_t socket, int level, int option, const Value& value) {
  setsockopt(socket, level, option, reinterpret_cast<const char*>(&value),
             sizeof(value));
}

// A set of one socket, as select wants it.
fd_set SetOf(uintptr_t socket) {
  fd_set set;
  FD_ZERO(&set);
  set.fd_array[0] = socket;
  set.fd_count = 1;
  return set;
}

// select counts microseconds.
timeval TimeOf(uint32_t milliseconds) {
  return {static_cast<long>(milliseconds / 1000),          // NOLINT
          static_cast<long>(milliseconds % 1000 * 1000)};  // NOLINT
}

// What a call that does not wait came to: bytes, nothing yet, or kGone.
int32_t Taken(int length) {
  if (length >= 0) {
    return length;
  }
  return WSAGetLastError() == WSAEWOULDBLOCK ? 0 : TcpSocket::kGone;
}

}  // namespace

// Windows itself gives up after some 20 s.
const int32_t TcpSocket::kConnectPatience = 30000;

void TcpSocket::StartLibrary() {
  WSADATA data;
  WSAStartup(MAKEWORD(2, 2), &data);
}

int32_t TcpSocket::LastError() { return WSAGetLastError(); }

bool TcpSocket::Create() {
  socket_ = WSASocketW(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0,
                       WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
  u_long does_not_wait = 1;
  return IsOpen() && ioctlsocket(socket_, FIONBIO, &does_not_wait) == 0;
}

TcpSocket::Progress TcpSocket::BeginConnect(const char* address,
                                            uint16_t port) {
  sockaddr_in peer = {};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(port);
  peer.sin_addr.s_addr = inet_addr(address);
  if (connect(socket_, reinterpret_cast<sockaddr*>(&peer), sizeof(peer)) == 0) {
    return Progress::kConnected;
  }
  return WSAGetLastError() == WSAEWOULDBLOCK ? Progress::kUnderWay
                                             : Progress::kFailed;
}

TcpSocket::Progress TcpSocket::FinishConnect() {
  fd_set writable = SetOf(socket_);
  timeval at_once = TimeOf(0);
  return select(0, nullptr, &writable, nullptr, &at_once) == 1
             ? Progress::kConnected
             : Progress::kFailed;
}

void TcpSocket::SetOptions() {
  SetOption(socket_, SOL_SOCKET, SO_RCVTIMEO, kReceiveTimeout);
  SetOption(socket_, SOL_SOCKET, SO_DEBUG, kOn);
  SetOption(socket_, IPPROTO_TCP, TCP_NODELAY, kOn);
}

bool TcpSocket::WaitToRead(uint32_t milliseconds) {
  fd_set readable = SetOf(socket_);
  timeval limit = TimeOf(milliseconds);
  return select(0, &readable, nullptr, nullptr, &limit) > 0;
}

// A connection that failed can be told by its exception only.
bool TcpSocket::WaitToWrite(uint32_t milliseconds) {
  fd_set writable = SetOf(socket_);
  fd_set failed = SetOf(socket_);
  timeval limit = TimeOf(milliseconds);
  return select(0, nullptr, &writable, &failed, &limit) > 0;
}

int32_t TcpSocket::Receive(void* buffer, int32_t count) {
  const int length = recv(socket_, static_cast<char*>(buffer), count, 0);
  return length == 0 ? kGone : Taken(length);
}

int32_t TcpSocket::Send(const void* buffer, int32_t count) {
  return Taken(send(socket_, static_cast<const char*>(buffer), count, 0));
}

void TcpSocket::Close() {
  if (IsOpen()) {
    closesocket(std::exchange(socket_, kNone));
  }
}

}  // namespace quilon
