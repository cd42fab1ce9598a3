#include "src/platform/serial_port.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <utility>

namespace quilon {
namespace {

// The flags follow the baud rate in the control block, as bit fields.
constexpr size_t kFlagsOffset = offsetof(DCB, BaudRate) + sizeof(DCB::BaudRate);
static_assert(sizeof(DCB) == 28 && kFlagsOffset == 8);

class Win32SerialPort final : public SerialPort {
 public:
  ~Win32SerialPort() override { Win32SerialPort::Close(); }

  bool Open(std::string_view name) override;
  bool Close() override;
  bool IsOpen() const override { return handle_ != INVALID_HANDLE_VALUE; }
  bool GetLineState(LineState* state) override;
  bool SetLineState(const LineState& state) override;
  bool SetTimeouts(const SerialTimeouts& timeouts) override;
  int32_t Read(void* buffer, int32_t count, uint32_t patience) override;
  int32_t Write(const void* buffer, int32_t count) override;
  int32_t LastError() const override {
    return static_cast<int32_t>(GetLastError());
  }
  int64_t SentCount() const override { return taken_ - Unsent(); }
  bool IsDrained() const override { return Unsent() == 0; }
  void DiscardUnsent() override {
    PurgeComm(handle_, PURGE_TXABORT | PURGE_TXCLEAR);
  }
  void Interrupt() override;
  bool AbortReads() override { return PurgeComm(handle_, PURGE_RXABORT) != 0; }
  bool ClearReceived() override {
    return PurgeComm(handle_, PURGE_RXCLEAR) != 0;
  }

 private:
  bool GetQueues(COMSTAT* queues) const;
  int64_t Unsent() const;

  HANDLE handle_ = INVALID_HANDLE_VALUE;
  std::atomic<int64_t> taken_ = 0;
  std::atomic<bool> writing_ = false;
  bool gone_ = false;       // when Read looked last
  DCB control_block_ = {};  // as the port reported it
};

bool Win32SerialPort::Open(std::string_view name) {
  char path[64];
  std::snprintf(path, sizeof(path), "\\\\.\\%.*s",
                static_cast<int>(name.size()), name.data());
  wchar_t wide_path[sizeof(path)];
  if (MultiByteToWideChar(CP_ACP, 0, path, -1, wide_path, sizeof(path)) == 0) {
    return false;
  }
  handle_ = CreateFileW(wide_path, GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  return IsOpen();
}

bool Win32SerialPort::Close() {
  const HANDLE closing = std::exchange(handle_, INVALID_HANDLE_VALUE);
  return closing != INVALID_HANDLE_VALUE && CloseHandle(closing) != 0;
}

bool Win32SerialPort::GetLineState(LineState* state) {
  control_block_ = {};
  control_block_.DCBlength = sizeof(control_block_);
  if (GetCommState(handle_, &control_block_) == 0) {
    return false;
  }
  state->baud_rate = control_block_.BaudRate;
  std::memcpy(&state->flags,
              reinterpret_cast<const char*>(&control_block_) + kFlagsOffset,
              sizeof(state->flags));
  state->data_bits = control_block_.ByteSize;
  state->parity = control_block_.Parity;
  state->stop_bits = control_block_.StopBits;
  state->xon = static_cast<uint8_t>(control_block_.XonChar);
  state->xoff = static_cast<uint8_t>(control_block_.XoffChar);
  return true;
}

bool Win32SerialPort::SetLineState(const LineState& state) {
  control_block_.BaudRate = state.baud_rate;
  std::memcpy(reinterpret_cast<char*>(&control_block_) + kFlagsOffset,
              &state.flags, sizeof(state.flags));
  control_block_.ByteSize = state.data_bits;
  control_block_.Parity = state.parity;
  control_block_.StopBits = state.stop_bits;
  control_block_.XonChar = static_cast<char>(state.xon);
  control_block_.XoffChar = static_cast<char>(state.xoff);
  return SetCommState(handle_, &control_block_) != 0;
}

bool Win32SerialPort::SetTimeouts(const SerialTimeouts& timeouts) {
  COMMTIMEOUTS settings = {};
  settings.ReadIntervalTimeout = timeouts.read_interval;
  settings.ReadTotalTimeoutMultiplier = timeouts.read_per_byte;
  settings.ReadTotalTimeoutConstant = timeouts.read_constant;
  settings.WriteTotalTimeoutMultiplier = timeouts.write_per_byte;
  settings.WriteTotalTimeoutConstant = timeouts.write_constant;
  return SetCommTimeouts(handle_, &settings) != 0;
}

bool Win32SerialPort::GetQueues(COMSTAT* queues) const {
  DWORD errors = 0;
  return ClearCommError(handle_, &errors, queues) != 0;
}

int64_t Win32SerialPort::Unsent() const {
  COMSTAT queues = {};
  GetQueues(&queues);
  return queues.cbOutQue;
}

// Reads a single byte, for which the port's time-outs are short, and then what
// is there besides.
int32_t Win32SerialPort::Read(void* buffer, int32_t count,
                              uint32_t /*patience*/) {
  COMSTAT queues = {};
  if (gone_ && !GetQueues(&queues)) {
    return kGone;
  }
  gone_ = false;
  DWORD received = 0;
  // What came counts, whatever the call itself says. It fails for the moment
  // when the receive buffer is cleared meanwhile.
  if (ReadFile(handle_, buffer, 1, &received, nullptr) == 0 && received == 0) {
    return GetLastError() == ERROR_OPERATION_ABORTED ? 0 : kGone;
  }
  if (!GetQueues(&queues) && received == 0) {
    // Wine says of a line that is gone that nothing has come, and computes
    // until then.
    gone_ = true;
    return kGone;
  }
  const DWORD more =
      received == 0 ? 0
                    : std::min<DWORD>(queues.cbInQue,
                                      static_cast<DWORD>(count) - received);
  DWORD further = 0;
  if (more > 0) {
    ReadFile(handle_, static_cast<char*>(buffer) + received, more, &further,
             nullptr);
  }
  return static_cast<int32_t>(received + further);
}

int32_t Win32SerialPort::Write(const void* buffer, int32_t count) {
  DWORD written = 0;
  writing_ = true;
  WriteFile(handle_, buffer, static_cast<DWORD>(count), &written, nullptr);
  writing_ = false;
  taken_ += written;
  return static_cast<int32_t>(written);
}

void Win32SerialPort::Interrupt() {
  CancelIoEx(handle_, nullptr);
  if (writing_) {
    // Under Wine that does nothing. There a write finishes when the bytes that
    // block it are thrown away, and notices when the line is set up anew.
    DiscardUnsent();
    SetCommState(handle_, &control_block_);
  }
}

}  // namespace

std::unique_ptr<SerialPort> CreateSerialPort() {
  return std::make_unique<Win32SerialPort>();
}

}  // namespace quilon
