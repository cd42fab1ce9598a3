#include "src/protocol/reply.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quilon {
namespace {

Reply ReplyOf(std::string_view bytes) {
  Reply reply;
  reply.Append(bytes);
  return reply;
}

int32_t Int32Of(std::string_view bytes) { return ReplyOf(bytes).Int32Field(); }
int64_t AmountOf(std::string_view bytes) {
  return ReplyOf(bytes).AmountField();
}

template <typename Failure, typename Operation>
void ExpectFailure(const char* text, Operation operation) {
  try {
    operation();
    ADD_FAILURE() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_STREQ(failure.what(), text);
  }
}

TEST(ReplyTest, FieldsEndAtEachSeparator) {
  Reply reply = ReplyOf("12;34/56\r");
  EXPECT_EQ(reply.Int32Field(), 12);
  EXPECT_EQ(reply.Int32Field(), 34);
  EXPECT_EQ(reply.Int32Field(), 56);
  EXPECT_EQ(reply.Int32Field(), -1);
  EXPECT_EQ(reply.NextField(), "");
}

TEST(ReplyTest, LastFieldNeedsNoSeparator) {
  Reply reply = ReplyOf("a/b");
  EXPECT_EQ(reply.NextField(), "a");
  EXPECT_EQ(reply.NextField(), "b");
  EXPECT_EQ(reply.NextField(), "");
  EXPECT_EQ(reply.AmountField(), -1);
}

TEST(ReplyTest, EmptyFieldsAreMinusOne) {
  Reply reply = ReplyOf(";;7");
  EXPECT_EQ(reply.Int32Field(), -1);
  EXPECT_EQ(reply.AmountField(), -1);
  EXPECT_EQ(reply.Int32Field(), 7);
}

TEST(ReplyTest, LinesEndAtCrOnly) {
  Reply reply = ReplyOf("a/b;c\rd/e");
  EXPECT_EQ(reply.NextLine(), "a/b;c");
  EXPECT_EQ(reply.NextLine(), "d/e");
  EXPECT_EQ(reply.NextLine(), "");
}

TEST(ReplyTest, TextUpToAMarkerConsumesIt) {
  Reply reply = ReplyOf("12#34");
  EXPECT_EQ(reply.TextUpTo("x"), "");
  EXPECT_EQ(reply.TextUpTo("#"), "12");
  EXPECT_EQ(reply.TextUpTo("#"), "");
  EXPECT_EQ(reply.NextField(), "34");
  EXPECT_EQ(reply.TextUpTo("#"), "");
}

TEST(ReplyTest, MarkersAreSearchedFromThePosition) {
  Reply reply = ReplyOf("#Ea#Eb");
  EXPECT_TRUE(reply.SkipPast("#E"));
  EXPECT_TRUE(reply.SkipPast("#E"));
  EXPECT_FALSE(reply.SkipPast("#E"));
  EXPECT_EQ(reply.NextField(), "b");
  EXPECT_FALSE(reply.SkipPast("b"));  // behind the end
}

TEST(ReplyTest, ClearStartsAnew) {
  Reply reply = ReplyOf("a");
  reply.NextField();
  reply.Clear();
  EXPECT_TRUE(reply.empty());
  reply.Append("b");
  EXPECT_EQ(reply.NextField(), "b");
}

TEST(ReplyTest, NumbersReadLikeTheStandardFunctions) {
  EXPECT_EQ(Int32Of("007"), 7);
  EXPECT_EQ(Int32Of(" \t\n\v\f+12abc"), 12);
  EXPECT_EQ(Int32Of("-12.5"), -12);
  EXPECT_EQ(Int32Of("2147483647"), INT32_MAX);
  EXPECT_EQ(Int32Of("-2147483648"), INT32_MIN);
  EXPECT_EQ(Int32Of(std::string(1000, '0') + "5"), 5);
  EXPECT_EQ(AmountOf("9223372036854775807"), INT64_MAX);
  EXPECT_EQ(AmountOf("-9223372036854775808"), INT64_MIN);
}

TEST(ReplyTest, AmountsLoseTheirPointsAndAreNotScaled) {
  EXPECT_EQ(AmountOf("12.34"), 1234);
  EXPECT_EQ(AmountOf("0.05"), 5);
  EXPECT_EQ(AmountOf("-1.50"), -150);
  EXPECT_EQ(AmountOf("12"), 12);
  EXPECT_EQ(AmountOf("12.3"), 123);
  EXPECT_EQ(AmountOf(".1.2."), 12);
  EXPECT_EQ(AmountOf(". -.7"), -7);
  EXPECT_EQ(AmountOf("1 .2"), 1);
}

TEST(ReplyTest, WhatIsNoNumberIsAnInvalidArgument) {
  for (const char* text : {"abc", "-", "+", "+-1", "--1", " ", "\x1B\\"}) {
    ExpectFailure<std::invalid_argument>("invalid stoi argument",
                                         [=] { Int32Of(text); });
    ExpectFailure<std::invalid_argument>("invalid stoll argument",
                                         [=] { AmountOf(text); });
  }
  ExpectFailure<std::invalid_argument>("invalid stoi argument",
                                       [] { Int32Of(".5"); });
  ExpectFailure<std::invalid_argument>("invalid stoll argument",
                                       [] { AmountOf("..."); });
}

TEST(ReplyTest, NumbersTooLargeAreOutOfRange) {
  for (const char* text :
       {"2147483648", "-2147483649", "99999999999999999999999999"}) {
    ExpectFailure<std::out_of_range>("stoi argument out of range",
                                     [=] { Int32Of(text); });
  }
  for (const char* text :
       {"9223372036854775808", "-9223372036854775809",
        "99999999999999999999999999", "92233720368547758.08"}) {
    ExpectFailure<std::out_of_range>("stoll argument out of range",
                                     [=] { AmountOf(text); });
  }
}

TEST(ReplyTest, HexPairsMoveTwoBytesWhateverTheyAre) {
  Reply reply = ReplyOf("fFxy-10x7");
  EXPECT_EQ(reply.HexPair(), 255);
  EXPECT_EQ(reply.HexPair(), std::nullopt);
  EXPECT_EQ(reply.HexPair(), std::nullopt);  // "-1"
  EXPECT_EQ(reply.HexPair(), std::nullopt);  // "0x"
  EXPECT_EQ(reply.HexPair(), std::nullopt);  // "7" and the end
  EXPECT_EQ(reply.HexPair(), std::nullopt);
  EXPECT_EQ(reply.NextField(), "");
}

}  // namespace
}  // namespace quilon
