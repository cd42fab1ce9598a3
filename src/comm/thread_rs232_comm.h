// A serial port that two threads serve: one moves what arrives into a queue,
// the other one drains a queue into the port. Writing never waits for the port.
#ifndef QUILON_COMM_THREAD_RS232_COMM_H_
#define QUILON_COMM_THREAD_RS232_COMM_H_

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "quilon/records.h"
#include "src/comm/base_comm.h"
#include "src/comm/byte_queue.h"
#include "src/platform/serial_port.h"

namespace quilon {

class ThreadRS232Comm final : public BaseComm {
 public:
  // The writer sends what is queued in pieces of at most this many bytes.
  static constexpr size_t kBatchCapacity = 10240;

  explicit ThreadRS232Comm(
      std::unique_ptr<SerialPort> port = CreateSerialPort());
  ~ThreadRS232Comm() override;

  // Opens the port and starts the threads. Returns 1, or 0 when that failed;
  // `last_error` says so when there is no such port or another program has it.
  int32_t OpenConnection(const SerialParams& params,
                         LastErrorRecord* last_error);

  // Lets the writer send what is queued, for 2 s at most and no longer than the
  // line moves, ends the threads and closes the port; the log, too, unless the
  // port was not open. In a forked child it lets go of the port only.
  void Close() override;

  bool IsOpen() const override { return port_->IsOpen(); }

  int32_t Read(void* buffer, int32_t count, uint32_t patience) override;

  // Queues all bytes or, when the queue is full, none.
  Written Write(const void* buffer, int32_t count) override;

  // Discards what the port has received; what the reader has queued already
  // remains. Waits some 20 ms at most for the writer to take the queued bytes.
  bool Purge() override;

  bool IsLeftBehind() const override;

  // Nothing here waits long.
  void Interrupt() override {}

 private:
  bool IsServed() const { return port_->IsOpen() && reader_.joinable(); }
  void StartThreads();
  void StartThread(void (ThreadRS232Comm::*work)(), std::thread* thread);
  void StopThreads();
  void Drain();
  void ReadPort();
  void WritePort();
  bool TryQueue(const uint8_t* bytes, size_t count);
  bool IsStopped();
  void WaitForStop(std::chrono::milliseconds patience);

  std::unique_ptr<SerialPort> port_;
  ByteQueue input_;
  ByteQueue output_;
  uint32_t owner_ = 0;              // the process that the threads run in
  std::atomic<bool> gone_ = false;  // the port, as the reader found
  std::mutex stop_mutex_;
  std::condition_variable stop_changed_;
  bool stop_ = false;
  int serving_ = 0;  // threads at work
  std::thread writer_;
  std::thread reader_;
};

}  // namespace quilon

#endif  // QUILON_COMM_THREAD_RS232_COMM_H_
