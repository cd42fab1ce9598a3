#include "src/platform/serial_port.h"

// The system's own header knows every baud rate; it excludes <termios.h>.
#include <asm/termbits.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <string>
#include <utility>

#include "src/platform/posix/descriptor.h"
#include "src/platform/process.h"

namespace quilon {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int kNone = -1;
constexpr unsigned kDataBits[] = {CS5, CS6, CS7, CS8};
constexpr unsigned kParities[] = {0, PARENB | PARODD, PARENB,
                                  PARENB | PARODD | CMSPAR, PARENB | CMSPAR};
constexpr unsigned kParityBits = PARENB | PARODD | CMSPAR;
constexpr uint32_t kLineDtrControl = kLineDtrOn | kLineDtrHandshake;
constexpr uint32_t kLineRtsControl = kLineRtsOn | kLineRtsHandshake;

Clock::time_point DeadlineFor(uint32_t constant, uint32_t per_byte,
                              int32_t count) {
  return Clock::now() + milliseconds(constant + int64_t{per_byte} * count);
}

// What poll takes: milliseconds until `deadline`, rounded up.
int TimeLeft(Clock::time_point deadline) {
  const auto left = std::chrono::ceil<milliseconds>(deadline - Clock::now());
  return static_cast<int>(std::clamp<int64_t>(left.count(), 0, 0x7FFFFFFF));
}

// Whether the last read or write only has to be tried again later.
bool WouldWait() { return errno == EAGAIN || errno == EINTR; }

// Whether a line can have these settings. A second stop bit is only half a bit
// long behind 5 data bits.
bool IsPossible(const LineState& state) {
  return state.baud_rate > 0 && state.data_bits >= 5 && state.data_bits <= 8 &&
         state.parity < std::size(kParities) &&
         (state.stop_bits == 0 ||
          state.stop_bits == (state.data_bits == 5 ? 1 : 2));
}

void SetBits(unsigned bits, bool on, unsigned* word) {
  if (on) {
    *word |= bits;
  }
}

template <size_t kCount>
ptrdiff_t IndexOf(unsigned value, const unsigned (&values)[kCount]) {
  return std::find(values, values + kCount, value) - values;
}

// DTR and RTS are not among them: whoever sets the line sets these anew.
uint32_t FlagsOf(const termios2& line) {
  uint32_t flags = 0;
  if ((line.c_cflag & CRTSCTS) != 0) {
    flags |= kLineCtsOutput | kLineRtsHandshake;
  }
  // In a terminal's line mode Xon and Xoff are keys of its keyboard.
  if ((line.c_iflag & IXON) != 0 && (line.c_lflag & ICANON) == 0) {
    flags |= kLineXonXoffOutput;
  }
  if ((line.c_iflag & IXOFF) != 0) {
    flags |= kLineXonXoffInput;
  }
  return flags;
}

class PosixSerialPort final : public SerialPort {
 public:
  ~PosixSerialPort() override { PosixSerialPort::Close(); }

  bool Open(std::string_view name) override;
  bool Close() override;
  bool IsOpen() const override { return port_ != kNone; }
  bool GetLineState(LineState* state) override;
  bool SetLineState(const LineState& state) override;
  bool SetTimeouts(const SerialTimeouts& timeouts) override;
  int32_t Read(void* buffer, int32_t count, uint32_t patience) override;
  int32_t Write(const void* buffer, int32_t count) override;
  int32_t LastError() const override { return errno; }
  int64_t SentCount() const override { return taken_ - Unsent(); }
  bool IsDrained() const override { return Unsent() == 0; }
  void DiscardUnsent() override { ioctl(port_, TCFLSH, TCOFLUSH); }
  void Interrupt() override { eventfd_write(interrupted_, 1); }
  // A read takes what is there: there is nothing to abort.
  bool AbortReads() override { return IsOpen(); }
  bool ClearReceived() override { return ioctl(port_, TCFLSH, TCIFLUSH) == 0; }

 private:
  void SetSignal(int signal, bool on);
  int Unsent() const;
  bool WaitToRead(uint32_t patience) const;
  bool WaitToWrite(Clock::time_point deadline) const;

