#include "printer/protocol/frame.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quilon::printer {
namespace {

std::vector<Event> Parse(const std::string& bytes) {
  FrameParser parser;
  std::vector<Event> events;
  for (const char byte : bytes) {
    if (auto event = parser.Feed(byte)) {
      events.push_back(*event);
    }
  }
  return events;
}

TEST(Checksum, IsTheXorFromFFInTwoLowerCaseDigits) {
  EXPECT_EQ(ChecksumOf(""), "ff");
  // FF ^ 31 ("1") = CE, ^ 23 ("#") = ED, ^ 65 ("e") = 88
  EXPECT_EQ(ChecksumOf("1#e"), "88");
  // FF ^ 32 ^ 34 ^ 33 = CA, ^ 3B = F1, ^ 35 = C4, ^ 24 = E0, ^ 72 = 92
  EXPECT_EQ(ChecksumOf("243;5$r"), "92");
  // FF ^ F5 = 0A
  EXPECT_EQ(ChecksumOf("\xF5"), "0a");
}

TEST(FrameParser, FindsAFrameBetweenNoise) {
  const auto events = Parse("xyz\\\x1BP1#e88\x1B\\tail");
  ASSERT_EQ(events.size(), 1U);
  EXPECT_EQ(events[0].kind, Event::Kind::kFrame);
  EXPECT_EQ(events[0].body, "1#e88");
}

TEST(FrameParser, ReportsControlBytesOutsideFramesOnly) {
  const auto events = Parse("\x10\x05\x1A\x1BP1$d\x10\x05\x1B\\\x10");
  ASSERT_EQ(events.size(), 5U);
  EXPECT_EQ(events[0].kind, Event::Kind::kControl);
  EXPECT_EQ(events[0].body, "\x10");
  EXPECT_EQ(events[1].body, "\x05");
  EXPECT_EQ(events[2].body, "\x1A");
  EXPECT_EQ(events[3].kind, Event::Kind::kFrame);
  EXPECT_EQ(events[3].body, "1$d\x10\x05");
  EXPECT_EQ(events[4].body, "\x10");
}

TEST(FrameParser, BeginsAnewWhenAFrameBeginsInsideAFrame) {
  const auto events = Parse("\x1BP1#e\x1BP2#e\x1B\\");
  ASSERT_EQ(events.size(), 1U);
  EXPECT_EQ(events[0].body, "2#e");
}

TEST(FrameParser, KeepsAnEscapeThatNeitherBeginsNorEnds) {
  const auto events = Parse("\x1BP1\x1Bx\x1B\x1B\\");
  ASSERT_EQ(events.size(), 1U);
  EXPECT_EQ(events[0].body, "1\x1Bx\x1B");
}

TEST(FrameParser, TakesABodyOfTheFullSizeAndDropsALongerOne) {
  const std::string full(FrameParser::kMaxBody, 'a');
  auto events = Parse("\x1BP" + full + "\x1B\\");
  ASSERT_EQ(events.size(), 1U);
  EXPECT_EQ(events[0].kind, Event::Kind::kFrame);
  EXPECT_EQ(events[0].body.size(), FrameParser::kMaxBody);

  events = Parse("\x1BP" + full + "b\x1B\\\x1BP#n\x1B\\");
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(events[0].kind, Event::Kind::kOverflow);
  EXPECT_EQ(events[1].kind, Event::Kind::kFrame);
  EXPECT_EQ(events[1].body, "#n");
}

}  // namespace
}  // namespace quilon::printer
