#include "src/comm/rs232_comm.h"

#include <utility>

#include "src/comm/serial_setup.h"

namespace quilon {

RS232Comm::RS232Comm(std::unique_ptr<SerialPort> port)
    : port_(std::move(port)) {}

int32_t RS232Comm::OpenConnection(const SerialParams& params,
                                  LastErrorRecord* last_error) {
  return OpenSerialPort(params, port_.get(), &log(), last_error);
}

void RS232Comm::Close() {
  if (port_->Close()) {
    log().CloseLog();
  }
}

int32_t RS232Comm::Read(void* buffer, int32_t count, uint32_t patience) {
  return port_->IsOpen() ? port_->Read(buffer, count, patience) : kGone;
}

BaseComm::Written RS232Comm::Write(const void* buffer, int32_t count) {
  const int32_t written = port_->IsOpen() ? port_->Write(buffer, count) : 0;
  log().WriteIfActive(
      {static_cast<const char*>(buffer), static_cast<size_t>(written)},
      kLogSent);
  return written > 0 ? Written::kYes : Written::kNo;
}

bool RS232Comm::Purge() { return port_->IsOpen() && port_->ClearReceived(); }

}  // namespace quilon
