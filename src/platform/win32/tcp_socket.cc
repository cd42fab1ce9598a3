#include "platform/tcp_socket.h"

#include <winsock2.h>

#include <utility>

namespace quilon {
namespace {

constexpr DWORD kSendTimeout = 10000;
constexpr int64_t kReceiveTimeout = 1;
constexpr int kOn = 1;

template <typename Value>
void SetOption(uintptr_t socket, int level, int option, const Value& value) {
  setsockopt(socket, level, option, reinterpret_cast<const char*>(&value),
             sizeof(value));
}

}  // namespace

void TcpSocket::StartLibrary() {
  WSADATA data;
  WSAStartup(MAKEWORD(2, 2), &data);
}

int32_t TcpSocket::LastError() { return WSAGetLastError(); }

bool TcpSocket::Create() {
  socket_ = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  if (socket_ == INVALID_SOCKET) {
    return false;
  }
  SetOption(socket_, SOL_SOCKET, SO_SNDTIMEO, kSendTimeout);
  return true;
}

bool TcpSocket::Connect(const char* address, uint16_t port) {
  sockaddr_in peer = {};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(port);
  peer.sin_addr.s_addr = inet_addr(address);
  return connect(socket_, reinterpret_cast<sockaddr*>(&peer), sizeof(peer)) ==
         0;
}

void TcpSocket::SetPollingOptions() {
  SetOption(socket_, SOL_SOCKET, SO_RCVTIMEO, kReceiveTimeout);
  SetOption(socket_, SOL_SOCKET, SO_DEBUG, kOn);
  SetOption(socket_, IPPROTO_TCP, TCP_NODELAY, kOn);
}

int32_t TcpSocket::Receive(void* buffer, int32_t count) {
  return recv(socket_, static_cast<char*>(buffer), count, 0);
}

int32_t TcpSocket::Send(const void* buffer, int32_t count) {
  return send(socket_, static_cast<const char*>(buffer), count, 0);
}

bool TcpSocket::Close() {
  const uintptr_t closing = std::exchange(socket_, kNone);
  return closing != kNone && closesocket(closing) == 0;
}

}  // namespace quilon
