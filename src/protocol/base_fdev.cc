#include "src/protocol/base_fdev.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "src/platform/clock.h"
#include "src/protocol/call_ended.h"

namespace quilon {
namespace {

// Milliseconds that a look for bytes waits for them, and that a line that is
// gone is left alone.
constexpr uint32_t kPatience = 10;

}  // namespace

BaseFDev::~BaseFDev() { Close(); }

void BaseFDev::StartLog(BaseComm* transport) {
  if (log_enabled_) {
    const std::lock_guard lock(mutex_);
    transport->log().SetDirectory(log_directory_);
    transport->log().OpenLog();
  }
}

void BaseFDev::Attach(std::unique_ptr<BaseComm> transport) {
  {
    const std::lock_guard lock(mutex_);
    transport_.swap(transport);
  }
  unread_ = {};
  gone_ = false;
  if (transport != nullptr && transport->IsOpen()) {
    BaseComm::Abandon(std::move(transport));
  }
}

void BaseFDev::Close() {
  std::unique_ptr<BaseComm> closing;
  {
    const std::lock_guard lock(mutex_);
    closing.swap(transport_);
  }
  interrupted_ = false;
  if (closing != nullptr) {
    closing->Close();
    if (closing->IsLeftBehind()) {
      BaseComm::Abandon(std::move(closing));
    }
  }
}

bool BaseFDev::IsGone() const {
  return transport_ == nullptr || !transport_->IsOpen() ||
         transport_->IsBroken() || gone_;
}

void BaseFDev::Interrupt() {
  interrupted_ = true;
  const std::lock_guard lock(mutex_);
  if (transport_ != nullptr) {
    transport_->Interrupt();
  }
}

void BaseFDev::Pause(uint32_t milliseconds) const {
  const uint32_t start = ClockMilliseconds();
  for (uint32_t passed = 0; passed < milliseconds;
       passed = ClockMilliseconds() - start) {
    CheckInterrupted();
    SleepMilliseconds(std::min(kPatience, milliseconds - passed));
  }
}

void BaseFDev::EnableLog(std::string_view directory) {
  const std::lock_guard lock(mutex_);
  log_enabled_ = true;
  log_directory_[directory.copy(log_directory_, sizeof(log_directory_) - 1)] =
      '\0';
  if (transport_ != nullptr) {
    transport_->log().SetDirectory(log_directory_);
    transport_->log().OpenLog();
  }
}

void BaseFDev::DisableLog() {
  const std::lock_guard lock(mutex_);
  log_enabled_ = false;
  if (transport_ != nullptr) {
    transport_->log().SwitchOff();
  }
}

int32_t BaseFDev::LogMessage(std::string_view text) {
  const std::lock_guard lock(mutex_);
  log_enabled_ = true;
  return transport_ != nullptr
             ? transport_->log().WriteIfActive(text, kLogMessage)
             : 0;
}

void BaseFDev::LogDiagnostic(std::string_view text) {
  if (transport_ != nullptr) {
    transport_->log().WriteIfActive(text, kLogMessage);
  }
}

FrameBuilder BaseFDev::Frame() {
  FrameBuilder frame(text_encoding_, &command_buffer_);
  frame.Begin();
  return frame;
}

bool BaseFDev::Send(const FrameBuilder& frame) {
  return Transmit(frame) != BaseComm::Written::kNo;
}

bool BaseFDev::Deliver(const FrameBuilder& frame) {
  return Transmit(frame) == BaseComm::Written::kYes;
}

BaseComm::Written BaseFDev::Transmit(const FrameBuilder& frame) {
  CheckInterrupted();
  const std::string& bytes = frame.bytes();
  if (transport_ == nullptr || transport_->IsBroken() ||
      bytes.find('\0') != std::string::npos) {
    return BaseComm::Written::kNo;
  }
  if (transport_->Purge()) {
    unread_ = {};
  }
  const BaseComm::Written written =
      transport_->Write(bytes.data(), static_cast<int32_t>(bytes.size()));
  CheckInterrupted();
  return written;
}

bool BaseFDev::SendControlByte(char byte) {
  command_buffer_.clear();
  return Send(FrameBuilder(text_encoding_, &command_buffer_).Char(byte));
}

// Looks for further bytes. Returns whether there are any.
bool BaseFDev::Receive() {
  CheckInterrupted();
  const int32_t count =
      transport_->Read(received_, sizeof(received_), kPatience);
  gone_ = count == BaseComm::kGone;
  if (gone_) {
    SleepMilliseconds(kPatience);
  }
  if (count > 0) {
    unread_ = {received_, static_cast<size_t>(count)};
  }
  return count > 0;
}

bool BaseFDev::ReadByte(uint8_t* byte) {
  if (transport_ == nullptr || transport_->IsBroken()) {
    return false;
  }
  const uint32_t start = ClockMilliseconds();
  while (unread_.empty() && !Receive()) {
    const uint32_t now = ClockMilliseconds();
    if (Elapsed(start, now, reply_timeout_)) {
      LogTimeout(start, now);
      return false;
    }
  }
  *byte = static_cast<uint8_t>(unread_.front());
  transport_->log().WriteIfActive(unread_.substr(0, 1), kLogReceived);
  unread_.remove_prefix(1);
  LogDiagnostic("READ 1");
  if (reply_timeout_ < 0) {
    // Such a time-out is over with the byte that came.
    LogTimeout(start, start);
  } else {
    LogDiagnostic("READ desired len");
  }
  return true;
}

void BaseFDev::LogTimeout(uint32_t start, uint32_t now) {
  char text[64];
  std::snprintf(
      text, sizeof(text), "READ TIMEOUT! %lu %lu %lu",
      static_cast<unsigned long>(start), static_cast<unsigned long>(now),
      static_cast<unsigned long>(static_cast<uint32_t>(reply_timeout_)));
  LogDiagnostic(text);
}

// The packet is logged whole: its single bytes would drown the log.
bool BaseFDev::ReadPacket() {
  reply_.Clear();
  if (transport_ == nullptr) {
    return false;
  }
  const bool too_long = !ReadPacketBytes();
  if (log_enabled_) {
    transport_->log().Resume();
    transport_->log().WriteIfActive(reply_.bytes().c_str(), kLogReceived);
  }
  if (too_long) {
    LogDiagnostic("READ PACKET TOO LONG");
  }
  return !reply_.empty();
}

// Returns false when the packet was given up for its length.
bool BaseFDev::ReadPacketBytes() {
  // A negative time-out is over with the first byte.
  const size_t piece_length = reply_timeout_ < 0 ? 1 : std::string_view::npos;
  uint32_t start = ClockMilliseconds();
  while (!transport_->IsBroken()) {
    if (reply_.bytes().size() >= Reply::kMaxLength) {
      return false;
    }
    if (unread_.empty() && !Receive()) {
      if (Elapsed(start, ClockMilliseconds(), reply_timeout_)) {
        return true;
      }
      continue;
    }
    std::string_view piece = unread_.substr(
        0, std::min(piece_length, Reply::kMaxLength - reply_.bytes().size()));
    const size_t end = piece.find('\\');
    piece = piece.substr(0, end == std::string_view::npos ? end : end + 1);
    reply_.Append(piece);
    unread_.remove_prefix(piece.size());
    if (end != std::string_view::npos || reply_timeout_ < 0) {
      return true;
    }
    start = ClockMilliseconds();
  }
  return true;
}

void BaseFDev::CheckInterrupted() const {
  if (interrupted_) {
    throw CallEnded();
  }
}

bool BaseFDev::ReadAnswer() {
  do {
    if (!ReadPacket()) {
      return false;
    }
  } while (reply_.SkipPast("#Z"));
  return true;
}

}  // namespace quilon
