#include "src/comm/thread_rs232_comm.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <new>
#include <utility>

#include "src/comm/serial_setup.h"
#include "src/platform/clock.h"
#include "src/platform/module.h"
#include "src/platform/process.h"

namespace quilon {
namespace {

// All in milliseconds.
constexpr uint32_t kPurgePause = 1;
constexpr std::chrono::milliseconds kInterruptPause{10};
constexpr std::chrono::milliseconds kRetryPause{10};  // for memory, and room
constexpr std::chrono::hours kForGood{24 * 365};
constexpr int32_t kDrainPatience = 2000;
constexpr int32_t kHeldUp = 500;  // a line that moves nothing so long
constexpr uint32_t kDrainPause = 10;

constexpr int kPurgeWaits = 20;

}  // namespace

ThreadRS232Comm::ThreadRS232Comm(std::unique_ptr<SerialPort> port)
    : port_(std::move(port)) {}

ThreadRS232Comm::~ThreadRS232Comm() { StopThreads(); }

int32_t ThreadRS232Comm::OpenConnection(const SerialParams& params,
                                        LastErrorRecord* last_error) {
  if (OpenSerialPort(params, port_.get(), &log(), last_error) == 0) {
    return 0;
  }
  StartThreads();
  return 1;
}

void ThreadRS232Comm::Close() {
  if (IsLeftBehind()) {
    port_->Close();
    return;
  }
  if (IsServed()) {
    Drain();
  }
  StopThreads();
  if (port_->IsOpen() && !port_->IsDrained()) {
    // The system would wait for the rest on closing the port.
    port_->DiscardUnsent();
  }
  if (port_->Close()) {
    log().CloseLog();
  }
}

bool ThreadRS232Comm::IsLeftBehind() const {
  return writer_.joinable() && owner_ != ProcessId();
}

int32_t ThreadRS232Comm::Read(void* buffer, int32_t count, uint32_t patience) {
  if (!IsServed() || IsLeftBehind()) {
    return kGone;
  }
  const size_t taken = input_.Pop(static_cast<uint8_t*>(buffer),
                                  static_cast<size_t>(count), patience);
  if (taken == 0) {
    return gone_ ? kGone : kNothingYet;
  }
  return static_cast<int32_t>(taken);
}

BaseComm::Written ThreadRS232Comm::Write(const void* buffer, int32_t count) {
  const auto length = static_cast<size_t>(count);
  if (!IsServed() || IsLeftBehind() || !output_.HasRoom(length)) {
    return Written::kNo;
  }
  // Logged before it is queued, so that the writer's entry comes later.
  log().WriteIfActive({static_cast<const char*>(buffer), length}, kLogSent);
  output_.Push(static_cast<const uint8_t*>(buffer), length);
  return Written::kYes;
}

bool ThreadRS232Comm::Purge() {
  if (!IsServed() || IsLeftBehind()) {
    return false;
  }
  port_->AbortReads();
  port_->ClearReceived();
  for (int i = 0; i < kPurgeWaits && output_.Size() > 0; ++i) {
    output_.WaitUntilTaken(kPurgePause);
    log().WriteIfActive("OutQueue waiting", kLogStatus);
  }
  return false;
}

void ThreadRS232Comm::StartThreads() {
  PinModule();
  owner_ = ProcessId();
  try {
    StartThread(&ThreadRS232Comm::WritePort, &writer_);
    StartThread(&ThreadRS232Comm::ReadPort, &reader_);
  } catch (const std::exception&) {
    // Without its threads the port is open, takes nothing and says that it is
    // gone.
  }
}

// Waits for the queued bytes to leave, unless the line is held up.
void ThreadRS232Comm::Drain() {
  const uint32_t start = ClockMilliseconds();
  uint32_t moved = start;
  int64_t sent = port_->SentCount();
  for (uint32_t now = start;
       !Elapsed(start, now, kDrainPatience) && !Elapsed(moved, now, kHeldUp);
       now = ClockMilliseconds()) {
    if (output_.WaitUntilServed(kDrainPause)) {
      if (port_->IsDrained()) {
        return;
      }
      SleepMilliseconds(kDrainPause);
    }
    if (sent != port_->SentCount()) {
      sent = port_->SentCount();
      moved = now;
    }
  }
}

void ThreadRS232Comm::StopThreads() {
  {
    std::unique_lock lock(stop_mutex_);
    stop_ = true;
    stop_changed_.notify_all();
    output_.Interrupt();
    const auto ended = [this] { return serving_ == 0; };
    while (!ended()) {
      port_->Interrupt();
      stop_changed_.wait_for(lock, kInterruptPause, ended);
    }
  }
  for (std::thread* thread : {&writer_, &reader_}) {
    if (thread->joinable()) {
      thread->join();
    }
  }
}

void ThreadRS232Comm::StartThread(void (ThreadRS232Comm::*work)(),
                                  std::thread* thread) {
  const std::lock_guard lock(stop_mutex_);
  *thread = std::thread([this, work] {
    (this->*work)();
    const std::lock_guard end(stop_mutex_);
    --serving_;
    stop_changed_.notify_all();
  });
  ++serving_;
}

bool ThreadRS232Comm::IsStopped() {
  const std::lock_guard lock(stop_mutex_);
  return stop_;
}

void ThreadRS232Comm::WaitForStop(std::chrono::milliseconds patience) {
  std::unique_lock lock(stop_mutex_);
  stop_changed_.wait_for(lock, patience, [this] { return stop_; });
}

void ThreadRS232Comm::ReadPort() {
  std::array<uint8_t, 512> bytes = {};
  while (!IsStopped()) {
    const int32_t count = port_->Read(
        bytes.data(), static_cast<int32_t>(bytes.size()), SerialPort::kForever);
    if (count == SerialPort::kGone) {
      gone_ = true;
      WaitForStop(kForGood);
    }
    // What has no room waits here, and what comes behind it in the port.
    while (count > 0 && !IsStopped() &&
           !TryQueue(bytes.data(), static_cast<size_t>(count))) {
      WaitForStop(kRetryPause);
    }
  }
}

bool ThreadRS232Comm::TryQueue(const uint8_t* bytes, size_t count) {
  try {
    if (input_.HasRoom(count)) {
      input_.Push(bytes, count);
      return true;
    }
  } catch (const std::bad_alloc&) {
    // There may be memory again in a moment.
  }
  return false;
}

void ThreadRS232Comm::WritePort() {
  std::array<uint8_t, kBatchCapacity> batch = {};
  while (const size_t length =
             output_.Pop(batch.data(), batch.size(), ByteQueue::kForever)) {
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
