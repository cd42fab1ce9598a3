#include "src/comm/byte_queue.h"

#include <algorithm>
#include <chrono>

namespace quilon {
namespace {

// Waits until `condition`, so many milliseconds at most.
template <typename Condition>
void WaitFor(std::condition_variable* changed,
             std::unique_lock<std::mutex>* lock, uint32_t milliseconds,
             Condition condition) {
  if (milliseconds == ByteQueue::kForever) {
    changed->wait(*lock, condition);
  } else {
    changed->wait_for(*lock, std::chrono::milliseconds(milliseconds),
                      condition);
  }
}

}  // namespace

bool ByteQueue::HasRoom(size_t count) const {
  const size_t size = Size();
  return size <= kCapacity && count <= kCapacity - size;
}

void ByteQueue::Push(const uint8_t* bytes, size_t count) {
  const std::lock_guard lock(mutex_);
  // Much room at the front is used again before the system is asked for more.
  if (taken_ > bytes_.size() / 2 && bytes_.size() + count > bytes_.capacity()) {
    bytes_.erase(bytes_.begin(),
                 bytes_.begin() + static_cast<ptrdiff_t>(taken_));
    taken_ = 0;
  }
  bytes_.insert(bytes_.end(), bytes, bytes + count);
  changed_.notify_all();
}

size_t ByteQueue::Pop(uint8_t* bytes, size_t count, uint32_t patience) {
  std::unique_lock lock(mutex_);
  serving_ = false;
  changed_.notify_all();
  WaitFor(&changed_, &lock, patience,
          [this] { return interrupted_ || taken_ < bytes_.size(); });
  return interrupted_ ? 0 : Take(bytes, count);
}

void ByteQueue::WaitUntilTaken(uint32_t milliseconds) {
  std::unique_lock lock(mutex_);
  WaitFor(&changed_, &lock, milliseconds,
          [this] { return taken_ == bytes_.size(); });
}

bool ByteQueue::WaitUntilServed(uint32_t milliseconds) {
  std::unique_lock lock(mutex_);
  const auto served = [this] { return !serving_ && taken_ == bytes_.size(); };
  WaitFor(&changed_, &lock, milliseconds, served);
  return served();
}

size_t ByteQueue::Size() const {
  const std::lock_guard lock(mutex_);
  return bytes_.size() - taken_;
}

void ByteQueue::Interrupt() {
  const std::lock_guard lock(mutex_);
  interrupted_ = true;
  changed_.notify_all();
}

size_t ByteQueue::Take(uint8_t* bytes, size_t count) {
  const size_t length = std::min(count, bytes_.size() - taken_);
  std::copy_n(bytes_.begin() + static_cast<ptrdiff_t>(taken_), length, bytes);
  taken_ += length;
  if (taken_ == bytes_.size()) {
    bytes_.clear();
    taken_ = 0;
  }
  serving_ = length > 0;
  changed_.notify_all();
  return length;
}

}  // namespace quilon
