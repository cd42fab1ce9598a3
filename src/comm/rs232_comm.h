// A serial port that is read and written on the caller's thread.
#ifndef QUILON_COMM_RS232_COMM_H_
#define QUILON_COMM_RS232_COMM_H_

#include <memory>

#include "comm/base_comm.h"
#include "platform/serial_port.h"
#include "quilon/records.h"

namespace quilon {

class RS232Comm final : public BaseComm {
 public:
  explicit RS232Comm(std::unique_ptr<SerialPort> port = CreateSerialPort());
  ~RS232Comm() override;

  // Opens the port. Returns 1, or 0 when that failed; `last_error` says so when
  // there is no such port or another program has it.
  int32_t OpenConnection(const SerialParams& params,
                         LastErrorRecord* last_error);

  int32_t Open() override { return 0; }

  // Returns 0, and leaves the log open, when the port was not open.
  int32_t Close() override;

  // Waits at most 10 ms and 10 ms for each byte asked for, and 50 ms for the
  // next byte when one has come. Returns 0 when none came.
  int32_t Read(void* buffer, int32_t count) override;

  // Waits at most for the write time-out and 10 ms for each byte.
  int32_t Write(const void* buffer, int32_t count) override;

  // Discards what the port has received. Returns 1, or 0 when the port refused.
  int32_t Purge() override;

 private:
  std::unique_ptr<SerialPort> port_;
};

}  // namespace quilon

#endif  // QUILON_COMM_RS232_COMM_H_
