#include "comm/thread_rs232_comm.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <system_error>
#include <utility>

#include "comm/serial_setup.h"
#include "platform/clock.h"
#include "platform/module.h"

namespace quilon {
namespace {

constexpr uint32_t kPollPause = 1;  // milliseconds
constexpr int kPurgeWaits = 20;
constexpr std::chrono::milliseconds kWritePatience{500};
constexpr std::chrono::milliseconds kCancelPause{10};

}  // namespace

ThreadRS232Comm::ThreadRS232Comm(std::unique_ptr<SerialPort> port)
    : port_(std::move(port)) {}

ThreadRS232Comm::~ThreadRS232Comm() { ThreadRS232Comm::Close(); }

int32_t ThreadRS232Comm::OpenConnection(const SerialParams& params,
                                        LastErrorRecord* last_error) {
  if (OpenSerialPort(params, port_.get(), &log(), last_error) == 0) {
    return 0;
  }
  StartThreads();
  return 1;
}

int32_t ThreadRS232Comm::Close() {
  StopThreads();
  if (!port_->Close()) {
    return 0;
  }
  log().CloseLog();
  return 1;
}

int32_t ThreadRS232Comm::Read(void* buffer, int32_t count) {
  if (!port_->IsOpen() || count < 1) {
    return 0;
  }
  const size_t taken =
      input_.TryPop(static_cast<uint8_t*>(buffer), static_cast<size_t>(count));
  log().WriteIfActive({static_cast<char*>(buffer), taken}, kLogReceived);
  return static_cast<int32_t>(taken);
}

int32_t ThreadRS232Comm::Write(const void* buffer, int32_t count) {
  const auto length = static_cast<size_t>(count);
  if (!port_->IsOpen() || count < 1 || !output_.HasRoom(length)) {
    return 0;
  }
  // Logged before it is queued, so that the writer's entry comes later.
  log().WriteIfActive({static_cast<const char*>(buffer), length}, kLogSent);
  output_.Push(static_cast<const uint8_t*>(buffer), length);
  return count;
}

int32_t ThreadRS232Comm::Purge() {
  if (!port_->IsOpen()) {
    return 0;
  }
  port_->AbortReads();
  const bool cleared = port_->ClearReceived();
  for (int i = 0; i < kPurgeWaits && output_.Size() > 0; ++i) {
    SleepMilliseconds(kPollPause);
    log().WriteIfActive("OutQueue waiting", kLogStatus);
  }
  return cleared ? 1 : 0;
}

void ThreadRS232Comm::StartThreads() {
  PinModule();
  try {
    writer_ = std::async(std::launch::async, [this] { WritePort(); });
    reader_ = std::async(std::launch::async, [this] { ReadPort(); });
  } catch (const std::system_error&) {
    // Without its threads the port is open and silent: nothing arrives.
  }
}

void ThreadRS232Comm::StopThreads() {
  stop_ = true;
  output_.Interrupt();
  if (writer_.valid()) {
    std::chrono::milliseconds patience = kWritePatience;
    while (writer_.wait_for(patience) == std::future_status::timeout) {
      port_->CancelWrite();
      patience = kCancelPause;
    }
    writer_.wait();
  }
  if (reader_.valid()) {
    reader_.wait();
  }
}

void ThreadRS232Comm::ReadPort() {
  while (!stop_) {
    uint8_t byte = 0;
    // What has no room waits in the port.
    if (input_.HasRoom(1) && port_->Read(&byte, 1) == 1) {
      input_.Push(&byte, 1);
    } else {
      SleepMilliseconds(kPollPause);
    }
  }
}

void ThreadRS232Comm::WritePort() {
  std::array<uint8_t, kBatchCapacity> batch = {};
  while (const size_t length = output_.Pop(batch.data(), batch.size())) {
    if (port_->Write(batch.data(), static_cast<int32_t>(length)) > 0) {
      log().WriteIfActive("WRITE ASYNC", kLogMessage);
      continue;
    }
    char text[32];
    std::snprintf(text, sizeof(text), "Error no:%d", port_->LastError());
    log().WriteIfActive(text, kLogMessage);
  }
}

}  // namespace quilon
