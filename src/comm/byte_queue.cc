#include "comm/byte_queue.h"

#include <algorithm>

namespace quilon {

bool ByteQueue::HasRoom(size_t count) const {
  const size_t size = Size();
  return size <= kCapacity && count <= kCapacity - size;
}

void ByteQueue::Push(const uint8_t* bytes, size_t count) {
  const std::lock_guard lock(mutex_);
  bytes_.insert(bytes_.end(), bytes, bytes + count);
  changed_.notify_one();
}

size_t ByteQueue::Pop(uint8_t* bytes, size_t count) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return interrupted_ || !bytes_.empty(); });
  return interrupted_ ? 0 : Take(bytes, count);
}

size_t ByteQueue::TryPop(uint8_t* bytes, size_t count) {
  const std::lock_guard lock(mutex_);
  return Take(bytes, count);
}

size_t ByteQueue::Size() const {
  const std::lock_guard lock(mutex_);
  return bytes_.size();
}

void ByteQueue::Interrupt() {
  const std::lock_guard lock(mutex_);
  interrupted_ = true;
  changed_.notify_all();
}

size_t ByteQueue::Take(uint8_t* bytes, size_t count) {
  const size_t taken = std::min(count, bytes_.size());
  const auto end = bytes_.begin() + static_cast<ptrdiff_t>(taken);
  std::copy(bytes_.begin(), end, bytes);
  bytes_.erase(bytes_.begin(), end);
  return taken;
}

}  // namespace quilon
