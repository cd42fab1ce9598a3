// The short commands of codes 100 to 113, 500 to 503 and 700.
#include "src/commands/online_fdev.h"
#include "src/protocol/reply_fields.h"

namespace quilon {

bool OnlineFDev::SendHashR(const HashR& record) {
  FrameBuilder frame = Frame();
  if (TextOf(record.parameter1).empty()) {
    frame.Raw("0");
  } else {
    frame.Raw("1;")
        .Text(record.parameter1)
        .Semicolon()
        .Text(record.parameter2)
        .Semicolon()
        .Text(record.parameter3);
  }
  return Send(frame.Raw("#r")
                  .OptionalTextCr(record.text1)
                  .OptionalTextCr(record.text2)
                  .End());
}

bool OnlineFDev::SendHashK(const HashK& record) {
  return Send(Frame()
                  .Int32(record.parameter)
                  .Raw("#k")
                  .TextCr(record.text1, record.text2)
                  .OptionalTextCr(record.text3)
                  .End());
}

bool OnlineFDev::SendHashOTexts(const HashO& record) {
  FrameBuilder frame = Frame();
  for (const auto& parameter : record.parameters) {
    frame.Text(parameter).Semicolon();
  }
  return SendHashO(frame.Int32(record.number).Raw("#o"), record);
}

bool OnlineFDev::SendHashOFields(const HashO& record) {
  return SendHashO(Frame()
                       .Int32(record.number)
                       .Raw("#o")
                       .Text(record.field1)
                       .Slash()
                       .Text(record.field2)
                       .Slash(),
                   record);
}

// Ends the frame with the texts that both forms of the command have.
bool OnlineFDev::SendHashO(FrameBuilder& frame, const HashO& record) {
  return Send(
      frame.OptionalTextCr(record.text1).OptionalTextCr(record.text2).End());
}

bool OnlineFDev::SendDollarOTexts(const DollarOTexts& record) {
  return Send(Frame()
                  .Int32(record.parameter)
                  .Raw("$o")
                  .TextCr(record.text1, record.text2)
                  .Text(record.field)
                  .Slash()
                  .End());
}

bool OnlineFDev::SendDollarONumbers(const DollarONumbers& record) {
  return Send(Frame()
                  .Int32(record.parameter)
                  .Raw("$o")
                  .NumberFields(record.number1, record.number2)
                  .Text(record.field)
                  .Slash()
                  .End());
}

bool OnlineFDev::SendDollarO3() { return Send(Frame().Raw("3$o").End()); }

bool OnlineFDev::SendHashT(const HashT& record) {
  return Send(Frame()
                  .Raw("0#t")
                  .OptionalTextCr(record.text1)
                  .OptionalTextCr(record.text2)
                  .End());
}

bool OnlineFDev::SendPr(const PrCommand& record) {
  return Send(Frame()
                  .Raw("@PR")
                  .NumberFields(record.number1, record.number2)
                  .TextCr(record.text1, record.text2)
                  .End());
}

bool OnlineFDev::SendPmr(const PmrCommand& record) {
  return Send(Frame()
                  .Raw("@PMR")
                  .NumberFields(record.number1, record.number2)
                  .TextCr(record.text1, record.text2)
                  .End());
}

bool OnlineFDev::SendHashI(const HashAmount& record) {
  return SendHashAmount("#i", record);
}

bool OnlineFDev::SendHashD(const HashAmount& record) {
  return SendHashAmount("#d", record);
}

bool OnlineFDev::SendHashAmount(std::string_view mnemonic,
                                const HashAmount& record) {
  FrameBuilder frame = Frame();
  frame.Int32(record.parameter).Raw(mnemonic).AmountFields(record.amount);
  // The printer takes the second text only behind a first one.
  if (!TextOf(record.text1).empty()) {
    frame.TextCr(record.text1, record.text2);
  }
  return Send(frame.End());
}

bool OnlineFDev::SendHashP(const HashP& record) {
  return Send(Frame()
                  .Int32(record.parameter)
                  .Raw("#p")
                  .TextCr(record.text1, record.text2)
                  .End());
}

bool OnlineFDev::SendHashQ(const HashP& record) {
  return Send(Frame().Raw("0#q").TextCr(record.text1, record.text2).End());
}

bool OnlineFDev::SendHashP1() { return Send(Frame().Raw("1#p").End()); }

bool OnlineFDev::ReadHashP(HashPAnswer* record) {
  // The next packet, also when it contains "#Z".
  if (!ReadPacket() || !reply().SkipPast("#P")) {
    return false;
  }
  TakeFields(Text(record->text1), Text(record->text2), Int(record->number));
  return true;
}

bool OnlineFDev::SendDollarZ28(const SingleNumber& record) {
  return Send(Frame().Parameters("28", record.number).Raw("$z").End());
}

}  // namespace quilon
