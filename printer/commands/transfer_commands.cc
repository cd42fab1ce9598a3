#include "printer/answer.h"
#include "printer/commands/commands.h"
#include "printer/device.h"

namespace quilon::printer {

// continuation ";0" "@A" size "/" digit count "/" name CR digits CR.
// Continuation 0 begins the file anew, 1 goes on with it.
std::string store_block(Device& device, Request& request) {
  const bool continued = request.integer(0, 0, 1) == 1;
  request.integer(1, 0, 0);
  Fields& fields = request.fields;
  const std::int32_t size = fields.integer('/');
  const std::int32_t count = fields.integer('/');
  const std::string name = fields.text();
  const std::string_view digits = fields.until('\r');
  fields.finish();
  if (size < 0 || count < 0 ||
      digits.size() != static_cast<std::size_t>(count) || name.empty()) {
    throw Refusal(kBadData);
  }
  const bool full = device.files.size() >= StoredFile::kMaxFiles &&
                    device.files.count(name) == 0;
  if (size > StoredFile::kMaxSize || full) {
    throw Refusal(kNoSpace);
  }
  const std::string block = bytes_of_hex(digits);
  const auto known = device.files.find(name);
  if (continued && known == device.files.end()) {
    throw Refusal(kBadData);
  }
  StoredFile file = continued ? known->second
                              : StoredFile{static_cast<std::size_t>(size), {}};
  if (file.size != static_cast<std::size_t>(size) ||
      file.bytes.size() + block.size() > file.size) {
    throw Refusal(kBadData);
  }
  file.bytes += block;
  device.files[name] = std::move(file);
  return {};
}

// "1;^F0/0" CR number "/"
std::string begin_logo(Device& device, Request& request) {
  device.logos.erase(static_cast<std::int32_t>(request.number(2)));
  return {};
}

// "0;^F0/" digits in all "/" offset "/" digits here "/" digits CR number "/"
std::string store_logo_block(Device& device, Request& request) {
  Fields& fields = request.fields;
  fields.until('/');
  const std::int32_t size = fields.integer('/', kBadLogo);
  const std::int32_t offset = fields.integer('/', kBadLogo);
  const std::int32_t count = fields.integer('/', kBadLogo);
  const std::string digits = fields.text();
  const std::int32_t number = fields.integer('/');
  fields.finish();
  if (number < 0 || number > Logo::kMaxNumber) {
    throw Refusal(kBadParameter);
  }
  if (size <= 0 || size > Logo::kMaxDigits || count < 0 ||
      digits.size() != static_cast<std::size_t>(count)) {
    throw Refusal(kBadLogo);
  }
  bytes_of_hex(digits);
  Logo& logo = device.logos[number];
  if (offset == 0) {
    logo = Logo{static_cast<std::size_t>(size), {}};
  }
  if (logo.size != static_cast<std::size_t>(size) ||
      logo.digits.size() != static_cast<std::size_t>(offset) ||
      logo.digits.size() + digits.size() > logo.size) {
    throw Refusal(kBadLogo);
  }
  logo.digits += digits;
  return {};
}

// "10;^F0/0" CR number "/" -> "^f" number, bytes, width, height, checksum
std::string tell_logo(Device& device, Request& request) {
  const auto found =
      device.logos.find(static_cast<std::int32_t>(request.number(2)));
  const std::string image =
      found != device.logos.end() && found->second.complete()
          ? found->second.bytes()
          : "";
  constexpr std::size_t kSizes = 4;
  if (image.size() < kSizes) {
    throw Refusal(kBadLogo);
  }
  const auto word = [&](std::size_t at) {
    return static_cast<unsigned char>(image[at]) * 256 +
           static_cast<unsigned char>(image[at + 1]);
  };
  const std::uint16_t sum = found->second.checksum();
  const std::string low_byte_first{static_cast<char>(sum & 0xFFU),
                                   static_cast<char>(sum >> 8U)};
  return Answer("^f")
      .text(std::to_string(found->first))
      .integer(static_cast<std::int64_t>(image.size()))
      .text(std::to_string(word(0)))
      .text(std::to_string(word(2)))
      .text(hex_of_bytes(low_byte_first))
      .finish();
}

}  // namespace quilon::printer
