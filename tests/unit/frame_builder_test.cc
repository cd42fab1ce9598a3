// What the builder can do that no command shows by itself.
#include "src/protocol/frame_builder.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quilon {
namespace {

class FrameBuilderTest : public ::testing::Test {
 protected:
  // What one operation appends.
  template <typename Operation>
  std::string Appended(Operation operation) {
    buffer_.clear();
    operation(frame_);
    return buffer_;
  }

  std::string Amount(int64_t value) {
    return Appended([=](FrameBuilder& frame) { frame.Amount(value); });
  }
  std::string Amount32(int32_t value) {
    return Appended([=](FrameBuilder& frame) { frame.Amount32(value); });
  }
  std::string Quantity(int64_t value) {
    return Appended([=](FrameBuilder& frame) { frame.Quantity(value); });
  }
  std::string Checksum(std::string_view bytes) {
    return Appended([=](FrameBuilder& frame) { frame.Raw(bytes).Checksum(); });
  }

  std::string buffer_;
  FrameBuilder frame_{TextEncoding::kCp1250, &buffer_};
};

TEST_F(FrameBuilderTest, FramesBeginAndEndWithTheirMarks) {
  frame_.Begin().Parameters(1).Raw("#e").End();
  // FF ^ 31 ^ 23 ^ 65 is 88.
  EXPECT_EQ(buffer_, "\x1BP1#e88\x1B\\");
  frame_.Begin().Parameters(243, 5).Raw("$r").End();
  // FF ^ 32 34 33 (35) ^ 3B ^ 35 ^ 24 72 (56) is 92.
  EXPECT_EQ(buffer_, "\x1BP243;5$r92\x1B\\");
  frame_.Begin().Raw("23#s").EndWithoutChecksum();
  EXPECT_EQ(buffer_, "\x1BP23#s\x1B\\");
  frame_.Begin().End();
  EXPECT_EQ(buffer_, "\x1BPff\x1B\\");
}

TEST_F(FrameBuilderTest, ChecksumIsTwoLowerCaseDigits) {
  EXPECT_EQ(Checksum(""), "");
  EXPECT_EQ(Checksum("\x1B"), "\x1B");
  EXPECT_EQ(Checksum("\x1BP"), "\x1BPff");
  EXPECT_EQ(Checksum("\x1BP\xF5"),
            "\x1BP\xF5"
            "0a");
  EXPECT_EQ(Checksum("\x1BP\xFF"),
            "\x1BP\xFF"
            "00");
  EXPECT_EQ(Checksum("\x1BP\x01"),
            "\x1BP\x01"
            "fe");
}

TEST_F(FrameBuilderTest, ParametersStandBetweenSemicolons) {
  frame_.Parameters("0", -1, "x", INT32_MAX);
  EXPECT_EQ(buffer_, "0;-1;x;2147483647");
}

TEST_F(FrameBuilderTest, IntegersAreSignedDecimal) {
  frame_.Int32(0).Char(' ').Int32(INT32_MIN).Char(' ').Int64(INT64_MIN).Char(
      ' ');
  frame_.Int64(INT64_MAX).Slash().Cr().Semicolon();
  EXPECT_EQ(buffer_,
            "0 -2147483648 -9223372036854775808 9223372036854775807/\r;");
}

TEST_F(FrameBuilderTest, AmountsAreHundredths) {
  EXPECT_EQ(Amount(1200), "12");
  EXPECT_EQ(Amount(1205), "12.05");
  EXPECT_EQ(Amount(1250), "12.50");
  EXPECT_EQ(Amount(5), "0.05");
  EXPECT_EQ(Amount(0), "0");
  EXPECT_EQ(Amount(-1200), "-12");
  EXPECT_EQ(Amount(-150), "-1.-50");
  EXPECT_EQ(Amount(-50), "0.-50");
  EXPECT_EQ(Amount(-5), "0.-5");
  EXPECT_EQ(Amount(2147483647), "21474836.47");
}

TEST_F(FrameBuilderTest, LargeAmountsTakeTheRemainderOfTheirLow32Bits) {
  // 2147483648: the low 32 bits are -2147483648.
  EXPECT_EQ(Amount(2147483648), "21474836.-48");
  // 4294967296 + 7: the low 32 bits are 7.
  EXPECT_EQ(Amount(4294967303), "42949673.07");
  // 4294967300 is whole, whatever its low bits.
  EXPECT_EQ(Amount(4294967300), "42949673");
  // 4294967396 + 300: low bits 400, of which the remainder is 0.
  EXPECT_EQ(Amount(4294967696), "42949676.00");
  EXPECT_EQ(Amount(INT64_MAX), "92233720368547758.-1");
  EXPECT_EQ(Amount(INT64_MIN), "-92233720368547758.00");
}

TEST_F(FrameBuilderTest, SmallAmountsKeepTheirRemainder) {
  EXPECT_EQ(Amount32(2350), "23.50");
  EXPECT_EQ(Amount32(2300), "23");
  EXPECT_EQ(Amount32(-1), "0.-1");
  EXPECT_EQ(Amount32(INT32_MAX), "21474836.47");
  EXPECT_EQ(Amount32(INT32_MIN), "-21474836.-48");
}

TEST_F(FrameBuilderTest, QuantitiesLoseLeadingZerosOfTheFraction) {
  EXPECT_EQ(Quantity(100000000), "1");
  EXPECT_EQ(Quantity(123456789), "1.23456789");
  EXPECT_EQ(Quantity(100000001), "1.1");
  EXPECT_EQ(Quantity(150000000), "1.50000000");
  EXPECT_EQ(Quantity(105000000), "1.5000000");
  EXPECT_EQ(Quantity(0), "0");
  EXPECT_EQ(Quantity(-150000000), "-1.-50000000");
  EXPECT_EQ(Quantity(INT64_MAX), "92233720368.54775807");
  EXPECT_EQ(Quantity(INT64_MIN), "-92233720368.-54775808");
}

TEST_F(FrameBuilderTest, ArraysWithoutNulEndWithTheirLastByte) {
  const char full[3] = {'a', 'b', 'c'};
  const char cut[4] = {'d', '\0', 'x', 'x'};
  frame_.Raw(full).Text(full).Raw(cut).TextCr(cut).OptionalTextCr(full);
  frame_.OptionalTextCr("");
  EXPECT_EQ(buffer_, "abcabcdd\rabc\r");
}

TEST_F(FrameBuilderTest, NothingPassesOneMebibyte) {
  const std::string half(FrameBuilder::kMaxFrameLength / 2, 'x');
  frame_.Raw(half).Text(half);
  EXPECT_EQ(buffer_.size(), FrameBuilder::kMaxFrameLength);
  const auto fails = [](auto operation) {
    try {
      operation();
      return false;
    } catch (const std::length_error& error) {
      EXPECT_STREQ(error.what(), "string too long");
      return true;
    }
  };
  EXPECT_TRUE(fails([this] { frame_.Char('x'); }));
  EXPECT_TRUE(fails([this] { frame_.Raw("x"); }));
  EXPECT_TRUE(fails([this] { frame_.Text("x"); }));
  EXPECT_TRUE(fails([this] { frame_.Int32(1); }));
  EXPECT_TRUE(fails([this] { frame_.End(); }));
  EXPECT_EQ(buffer_.size(), FrameBuilder::kMaxFrameLength);
  frame_.Begin().Raw("#n").EndWithoutChecksum();
  EXPECT_EQ(buffer_, "\x1BP#n\x1B\\");
}

}  // namespace
}  // namespace quilon
