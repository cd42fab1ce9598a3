// The checksum of a hand-written frame body.
#ifndef QUILON_TESTS_SUPPORT_CHECKSUM_H_
#define QUILON_TESTS_SUPPORT_CHECKSUM_H_

#include <string>
#include <string_view>

namespace quilon::testing {

// `body`, all that stands behind ESC "P", with its checksum: the XOR of its
// bytes and 0xFF. Computed bit by bit, otherwise than the driver does it.
inline std::string Summed(std::string_view body) {
  std::string digits;
  for (const int half : {4, 0}) {
    int digit = 0;
    for (int bit = 3; bit >= 0; --bit) {
      int ones = 1;
      for (const char byte : body) {
        ones += (byte >> (half + bit)) & 1;
      }
      digit = digit * 2 + ones % 2;
    }
    digits += "0123456789abcdef"[digit];
  }
  return std::string(body) + digits;
}

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_CHECKSUM_H_
