// Reports and other data that the printer keeps.
#include "src/commands/online_fdev.h"
#include "src/protocol/reply_fields.h"

namespace quilon {
namespace {

// The seven texts of "^b".
void AddCaretBTexts(FrameBuilder& frame, const char (&texts)[7][256]) {
  frame.RawFields(texts[0], texts[1], texts[2], texts[3], texts[4])
      .RawLines(texts[5])
      .RawFields(texts[6]);
}

}  // namespace

bool OnlineFDev::ReadHashX(HashX* record) {
  return ReadFields("#X", Int(record->number), Int(record->numbers),
                    Text(record->text));
}

bool OnlineFDev::SendPmi(const PmiCommand& record) {
  return Send(Frame()
                  .Int32(record.parameter)
                  .Raw("@PMI")
                  .NumberFields(record.number, record.numbers)
                  .End());
}

bool OnlineFDev::ReadPmd(PmdAnswer* record) {
  return ReadFields("@PMD", Int(record->numbers), Int(record->number),
                    Text(record->data), Text(record->text));
}

bool OnlineFDev::SendCaretB1(const SevenTexts& record) {
  FrameBuilder frame = Frame();
  frame.Raw("1^b");
  AddCaretBTexts(frame, record.texts);
  return Send(frame.End());
}

bool OnlineFDev::SendCaretB0(const NumberAndSevenTexts& record) {
  FrameBuilder frame = Frame();
  frame.Parameters("0", record.number).Raw("^b");
  AddCaretBTexts(frame, record.texts);
  return Send(frame.End());
}

bool OnlineFDev::SendQuestionE() { return Send(Frame().Raw("?e").End()); }

bool OnlineFDev::ReadQuestionE(TwoNumbers* record) {
  return ReadFields("?e", Int(record->numbers));
}

bool OnlineFDev::SendDollarG(const TwoTexts& record) {
  return Send(Frame()
                  .Raw("$g")
                  .RawLines(record.texts[0])
                  .RawFields(record.texts[1])
                  .End());
}

bool OnlineFDev::ReadDollarG(NumberAndText* record) {
  return ReadFields("$G", Int(record->number), Text(record->text));
}

bool OnlineFDev::SendDollarM() { return Send(Frame().Raw("$m").End()); }

bool OnlineFDev::SendCaretT12() { return Send(Frame().Raw("12^t").End()); }

bool OnlineFDev::ReadCaretT(FiveTexts* record) {
  return ReadFields("^t", Text(record->texts));
}

bool OnlineFDev::SendHashB(const NumberAndFourTexts& record) {
  const auto& texts = record.texts;
  return Send(Frame()
                  .Int32(record.number)
                  .Raw("#b")
                  .RawLines(texts[0])
                  .RawFields(texts[1])
                  .RawLines(texts[2], texts[3])
                  .End());
}

bool OnlineFDev::SendHashL(const SingleNumber& record) {
  return Send(Frame().Int32(record.number).Raw("#l").End());
}

bool OnlineFDev::SendExclamationE(const ExclamationE& record) {
  const auto& numbers = record.numbers;
  return Send(Frame()
                  .Raw("!e")
                  .NumberFields(numbers[0], numbers[1], numbers[2], numbers[3])
                  .End());
}

bool OnlineFDev::ReadExclamationE(ExclamationE* record) {
  auto& numbers = record->numbers;
  if (!ReadFields("!e", Int(numbers[4]))) {
    return false;
  }
  if (numbers[4] < 2) {
    TakeFields(Int(numbers[2]), Int(numbers[3]), Int(numbers[5]),
               Int(numbers[6]), Int(numbers[7]), LongLine(record->text));
  }
  return true;
}

bool OnlineFDev::SendEdb(const SixNumbers& record) {
  return Send(Frame()
                  .Int32(record.numbers[0])
                  .Raw("?EDB")
                  .NumberFields(record.numbers[1], record.numbers[2])
                  .End());
}

bool OnlineFDev::ReadEdb(SixNumbers* record) {
  auto& numbers = record->numbers;
  switch (numbers[0]) {
    case 0:
      return ReadFields("?EDB", Int(numbers[1]), Int(numbers[2]),
                        Int(numbers[3]));
    case 1:
    case 2:
      return ReadNumberedEdb(record);
    default:
      return ReadAnswer();
  }
}

// The answer to types 1 and 2 bears a number before its mnemonic.
bool OnlineFDev::ReadNumberedEdb(SixNumbers* record) {
  if (!ReadFields("P")) {
    return false;
  }
  auto& numbers = record->numbers;
  const std::string_view number = reply().TextUpTo("?EDB");
  if (!number.empty()) {
    numbers[5] = ParseInt32(number);
    if (numbers[5] == 0) {
      TakeFields(Int(numbers[1]), Int(numbers[2]), Int(numbers[4]));
    }
  }
  return true;
}

bool OnlineFDev::SendExclamationEdb(const SingleNumber& record) {
  return Send(Frame().Raw("!EDB").NumberFields(record.number).End());
}

}  // namespace quilon
