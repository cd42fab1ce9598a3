#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/strictness.h"
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
    throw Refusal(Rule::kFileData);
  }
  CheckFileName(device, name);
  const bool full = device.files.size() >= StoredFile::kMaxFiles &&
                    device.files.count(name) == 0;
  if (size > StoredFile::kMaxSize || full) {
    throw Refusal(Rule::kFileSpace);
  }
  const std::string block = BytesOfHex(digits);
  const auto known = device.files.find(name);
  if (continued && known == device.files.end()) {
    throw Refusal(Rule::kFileData);
  }
  StoredFile file =
      continued ? known->second : StoredFile{static_cast<size_t>(size), {}};
  if (file.size != static_cast<size_t>(size) ||
      file.bytes.size() + block.size() > file.size) {
    throw Refusal(Rule::kFileData);
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
  const int32_t size = fields.Integer('/', Rule::kLogoData);
  const int32_t offset = fields.Integer('/', Rule::kLogoData);
  const int32_t count = fields.Integer('/', Rule::kLogoData);
  const std::string digits = fields.Text();
  const int32_t number = fields.Integer('/');
  fields.Finish();
  if (number < 0 || number > Logo::kMaxNumber) {
    throw Refusal(Rule::kParameter);
  }
  if (size <= 0 || size > Logo::kMaxDigits || count < 0 ||
      digits.size() != static_cast<size_t>(count)) {
    throw Refusal(Rule::kLogoData);
  }
  BytesOfHex(digits);
  const auto known = device.logos.find(number);
  const bool begins = offset == 0 || known == device.logos.end();
  CheckLogoIsNew(device, begins && known != device.logos.end() &&
                             known->second.IsComplete());
  Logo logo = begins ? Logo{static_cast<size_t>(size), {}} : known->second;
  if (logo.size != static_cast<size_t>(size) ||
      logo.digits.size() != static_cast<size_t>(offset) ||
      logo.digits.size() + digits.size() > logo.size) {
    throw Refusal(Rule::kLogoData);
  }
  logo.digits += digits;
  CheckLogoImage(device, logo);
  device.logos[number] = std::move(logo);
  return {};
}

// "10;^F0/0" CR number "/" -> "^f" number, bytes, width, height, checksum
std::string TellLogo(Device& device, Request& request) {
  const auto found = device.logos.find(static_cast<int32_t>(request.Number(2)));
  CheckLogoIsThere(device, found != device.logos.end());
  if (found == device.logos.end() || !found->second.IsComplete() ||
      found->second.Bytes().size() < Logo::kSizes) {
    throw Refusal(Rule::kLogoData);
  }
  const uint16_t sum = found->second.Checksum();
  const std::string low_byte_first{static_cast<char>(sum & 0xFFU),
                                   static_cast<char>(sum >> 8U)};
  return Answer("^f")
      .Text(std::to_string(found->first))
      .Integer(static_cast<int64_t>(found->second.Bytes().size()))
      .Text(std::to_string(found->second.width()))
      .Text(std::to_string(found->second.height()))
      .Text(HexOfBytes(low_byte_first))
      .Finish();
}

}  // namespace quilon::printer
