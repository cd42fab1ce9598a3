// Cuts a client's byte stream into frames and control bytes.
//
// A frame is ESC "P", a body, ESC "\". Outside frames the control bytes DLE,
// ENQ and SUB are requests of their own; any other byte there is noise and
// ignored. ESC "P" inside a frame begins it anew: its first part came from a
// client that gave up.
#ifndef PRINTER_PROTOCOL_FRAME_H_
#define PRINTER_PROTOCOL_FRAME_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quilon::printer {

inline constexpr char kEnq = '\x05';
inline constexpr char kCr = '\x0D';
inline constexpr char kDle = '\x10';
inline constexpr char kSub = '\x1A';
inline constexpr char kEsc = '\x1B';

// XOR of all bytes, starting from 0xFF, as two lower-case hexadecimal digits.
std::string ChecksumOf(std::string_view bytes);

struct Event {
  enum class Kind {
    kFrame,  // body holds what stood between ESC "P" and ESC "\", the checksum
             // included
    kControl,   // body holds the one control byte
    kOverflow,  // a frame passed FrameParser::kMaxBody bytes and was dropped
    kLost,      // the printer lost, on purpose, what was on its way
  };
  Kind kind;
  std::string body;
};

class FrameParser {
 public:
  static constexpr size_t kMaxBody = size_t{1} << 20;

  // Takes the next byte; returns the event that it completes, if any.
  std::optional<Event> Feed(char byte);

 private:
  enum class State { kOutside, kOutsideEsc, kInside, kInsideEsc };
  void Append(char byte);
  std::optional<Event> Finish();

  State state_ = State::kOutside;
  std::string body_;
  bool overflow_ = false;
};

}  // namespace quilon::printer

#endif  // PRINTER_PROTOCOL_FRAME_H_
