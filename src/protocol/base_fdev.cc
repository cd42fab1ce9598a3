#include "protocol/base_fdev.h"

#include <cstdio>
#include <cstring>
#include <utility>

#include "platform/clock.h"

namespace quilon {
namespace {

constexpr uint32_t kPollPause = 10;  // milliseconds

bool Elapsed(uint32_t start, uint32_t now, int32_t timeout) {
  return static_cast<int32_t>(now - start) > timeout;
}

}  // namespace

BaseFDev::~BaseFDev() { Close(); }

void BaseFDev::StartLog(BaseComm* transport) const {
  if (log_enabled_) {
    transport->log().SetDirectory(log_directory_);
    transport->log().OpenLog();
  }
}

void BaseFDev::Attach(std::unique_ptr<BaseComm> transport) {
  BaseComm::Abandon(std::exchange(transport_, std::move(transport)));
}

int32_t BaseFDev::Close() {
  if (transport_ != nullptr) {
    transport_->Close();
    transport_.reset();
  }
  return 1;
}

void BaseFDev::EnableLog(std::string_view directory) {
  log_enabled_ = true;
  log_directory_[directory.copy(log_directory_, sizeof(log_directory_) - 1)] =
      '\0';
  if (transport_ != nullptr) {
    StartLog(transport_.get());
  }
}

void BaseFDev::DisableLog() {
  log_enabled_ = false;
  if (transport_ != nullptr) {
    transport_->log().SwitchOff();
  }
}

int32_t BaseFDev::LogMessage(std::string_view text) {
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

int32_t BaseFDev::Send(const FrameBuilder& frame) {
  if (transport_ == nullptr) {
    return 0;
  }
  const char* bytes = frame.bytes().c_str();
  transport_->Purge();
  return transport_->Write(bytes, static_cast<int32_t>(std::strlen(bytes)));
}

int32_t BaseFDev::SendControlByte(char byte) {
  command_buffer_.clear();
  return Send(FrameBuilder(text_encoding_, &command_buffer_).Char(byte));
}

int32_t BaseFDev::ReadByte(uint8_t* byte) {
  if (transport_ == nullptr) {
    return 0;
  }
  uint32_t start = ClockMilliseconds();
  uint32_t now = start;
  int32_t count = 0;
  while (count == 0) {
    if (transport_->Read(byte, 1) > 0) {
      ++count;
      start = now;  // the time-out begins anew
      LogDiagnostic("READ 1");
    } else {
      SleepMilliseconds(kPollPause);
      now = ClockMilliseconds();
    }
    if (Elapsed(start, now, reply_timeout_)) {
      char text[64];
      std::snprintf(
          text, sizeof(text), "READ TIMEOUT! %lu %lu %lu",
          static_cast<unsigned long>(start), static_cast<unsigned long>(now),
          static_cast<unsigned long>(static_cast<uint32_t>(reply_timeout_)));
      LogDiagnostic(text);
      return count;
    }
  }
  LogDiagnostic("READ desired len");
  return count;
}

bool BaseFDev::ReadPacket() {
  reply_.Clear();
  if (transport_ == nullptr) {
    return false;
  }
  // The packet is logged whole; its single bytes would drown the log.
  if (log_enabled_) {
    transport_->log().SwitchOff();
  }
  const bool too_long = !ReadPacketBytes();
  if (log_enabled_) {
    transport_->log().OpenLog();
    transport_->log().WriteIfActive(reply_.bytes().c_str(), kLogReceived);
  }
  if (too_long) {
    LogDiagnostic("READ PACKET TOO LONG");
  }
  return !reply_.empty();
}

// Returns false when the packet was given up for its length.
bool BaseFDev::ReadPacketBytes() {
  uint32_t start = ClockMilliseconds();
  while (reply_.bytes().size() < Reply::kMaxLength) {
    uint8_t byte = 0;
    const bool came = ReadByte(&byte) == 1;
    const uint32_t now = ClockMilliseconds();
    if (came) {
      LogDiagnostic("READ 1..");
      reply_.Append(static_cast<char>(byte));
      start = now;
      if (byte == '\\') {
        LogDiagnostic("READ PACKET END 1");
        return true;
      }
    }
    if (Elapsed(start, now, reply_timeout_)) {
      LogDiagnostic("READ TIMEOUT 1!");
      return true;
    }
  }
  return false;
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
