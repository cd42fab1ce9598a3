#include "printer/protocol/answer.h"

#include "printer/protocol/frame.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

std::string Without(std::string_view forbidden, std::string_view bytes) {
  std::string clean(bytes);
  for (char& c : clean) {
    if (forbidden.find(c) != std::string_view::npos) {
      c = '?';
    }
  }
  for (size_t mark = clean.find("#Z"); mark != std::string::npos;
       mark = clean.find("#Z")) {
    clean[mark + 1] = '?';
  }
  return clean;
}

std::string Framed(std::string_view body) {
  std::string frame = "\x1BP";
  return frame.append(body).append("\x1B\\");
}

constexpr std::string_view kLineForbidden = "\r\\\x1B";
constexpr std::string_view kTextForbidden = "\r\\\x1B/;";

}  // namespace

Answer::Answer(std::string_view mnemonic, std::string_view before)
    : body_(before) {
  body_ += mnemonic;
}

Answer& Answer::Integer(int64_t value) {
  body_ += std::to_string(value) + "/";
  return *this;
}

Answer& Answer::Amount(int64_t hundredths) {
  const int64_t magnitude = hundredths < 0 ? -hundredths : hundredths;
  body_ += hundredths < 0 ? "-" : "";
  body_ += std::to_string(magnitude / 100) + "." + Padded(magnitude % 100, 2);
  body_ += "/";
  return *this;
}

Answer& Answer::Text(std::string_view bytes) {
  return Raw(Without(kTextForbidden, bytes) + kCr);
}

Answer& Answer::Line(std::string_view bytes) {
  return Raw(Without(kLineForbidden, bytes) + kCr);
}

Answer& Answer::Raw(std::string_view bytes) {
  body_ += bytes;
  return *this;
}

std::string Answer::Finish() const { return Framed(body_ + ChecksumOf(body_)); }

std::string Answer::FinishWith(std::string_view last_text) const {
  return Framed(body_ + Without(kLineForbidden, last_text));
}

}  // namespace quilon::printer
