#include "printer/answer.h"

#include "printer/frame.h"

namespace quilon::printer {
namespace {

std::string without(std::string_view forbidden, std::string_view bytes) {
  std::string clean(bytes);
  for (char& c : clean) {
    if (forbidden.find(c) != std::string_view::npos) {
      c = '?';
    }
  }
  for (std::size_t mark = clean.find("#Z"); mark != std::string::npos;
       mark = clean.find("#Z")) {
    clean[mark + 1] = '?';
  }
  return clean;
}

std::string framed(std::string_view body) {
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

Answer& Answer::integer(std::int64_t value) {
  body_ += std::to_string(value) + "/";
  return *this;
}

Answer& Answer::amount(std::int64_t hundredths) {
  const std::int64_t magnitude = hundredths < 0 ? -hundredths : hundredths;
  const std::string fraction = std::to_string(magnitude % 100);
  body_ += hundredths < 0 ? "-" : "";
  body_ += std::to_string(magnitude / 100);
  body_ += fraction.size() == 1 ? ".0" : ".";
  body_ += fraction + "/";
  return *this;
}

Answer& Answer::text(std::string_view bytes) {
  return raw(without(kTextForbidden, bytes) + kCr);
}

Answer& Answer::line(std::string_view bytes) {
  return raw(without(kLineForbidden, bytes) + kCr);
}

Answer& Answer::raw(std::string_view bytes) {
  body_ += bytes;
  return *this;
}

std::string Answer::finish() const { return framed(body_ + checksum(body_)); }

std::string Answer::finish_with(std::string_view last_text) const {
  return framed(body_ + without(kLineForbidden, last_text));
}

}  // namespace quilon::printer
