// A serial port that is read and written on the caller's thread.
#ifndef QUILON_COMM_RS232_COMM_H_
#define QUILON_COMM_RS232_COMM_H_

#include <memory>

#include "quilon/records.h"
#include "src/comm/base_comm.h"
#include "src/platform/serial_port.h"

namespace quilon {

class RS232Comm final : public BaseComm {
 public:
  explicit RS232Comm(std::unique_ptr<SerialPort> port = CreateSerialPort());

  // Opens the port. Returns 1, or 0 when that failed; `last_error` says so when
  // there is no such port or another program has it.
  int32_t OpenConnection(const SerialParams& params,
                         LastErrorRecord* last_error);

  // Closes the log, too, unless the port was not open.
  void Close() override;

  bool IsOpen() const override { return port_->IsOpen(); }

  int32_t Read(void* buffer, int32_t count, uint32_t patience) override;

  // Waits at most for the write time-out and 10 ms for each byte. A part of the
  // bytes counts as written.
  Written Write(const void* buffer, int32_t count) override;

  bool Purge() override;

  void Interrupt() override { port_->Interrupt(); }

 private:
  std::unique_ptr<SerialPort> port_;
};

}  // namespace quilon

#endif  // QUILON_COMM_RS232_COMM_H_
