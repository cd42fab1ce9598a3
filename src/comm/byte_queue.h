// The bytes on their way between the caller and a thread that serves the port.
#ifndef QUILON_COMM_BYTE_QUEUE_H_
#define QUILON_COMM_BYTE_QUEUE_H_

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <vector>

namespace quilon {

// Safe for use by one thread that pushes, one that pops, and others that look.
class ByteQueue {
 public:
  // A queue that nobody empties is full with this many bytes: what a fast line
  // carries in a quarter of an hour.
  static constexpr size_t kCapacity = size_t{16} << 20;

  // For patience: without end.
  static constexpr uint32_t kForever = 0xFFFFFFFF;

  // Whether `count` more bytes fit. Push itself does not ask.
  bool HasRoom(size_t count) const;

  // Throws std::bad_alloc, with the queue as it was.
  void Push(const uint8_t* bytes, size_t count);

  // Takes up to `count` bytes, and waits at most `patience` milliseconds for
  // the first one. Returns how many; 0 also when the queue was interrupted.
  size_t Pop(uint8_t* bytes, size_t count, uint32_t patience);

  // Waits at most so many milliseconds until everything was popped.
  void WaitUntilTaken(uint32_t milliseconds);

  // Waits at most so many milliseconds until everything was popped and whoever
  // popped it has come back for more. Returns whether it is so.
  bool WaitUntilServed(uint32_t milliseconds);

  size_t Size() const;

  // From now on Pop takes nothing and does not wait. Any thread may call it.
  void Interrupt();

 private:
  size_t Take(uint8_t* bytes, size_t count);

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<uint8_t> bytes_;
  size_t taken_ = 0;      // so many of them, at the front
  bool serving_ = false;  // what was popped last is still at work
  bool interrupted_ = false;
};

}  // namespace quilon

#endif  // QUILON_COMM_BYTE_QUEUE_H_
