// The bytes on their way between the caller and a thread that serves the port.
#ifndef QUILON_COMM_BYTE_QUEUE_H_
#define QUILON_COMM_BYTE_QUEUE_H_

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>

namespace quilon {

// Safe for use by one thread that pushes and one that pops.
class ByteQueue {
 public:
  // A queue that nobody empties is full with this many bytes: what a fast line
  // carries in a quarter of an hour.
  static constexpr size_t kCapacity = size_t{16} << 20;

  // Whether `count` more bytes fit. Push itself does not ask.
  bool HasRoom(size_t count) const;

  void Push(const uint8_t* bytes, size_t count);

  // Takes up to `count` bytes, and waits for the first one. Returns how many; 0
  // only when the waiting was interrupted.
  size_t Pop(uint8_t* bytes, size_t count);

  // Takes up to `count` bytes without waiting. Returns how many.
  size_t TryPop(uint8_t* bytes, size_t count);

  size_t Size() const;

  // From now on Pop takes nothing and does not wait. Any thread may call it.
  void Interrupt();

 private:
  size_t Take(uint8_t* bytes, size_t count);

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<uint8_t> bytes_;
  bool interrupted_ = false;
};

}  // namespace quilon

#endif  // QUILON_COMM_BYTE_QUEUE_H_
