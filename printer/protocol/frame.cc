#include "printer/protocol/frame.h"

#include <utility>

namespace quilon::printer {

std::string ChecksumOf(std::string_view bytes) {
  unsigned char sum = 0xFF;
  for (const char byte : bytes) {
    sum = static_cast<unsigned char>(sum ^ static_cast<unsigned char>(byte));
  }
  constexpr std::string_view kDigits = "0123456789abcdef";
  return {kDigits[sum >> 4U], kDigits[sum & 0x0FU]};
}

std::optional<Event> FrameParser::Feed(char byte) {
  switch (state_) {
    case State::kOutside:
      if (byte == kEsc) {
        state_ = State::kOutsideEsc;
      } else if (byte == kDle || byte == kEnq || byte == kSub) {
        return Event{Event::Kind::kControl, {byte}};
      }
      return std::nullopt;
    case State::kOutsideEsc:
      if (byte == 'P') {
        state_ = State::kInside;
        return std::nullopt;
      }
      state_ = State::kOutside;
      return Feed(byte);
    case State::kInside:
      if (byte == kEsc) {
        state_ = State::kInsideEsc;
      } else {
        Append(byte);
      }
      return std::nullopt;
    case State::kInsideEsc:
      if (byte == '\\') {
        return Finish();
      }
      state_ = State::kInside;
      if (byte == 'P') {
        body_.clear();
        overflow_ = false;
        return std::nullopt;
      }
      Append(kEsc);
      return Feed(byte);
  }
  return std::nullopt;
}

void FrameParser::Append(char byte) {
  if (body_.size() == kMaxBody) {
    overflow_ = true;
  } else {
    body_.push_back(byte);
  }
}

std::optional<Event> FrameParser::Finish() {
  state_ = State::kOutside;
  Event event{overflow_ ? Event::Kind::kOverflow : Event::Kind::kFrame,
              std::exchange(body_, {})};
  if (std::exchange(overflow_, false)) {
    event.body.clear();
  }
  return event;
}

}  // namespace quilon::printer
