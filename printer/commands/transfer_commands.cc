#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/protocol/answer.h"
#include "printer/protocol/hex.h"

namespace quilon::printer {

// continuation ";0" "@A" size "/" digit count "/" name CR digits CR.
// Continuation 0 begins the file anew, 1 goes on with it.
std::string StoreBlock(Device& device, Request& request) {
  const bool continued = request.Integer(0, 0, 1) == 1;
  request.Integer(1, 0, 0);
  Fields& fields = request.fields;
  const int32_t size = fields.Integer('/');
  const int32_t count = fields.Integer('/');
  const std::string name = fields.Text();
  const std::string_view digits = fields.Until('\r');
  fields.Finish();
  if (size < 0 || count < 0 || digits.size() != static_cast<size_t>(count) ||
      name.empty()) {
    throw Refusal(kBadData);
  }
  const bool full = device.files.size() >= StoredFile::kMaxFiles &&
                    device.files.count(name) == 0;
  if (size > StoredFile::kMaxSize || full) {
    throw Refusal(kNoSpace);
  }
  const std::string block = BytesOfHex(digits);
  const auto known = device.files.find(name);
  if (continued && known == device.files.end()) {
    throw Refusal(kBadData);
  }
  StoredFile file =
      continued ? known->second : StoredFile{static_cast<size_t>(size), {}};
  if (file.size != static_cast<size_t>(size) ||
      file.bytes.size() + block.size() > file.size) {
    throw Refusal(kBadData);
  }
  file.bytes += block;
  device.files[name] = std::move(file);
  return {};
}

// "1;^F0/0" CR number "/"
std::string BeginLogo(Device& device, Request& request) {
  device.logos.erase(static_cast<int32_t>(request.Number(2)));
  return {};
}

// "0;^F0/" digits in all "/" offset "/" digits here "/" digits CR number "/"
std::string StoreLogoBlock(Device& device, Request& request) {
  Fields& fields = request.fields;
  fields.Until('/');
  const int32_t size = fields.Integer('/', kBadLogo);
  const int32_t offset = fields.Integer('/', kBadLogo);
  const int32_t count = fields.Integer('/', kBadLogo);
  const std::string digits = fields.Text();
  const int32_t number = fields.Integer('/');
  fields.Finish();
  if (number < 0 || number > Logo::kMaxNumber) {
    throw Refusal(kBadParameter);
  }
  if (size <= 0 || size > Logo::kMaxDigits || count < 0 ||
      digits.size() != static_cast<size_t>(count)) {
    throw Refusal(kBadLogo);
  }
  BytesOfHex(digits);
  Logo& logo = device.logos[number];
  if (offset == 0) {
    logo = Logo{static_cast<size_t>(size), {}};
  }
  if (logo.size != static_cast<size_t>(size) ||
      logo.digits.size() != static_cast<size_t>(offset) ||
      logo.digits.size() + digits.size() > logo.size) {
    throw Refusal(kBadLogo);
  }
  logo.digits += digits;
  return {};
}

// "10;^F0/0" CR number "/" -> "^f" number, bytes, width, height, checksum
std::string TellLogo(Device& device, Request& request) {
  const auto found = device.logos.find(static_cast<int32_t>(request.Number(2)));
  const std::string image =
      found != device.logos.end() && found->second.IsComplete()
          ? found->second.Bytes()
          : "";
  constexpr size_t kSizes = 4;
  if (image.size() < kSizes) {
    throw Refusal(kBadLogo);
  }
  const auto word = [&](size_t at) {
    return static_cast<unsigned char>(image[at]) * 256 +
           static_cast<unsigned char>(image[at + 1]);
  };
  const uint16_t sum = found->second.Checksum();
  const std::string low_byte_first{static_cast<char>(sum & 0xFFU),
                                   static_cast<char>(sum >> 8U)};
  return Answer("^f")
      .Text(std::to_string(found->first))
      .Integer(static_cast<int64_t>(image.size()))
      .Text(std::to_string(word(0)))
      .Text(std::to_string(word(2)))
      .Text(HexOfBytes(low_byte_first))
      .Finish();
}

}  // namespace quilon::printer
