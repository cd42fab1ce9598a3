// A serial port that two threads serve: one moves what arrives into a queue,
// the other one drains a queue into the port. Reading and writing never wait
// for the port.
#ifndef QUILON_COMM_THREAD_RS232_COMM_H_
#define QUILON_COMM_THREAD_RS232_COMM_H_

#include <atomic>
#include <future>
#include <memory>

#include "comm/base_comm.h"
#include "comm/byte_queue.h"
#include "platform/serial_port.h"
#include "quilon/records.h"

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

  int32_t Open() override { return 0; }

  // Ends the threads before the port is closed. What is still queued is lost; a
  // write under way gets half a second to finish. Returns 0, and leaves the log
  // open, when the port was not open.
  int32_t Close() override;

  // Takes what has arrived; 0 when that is nothing.
  int32_t Read(void* buffer, int32_t count) override;

  // Queues all bytes or, when the queue is full, none.
  int32_t Write(const void* buffer, int32_t count) override;

  // Discards what the port has received; what the reader has queued already
  // remains. Waits some 20 ms at most for the writer to take the queued bytes.
  // Returns 1, or 0 when the port is not open or refused.
  int32_t Purge() override;

 private:
  void StartThreads();
  void StopThreads();
  void ReadPort();
  void WritePort();

  std::unique_ptr<SerialPort> port_;
  ByteQueue input_;
  ByteQueue output_;
  std::atomic<bool> stop_ = false;
  std::future<void> writer_;
  std::future<void> reader_;
};

}  // namespace quilon

#endif  // QUILON_COMM_THREAD_RS232_COMM_H_
