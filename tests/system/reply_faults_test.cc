// Answers that are not as they should be: the same for every reading command.
#include <algorithm>
#include <ostream>
#include <vector>

#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

// A reading command and the fields of its answer: "n" a number, "t" a text up
// to any separator, "l" a text up to CR, "e" a text up to ESC.
struct ReadingCommand {
  int32_t code;
  size_t record_size;
  std::string_view mnemonic;
  std::string_view fields;
};

std::ostream& operator<<(std::ostream& out, const ReadingCommand& command) {
  return out << "code " << command.code;
}

constexpr ReadingCommand kReadingCommands[] = {
    {7, sizeof(PrinterVersion), "#R", "te"},
    {9, sizeof(Identity), "#X", "nnnnnnnnnnnnnnnnnnnnnnnnne"},
    {11, sizeof(ErrorNumber), "#E", "n"},
    {13, sizeof(SixNumbers), "#C", "nnnnnn"},
    {15, sizeof(PortInfo), "$I", "t"},
    {17, sizeof(MemoryInfo), "#X", "ttnnnn"},
    {19, sizeof(SingleNumber), "#LOG", "tn"},
    {21, sizeof(ProcInfo), "?PROC", "ttnn"},
    {27, sizeof(Identity), "#X", "nnnnnnnnnnnnnnnnnnnnnnnnne"},
    {43, sizeof(InfoBlock43), "$I", "nnnnnnnnn"},
    {47, sizeof(HashX), "#X", "nnnt"},
    {49, sizeof(PmdAnswer), "@PMD", "nnnnntt"},
    {52, sizeof(EparSet), "?EPAR", "lnnnt"},
    {53, sizeof(InfoBlock53), "$I", "tttttnnnn"},
    {54, sizeof(InfoBlock54), "$I", "nnnttnnnnnnnnnnttt"},
    {55, sizeof(InfoBlock55), "$I", "tttt"},
    {56, sizeof(InfoBlock56), "$I", "tnnnnn"},
    {57, sizeof(SingleNumber), "$I", "n"},
    {58, sizeof(SixNumbers), "$I", "nnnnnn"},
    {59, sizeof(SingleNumber), "$I", "n"},
    {60, sizeof(InfoBlock60), "$I", "nnnttnnnnnnnnnnttttt"},
    {61, sizeof(InfoBlock61), "$I", "nnnnnnnnnnl"},
    {62, sizeof(SevenNumbers), "$I", "nnnnnnn"},
    {64, sizeof(InfoBlock64), "$I", "nttllnnn"},
    {66, sizeof(NumberAndText), "?SERW", "nl"},
    {69, sizeof(UsbSettings), "?usb", "ttttnntttt"},
    {72, sizeof(TwoNumbers), "?e", "nn"},
    {74, sizeof(NumberAndText), "$G", "nt"},
    {78, sizeof(FiveTexts), "^t", "ttttt"},
    {85, sizeof(EmfSettings), "?EMF", "lnn"},
    {87, sizeof(ExclamationE), "!e", "nnnnnnl"},
    {89, sizeof(SixNumbers), "?EDB", "nnn"},
    {93, sizeof(ThreeNumbers), "?EPNG", "nnn"},
};

class ReplyFaultsTest : public DriverTest,
                        public ::testing::WithParamInterface<ReadingCommand> {
 protected:
  static constexpr char kUntouched = 'Z';
  static constexpr size_t kFenceLength = 64;

  void SetUp() override {
    DriverTest::SetUp();
    ClearRecord();
  }

  void TearDown() override {
    EXPECT_EQ(std::string(record_.end() - kFenceLength, record_.end()),
              std::string(kFenceLength, kUntouched))
        << "written behind the record";
    DriverTest::TearDown();
  }

  void ClearRecord() {
    record_.assign(GetParam().record_size, 0);
    record_.resize(record_.size() + kFenceLength, kUntouched);
  }

  // Not Ioctl, for which a success counts as a test of what was read.
  int32_t Read() {
    return quil_ioctrl(GetParam().code, record_.data(), nullptr, 0);
  }

  size_t field_count() const { return GetParam().fields.size(); }

  // Good values: the numbers are 1, the texts "a".
  static std::vector<std::string> Values() {
    std::vector<std::string> values;
    for (const char kind : GetParam().fields) {
      values.emplace_back(kind == 'n' ? "1" : "a");
    }
    return values;
  }

  // The answer with the first `count` of `values` and separators between.
  static std::string Answer(const std::vector<std::string>& values,
                            size_t count, char separator = '/') {
    std::string answer(GetParam().mnemonic);
    for (size_t i = 0; i < count; ++i) {
      answer += values[i];
      if (i + 1 < count) {
        answer += GetParam().fields[i] == 'l' ? '\r' : separator;
      }
    }
    return answer;
  }

  std::vector<char> record_;
};

