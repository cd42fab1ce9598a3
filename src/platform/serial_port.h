// One serial port of the system.
#ifndef QUILON_PLATFORM_SERIAL_PORT_H_
#define QUILON_PLATFORM_SERIAL_PORT_H_

#include <cstdint>
#include <memory>
#include <string_view>

namespace quilon {

// Bits of LineState::flags, at the places where Windows has them. The two
// controls are fields of two bits: 0 keeps the signal off, 1 on, 2 lets it
// follow the state of the receiver.
enum LineFlag : uint32_t {
  kLineCtsOutput = 0x0004,      // send only while CTS is on
  kLineDsrOutput = 0x0008,      // send only while DSR is on
  kLineDtrOn = 0x0010,          // low bit of DTR control
  kLineDtrHandshake = 0x0020,   // high bit of DTR control
  kLineDsrSensitive = 0x0040,   // receive only while DSR is on
  kLineXonXoffOutput = 0x0100,  // Xoff received stops sending
  kLineXonXoffInput = 0x0200,   // a full receive buffer sends Xoff
  kLineRtsOn = 0x1000,          // low bit of RTS control
  kLineRtsHandshake = 0x2000,   // high bit of RTS control
};

struct LineState {
  uint32_t baud_rate;  // bits per second
  uint32_t flags;      // LineFlag; other bits are the system's own
  uint8_t data_bits;
  uint8_t parity;     // 0 none, 1 odd, 2 even, 3 mark, 4 space
  uint8_t stop_bits;  // 0 one, 1 one and a half, 2 two
  uint8_t xon;
  uint8_t xoff;
};

// Milliseconds. A read ends after `read_interval` without a byte behind the
// last one, and in any case after its constant and so much for each byte that
// was asked for; a write after its constant and so much for each byte.
struct SerialTimeouts {
  uint32_t read_interval;
  uint32_t read_per_byte;
  uint32_t read_constant;
  uint32_t write_per_byte;
  uint32_t write_constant;
};

// One thread may read, another one write, and a third one clear, abort and
// interrupt, all at the same time. Everything else needs the port to itself.
//
// Operations that return bool return false when the system refuses, and on a
// port that is not open.
class SerialPort {
 public:
  // What Read returns when the port is not open, or its line is gone.
  static constexpr int32_t kGone = -1;

  // For Read: waits until a byte comes.
  static constexpr uint32_t kForever = 0xFFFFFFFF;

  virtual ~SerialPort() = default;

  // Opens the port called `name` for this process alone.
  virtual bool Open(std::string_view name) = 0;

  // The port is not open any more, whatever the system says.
  virtual bool Close() = 0;

  virtual bool IsOpen() const = 0;

  virtual bool GetLineState(LineState* state) = 0;

  // Settings of the system that `state` does not show stay as they are.
  virtual bool SetLineState(const LineState& state) = 0;

  virtual bool SetTimeouts(const SerialTimeouts& timeouts) = 0;

  // Waits for a byte, and takes up to `count` of those that are there. Linux
  // waits at most `patience` milliseconds; Windows keeps the port's time-outs
  // for a single byte. Returns how many came, 0 for none yet, or kGone.
  virtual int32_t Read(void* buffer, int32_t count, uint32_t patience) = 0;

  // Writes `count` bytes within the time-outs. Returns how many were taken.
  virtual int32_t Write(const void* buffer, int32_t count) = 0;

  // The system's number of the error that ended this thread's last Write.
  virtual int32_t LastError() const = 0;

  // How many bytes the system has taken since the port was opened, less those
  // that it still keeps: a number that stands still while the line is held up.
  virtual int64_t SentCount() const = 0;

  // Whether the system has sent all that it took.
  virtual bool IsDrained() const = 0;

  // Throws away what the system took and has not sent.
  virtual void DiscardUnsent() = 0;

  // Makes the Read and the Write of other threads return early, until the port
  // is closed. One that begins just now may slip through: repeat the call until
  // they have returned.
  virtual void Interrupt() = 0;

  // Makes the Read of another thread return early, once.
  virtual bool AbortReads() = 0;

  // Discards what was received and not yet read.
  virtual bool ClearReceived() = 0;
};

// A port of the system, not yet open. A name is that of a COM port; on Linux
// that of a device in /dev, or a path that begins with "/".
std::unique_ptr<SerialPort> CreateSerialPort();

}  // namespace quilon

#endif  // QUILON_PLATFORM_SERIAL_PORT_H_
