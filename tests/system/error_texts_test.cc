// docs/records.json's error numbers and texts, against what the driver says.
#include <map>

#include "tests/support/documented_codes.h"
#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

// The CP1250 bytes of the small Polish letters in error texts.
std::string ToCp1250(std::string_view utf8) {
  static const std::map<std::string_view, char> kLetters = {
      {"ą", '\xB9'}, {"ć", '\xE6'}, {"ę", '\xEA'}, {"ł", '\xB3'}, {"ń", '\xF1'},
      {"ó", '\xF3'}, {"ś", '\x9C'}, {"ź", '\x9F'}, {"ż", '\xBF'}};
  std::string cp1250;
  while (!utf8.empty()) {
    const auto letter = kLetters.find(utf8.substr(0, 2));
    const bool is_polish = letter != kLetters.end();
    cp1250 += is_polish ? letter->second : utf8.front();
    utf8.remove_prefix(is_polish ? 2 : 1);
  }
  return cp1250;
}

TEST_F(DriverTest, ErrorTextsAreThoseDocumented) {
  std::map<int32_t, std::string> documented;
  for (const DocumentedError& error : DocumentedErrors()) {
    EXPECT_TRUE(documented.emplace(error.number, ToCp1250(error.text)).second);
  }
  EXPECT_EQ(documented.size(), 152U);
  constexpr int32_t kBeyondTheLast = 1510;
  for (int32_t number = 1; number < kBeyondTheLast; ++number) {
    peer().Send("\x60");
    Reply("#E" + std::to_string(number) + "/");
    const auto found = documented.find(number);
    const bool has_text = found != documented.end();
    EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_QUERY_ERROR),
              has_text ? number : 0);
    EXPECT_EQ(LastError().message, has_text ? found->second : "");
    EXPECT_EQ(peer().ReceiveFrame(), "\x05\x1BP#n\x1B\\");
  }
}

}  // namespace
}  // namespace quilon::testing
