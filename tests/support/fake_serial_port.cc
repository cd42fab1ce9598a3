#include "tests/support/fake_serial_port.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace quilon::testing {
class FakeSerialPort final : public SerialPort {
 public:
  explicit FakeSerialPort(SerialScript* script) : script_(*script) {}

  bool Open(std::string_view name) override {
    script_.Note("open");
    script_.name = name;
    open_ = script_.opens;
    return open_;
  }

  bool Close() override {
    if (!std::exchange(open_, false)) {
      return false;
    }
    script_.Note("close");
    return script_.closes;
  }

  bool IsOpen() const override { return open_; }

  bool GetLineState(LineState* state) override {
    *state = script_.line;
    return script_.tells_line_state;
  }

  bool SetLineState(const LineState& state) override {
    script_.lines_tried.push_back(state);
    if (!script_.takes_line_state ||
        (state.xon == state.xoff && !script_.takes_equal_characters)) {
      return false;
    }
    script_.line = state;
    return true;
  }

  bool SetTimeouts(const SerialTimeouts& timeouts) override {
    script_.timeouts = timeouts;
    return script_.takes_timeouts;
  }

  int32_t Read(void* buffer, int32_t count, uint32_t patience) override {
    std::unique_lock lock(script_.mutex_);
    if (script_.unread_.empty()) {
      script_.reader_idle_ = true;
      script_.changed_.notify_all();
    }
    const auto awake = [this] {
      return script_.vanished_ || script_.interrupted_ ||
             !script_.unread_.empty();
    };
    if (patience == kForever) {
      script_.changed_.wait(lock, awake);
    } else {
      script_.changed_.wait_for(lock, std::chrono::milliseconds(patience),
                                awake);
    }
    if (script_.vanished_) {
      return kGone;
    }
    const size_t length = script_.unread_.copy(static_cast<char*>(buffer),
                                               static_cast<size_t>(count));
    script_.unread_.erase(0, length);
    return static_cast<int32_t>(length);
  }

  int32_t Write(const void* buffer, int32_t count) override {
    std::unique_lock lock(script_.mutex_);
    script_.writes_.emplace_back(static_cast<const char*>(buffer),
                                 static_cast<size_t>(count));
    script_.changed_.notify_all();
    script_.changed_.wait(
        lock, [this] { return script_.interrupted_ || !script_.writes_held_; });
    if (script_.writes_held_ || script_.writes_refused_) {
      return 0;
    }
    script_.sent_ += count;
    return count;
  }

  int32_t LastError() const override { return script_.last_error; }

  int64_t SentCount() const override {
    const std::lock_guard lock(script_.mutex_);
    return script_.sent_;
  }

  bool IsDrained() const override { return true; }
  void DiscardUnsent() override {}

  void Interrupt() override {
    const std::lock_guard lock(script_.mutex_);
    script_.interrupted_ = true;
    script_.changed_.notify_all();
  }

  bool AbortReads() override {
    script_.Note("abort reads");
    return false;
  }

  bool ClearReceived() override {
    script_.Note("clear received");
    return script_.purges;
  }

 private:
  SerialScript& script_;
  bool open_ = false;
};

std::vector<std::string> SerialScript::Operations() {
  const std::lock_guard lock(mutex_);
  return operations_;
}

std::vector<std::string> SerialScript::Writes() {
  const std::lock_guard lock(mutex_);
  return writes_;
}

void SerialScript::WaitForWrites(size_t count) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this, count] { return writes_.size() >= count; });
}

void SerialScript::Receive(std::string_view bytes) {
  const std::lock_guard lock(mutex_);
  unread_ += bytes;
  reader_idle_ = false;
  changed_.notify_all();
}

void SerialScript::WaitForReader() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return reader_idle_; });
}

void SerialScript::HoldWrites() {
  const std::lock_guard lock(mutex_);
  writes_held_ = true;
}

void SerialScript::RefuseWrites() {
  const std::lock_guard lock(mutex_);
  writes_refused_ = true;
}

void SerialScript::AllowWrites() {
  const std::lock_guard lock(mutex_);
  writes_held_ = false;
  writes_refused_ = false;
  changed_.notify_all();
}

void SerialScript::Vanish() {
  const std::lock_guard lock(mutex_);
  vanished_ = true;
  changed_.notify_all();
}

void SerialScript::Note(const std::string& operation) {
  const std::lock_guard lock(mutex_);
  operations_.push_back(operation);
}

std::unique_ptr<SerialPort> MakeFakeSerialPort(SerialScript* script) {
  return std::make_unique<FakeSerialPort>(script);
}

}  // namespace quilon::testing