  int port_ = kNone;
  int interrupted_ = kNone;  // readable once it was
  uint32_t owner_ = 0;       // the process that opened the port
  SerialTimeouts timeouts_ = {};
  std::atomic<int64_t> taken_ = 0;
};

bool PosixSerialPort::Open(std::string_view name) {
  const std::string path =
      name.starts_with('/') ? std::string(name) : "/dev/" + std::string(name);
  port_ = AwayFromStandard(
      open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
  if (port_ == kNone) {
    return false;
  }
  owner_ = ProcessId();
  taken_ = 0;
  interrupted_ = AwayFromStandard(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
  // The lock keeps out privileged programs too, which may open an exclusive
  // terminal.
  if (interrupted_ == kNone || flock(port_, LOCK_EX | LOCK_NB) != 0) {
    Close();
    return false;
  }
  ioctl(port_, TIOCEXCL);
  return true;
}

bool PosixSerialPort::Close() {
  if (interrupted_ != kNone) {
    close(std::exchange(interrupted_, kNone));
  }
  if (!IsOpen()) {
    return false;
  }
  // A forked child only lets go of a port that stays its parent's.
  if (owner_ == ProcessId()) {
    ioctl(port_, TIOCNXCL);
  }
  return close(std::exchange(port_, kNone)) == 0;
}

bool PosixSerialPort::GetLineState(LineState* state) {
  termios2 line = {};
  if (ioctl(port_, TCGETS2, &line) != 0) {
    return false;
  }
  state->baud_rate = line.c_ospeed;
  state->flags = FlagsOf(line);
  state->data_bits =
      static_cast<uint8_t>(5 + IndexOf(line.c_cflag & CSIZE, kDataBits));
  state->parity =
      static_cast<uint8_t>(IndexOf(line.c_cflag & kParityBits, kParities));
  state->stop_bits = 0;
  if ((line.c_cflag & CSTOPB) != 0) {
    state->stop_bits = state->data_bits == 5 ? 1 : 2;
  }
  state->xon = line.c_cc[VSTART];
  state->xoff = line.c_cc[VSTOP];
  return true;
}

bool PosixSerialPort::SetLineState(const LineState& state) {
  termios2 line = {};
  if (!IsPossible(state) || ioctl(port_, TCGETS2, &line) != 0) {
    return false;
  }
  line.c_oflag = 0;
  line.c_lflag = 0;
  line.c_iflag = 0;
  SetBits(IXON, (state.flags & kLineXonXoffOutput) != 0, &line.c_iflag);
  SetBits(IXOFF, (state.flags & kLineXonXoffInput) != 0, &line.c_iflag);
  line.c_cflag = (line.c_cflag & HUPCL) | CREAD | CLOCAL | BOTHER |
                 (unsigned{BOTHER} << IBSHIFT) |
                 kDataBits[state.data_bits - 5] | kParities[state.parity];
  SetBits(CSTOPB, state.stop_bits != 0, &line.c_cflag);
  SetBits(CRTSCTS, (state.flags & kLineCtsOutput) != 0, &line.c_cflag);
  line.c_ispeed = state.baud_rate;
  line.c_ospeed = state.baud_rate;
  line.c_cc[VSTART] = state.xon;
  line.c_cc[VSTOP] = state.xoff;
  line.c_cc[VMIN] = 1;
  line.c_cc[VTIME] = 0;
  if (ioctl(port_, TCSETS2, &line) != 0 || ioctl(port_, TCGETS2, &line) != 0) {
    return false;
  }
  SetSignal(TIOCM_DTR, (state.flags & kLineDtrControl) != 0);
  SetSignal(TIOCM_RTS, (state.flags & kLineRtsControl) != 0);
  // A port that cannot have this baud rate has quietly taken another one; its
  // clock divider may miss the rate by a little.
  const int64_t wanted = state.baud_rate;
  return std::abs(int64_t{line.c_ospeed} - wanted) * 100 <= wanted * 3;
}

bool PosixSerialPort::SetTimeouts(const SerialTimeouts& timeouts) {
  timeouts_ = timeouts;
  return IsOpen();
}

int32_t PosixSerialPort::Read(void* buffer, int32_t count, uint32_t patience) {
  if (!IsOpen()) {
    return kGone;
  }
  if (!WaitToRead(patience)) {
    return 0;
  }
  const ssize_t length = read(port_, buffer, static_cast<size_t>(count));
  if (length > 0) {
    return static_cast<int32_t>(length);
  }
  return length < 0 && WouldWait() ? 0 : kGone;
}

int32_t PosixSerialPort::Write(const void* buffer, int32_t count) {
  const Clock::time_point deadline =
      DeadlineFor(timeouts_.write_constant, timeouts_.write_per_byte, count);
  int32_t written = 0;
  while (written < count) {
    const ssize_t length =
        write(port_, static_cast<const char*>(buffer) + written,
              static_cast<size_t>(count) - static_cast<size_t>(written));
    if (length > 0) {
      written += static_cast<int32_t>(length);
      taken_ += length;
    } else if (!WouldWait() || !WaitToWrite(deadline)) {
      break;
    }
  }
  return written;
}

// Pseudo-terminals have no signals; that is no failure.
void PosixSerialPort::SetSignal(int signal, bool on) {
  ioctl(port_, on ? TIOCMBIS : TIOCMBIC, &signal);
}

int PosixSerialPort::Unsent() const {
  int count = 0;
  return ioctl(port_, TIOCOUTQ, &count) == 0 ? count : 0;
}

bool PosixSerialPort::WaitToRead(uint32_t patience) const {
  pollfd events[] = {{port_, POLLIN, 0}, {interrupted_, POLLIN, 0}};
  // kForever is what poll takes for it, too.
  return poll(events, std::size(events), static_cast<int>(patience)) > 0 &&
         events[1].revents == 0;
}

bool PosixSerialPort::WaitToWrite(Clock::time_point deadline) const {
  pollfd events[] = {{port_, POLLOUT, 0}, {interrupted_, POLLIN, 0}};
  const bool ready = poll(events, std::size(events), TimeLeft(deadline)) != 0;
  if (!ready) {
    errno = ETIMEDOUT;
  } else if (events[1].revents != 0) {
    errno = ECANCELED;
  }
  return ready && events[1].revents == 0;
}

}  // namespace

std::unique_ptr<SerialPort> CreateSerialPort() {
  return std::make_unique<PosixSerialPort>();
}

}  // namespace quilon
