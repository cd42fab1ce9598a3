#include "src/comm/tcpip_comm.h"

#include <cerrno>
#include <cstdio>
#include <optional>
#include <string_view>

#include "src/comm/last_error.h"
#include "src/platform/clock.h"

namespace quilon {
namespace {

constexpr int kAddressCapacity = sizeof(TcpParams::address);
constexpr int32_t kSendPatience = 10000;  // milliseconds
// How often somebody who waits looks whether he is to stop.
constexpr uint32_t kWait = 20;  // milliseconds

}  // namespace

int32_t TCPIPComm::OpenConnection(const TcpParams& params,
                                  const std::atomic<bool>& interrupted,
                                  LastErrorRecord* last_error) {
  log().WriteIfActive("Open port", kLogStatus);
  if (!socket_.Create()) {
    char text[1024];
    std::snprintf(text, sizeof(text), "Socket failed with error: %ld",
                  static_cast<long>(TcpSocket::LastError()));
    log().WriteIfActive(text, kLogStatus);
    SetDriverError(text, last_error);
    return 0;
  }
  log().WriteIfActive("TCP Port Open OK", kLogStatus);

  char address[kAddressCapacity + 1];
  std::snprintf(address, sizeof(address), "%.*s", kAddressCapacity,
                params.address);
  if (!Connect(address, static_cast<uint16_t>(params.port), interrupted)) {
    // The system must not go on connecting: nobody would know that it did. What
    // takes the socket's place has never been connected, and stays so.
    socket_.Close();
    socket_.Create();
    return 0;
  }
  connected_ = true;
  socket_.SetOptions();

  char text[255];
  std::snprintf(text, sizeof(text), "Params: hostname:%s port: %d", address,
                static_cast<int32_t>(params.port));
  log().WriteIfActive(text, kLogStatus);
  return 1;
}

bool TCPIPComm::Connect(const char* address, uint16_t port,
                        const std::atomic<bool>& interrupted) {
  using Progress = TcpSocket::Progress;
  const uint32_t start = ClockMilliseconds();
  Progress progress = socket_.BeginConnect(address, port);
  while (progress == Progress::kUnderWay && !interrupted &&
         !Elapsed(start, ClockMilliseconds(), TcpSocket::kConnectPatience)) {
    if (socket_.WaitToWrite(kWait)) {
      progress = socket_.FinishConnect();
    }
  }
  return progress == Progress::kConnected;
}

void TCPIPComm::Close() {
  connected_ = false;
  socket_.Close();
  log().CloseLog();
}

int32_t TCPIPComm::Read(void* buffer, int32_t count, uint32_t patience) {
  static_assert(kGone == TcpSocket::kGone);
  if (!connected_) {
    return kGone;
  }
  return socket_.WaitToRead(patience) ? socket_.Receive(buffer, count)
                                      : kNothingYet;
}

BaseComm::Written TCPIPComm::Write(const void* buffer, int32_t count) {
  const auto* const bytes = static_cast<const char*>(buffer);
  if (SendAll(bytes, count)) {
    log().WriteIfActive({bytes, static_cast<size_t>(count)}, kLogSent);
    return Written::kYes;
  }
  char text[64];
  std::snprintf(text, sizeof(text), "tcp write error %d", errno);
  const std::string_view entry = text;
  // The entry's kind has always been its own length.
  log().WriteIfActive(entry, static_cast<uint32_t>(entry.size()));
  broken_ = connected_;
  return connected_ ? Written::kNo : Written::kLost;
}

bool TCPIPComm::SendAll(const char* bytes, int32_t count) {
  std::optional<uint32_t> waiting_since;
  while (count > 0) {
    const int32_t sent = socket_.Send(bytes, count);
    if (sent == TcpSocket::kGone || interrupted_) {
      return false;
    }
    bytes += sent;
    count -= sent;
    if (sent == 0) {
      if (!waiting_since) {
        waiting_since = ClockMilliseconds();
      }
      if (!socket_.WaitToWrite(kWait) &&
          Elapsed(*waiting_since, ClockMilliseconds(), kSendPatience)) {
        errno = EAGAIN;
        return false;
      }
    }
  }
  return true;
}

}  // namespace quilon