TEST_P(ReplyFaultsTest, EverySeparatorEndsAField) {
  std::vector<std::vector<char>> records;
  for (const char separator : {'\r', '/', ';'}) {
    ClearRecord();
    Reply(Answer(Values(), field_count(), separator) + '\r');
    EXPECT_EQ(Read(), 0);
    records.push_back(record_);
  }
  EXPECT_EQ(records[0], records[1]);
  EXPECT_EQ(records[0], records[2]);
}

TEST_P(ReplyFaultsTest, PacketsWithZAreSkipped) {
  Reply("1#Z" + Answer(Values(), field_count()));
  Reply("#Z");
  Reply(Answer(Values(), field_count()) + '\r');
  EXPECT_EQ(Read(), 0);
  const std::vector<char> behind_z = record_;
  ClearRecord();
  Reply(Answer(Values(), field_count()) + '\r');
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(record_, behind_z);
}

TEST_P(ReplyFaultsTest, SilenceFailsAndLeavesTheRecord) {
  Connect(20);
  const std::vector<char> before = record_;
  EXPECT_EQ(Read(), -1);
  Reply("1#Z");
  EXPECT_EQ(Read(), -1);
  EXPECT_EQ(record_, before);
}

TEST_P(ReplyFaultsTest, AnotherMnemonicFailsAndLeavesTheRecord) {
  const std::vector<char> before = record_;
  Reply("&x1/2/3\r4/5\r");
  EXPECT_EQ(Read(), -1);
  EXPECT_EQ(record_, before);
}

TEST_P(ReplyFaultsTest, MissingFieldsAreEmpty) {
  for (size_t count = 1; count < field_count(); ++count) {
    ClearRecord();
    Reply(Answer(Values(), count));
    EXPECT_EQ(Read(), 0) << count;
  }
  // The first field ends with the packet, so it is ESC "\": no number.
  Reply(Answer(Values(), 0));
  EXPECT_EQ(Read(), GetParam().fields[0] == 'n' ? -1 : 0);
}

TEST_P(ReplyFaultsTest, NumberThatIsNoneFails) {
  for (size_t i = 0; i < field_count(); ++i) {
    if (GetParam().fields[i] != 'n') {
      continue;
    }
    for (const char* wrong : {"x1", "-", "99999999999999999999"}) {
      std::vector<std::string> values = Values();
      values[i] = wrong;
      Reply(Answer(values, field_count()) + '\r');
      EXPECT_EQ(Read(), -1) << i << wrong;
    }
  }
}

TEST_P(ReplyFaultsTest, LongTextsAreCut) {
  std::vector<std::string> values = Values();
  for (size_t i = 0; i < field_count(); ++i) {
    if (GetParam().fields[i] != 'n') {
      values[i] = std::string(5000, 'A');
    }
  }
  Reply(Answer(values, field_count()) + '\r');
  EXPECT_EQ(Read(), 0);
}

TEST_P(ReplyFaultsTest, HalfAnAnswerDoesNoHarm) {
  Connect(20);
  const std::string answer = Answer(Values(), field_count());
  peer().Send("\x1BP" + answer.substr(0, answer.size() / 2));
  Read();
  // The next answer is read as if nothing had been.
  ClearRecord();
  Reply(answer + '\r');
  EXPECT_EQ(Read(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Codes, ReplyFaultsTest, ::testing::ValuesIn(kReadingCommands),
    [](const ::testing::TestParamInfo<ReadingCommand>& row) {
      return std::to_string(row.param.code);
    });

}  // namespace
}  // namespace quilon::testing
