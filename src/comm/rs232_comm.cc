#include "comm/rs232_comm.h"

#include <utility>

#include "comm/serial_setup.h"

namespace quilon {

RS232Comm::RS232Comm(std::unique_ptr<SerialPort> port)
    : port_(std::move(port)) {}

RS232Comm::~RS232Comm() { RS232Comm::Close(); }

int32_t RS232Comm::OpenConnection(const SerialParams& params,
                                  LastErrorRecord* last_error) {
  return OpenSerialPort(params, port_.get(), &log(), last_error);
}

int32_t RS232Comm::Close() {
  if (!port_->Close()) {
    return 0;
  }
  log().CloseLog();
  return 1;
}

int32_t RS232Comm::Read(void* buffer, int32_t count) {
  if (!port_->IsOpen() || count < 1) {
    return 0;
  }
  const int32_t received = port_->Read(buffer, count);
  log().WriteIfActive(
      {static_cast<char*>(buffer), static_cast<size_t>(received)},
      kLogReceived);
  return received;
}

int32_t RS232Comm::Write(const void* buffer, int32_t count) {
  if (!port_->IsOpen() || count < 1) {
    return 0;
  }
  const int32_t written = port_->Write(buffer, count);
  log().WriteIfActive(
      {static_cast<const char*>(buffer), static_cast<size_t>(written)},
      kLogSent);
  return written;
}

int32_t RS232Comm::Purge() {
  return port_->IsOpen() && port_->ClearReceived() ? 1 : 0;
}

}  // namespace quilon
