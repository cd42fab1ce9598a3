// The checksum of a hand-written frame.
#ifndef QUILON_TESTS_SUPPORT_CHECKSUM_H_
#define QUILON_TESTS_SUPPORT_CHECKSUM_H_

#include <cstdio>
#include <string>

namespace quilon::testing {

// `body`, which is all of a frame between ESC "P" and its checksum, with the
// checksum behind it: the XOR of 0xFF and every byte. For frames that are too
// long to sum up by hand.
inline std::string Checked(std::string body) {
  unsigned sum = 0xFF;
  for (const char byte : body) {
    sum ^= static_cast<unsigned char>(byte);
  }
  char digits[3];
  std::snprintf(digits, sizeof(digits), "%02x", sum & 0xFF);
  return body + digits;
}

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_CHECKSUM_H_
