// Configuration of the printer.
#include "src/commands/online_fdev.h"
#include "src/protocol/reply_fields.h"

namespace quilon {

bool OnlineFDev::SendDollarC(const DollarC& record) {
  const auto& numbers = record.numbers;
  return Send(Frame()
                  .Parameters(numbers[0], numbers[1], numbers[2], numbers[3],
                              numbers[4], numbers[5])
                  .Raw("$c")
                  .TextCr(record.texts[0])
                  .TextCr(record.texts[1])
                  .End());
}

bool OnlineFDev::SendDollarP(const DollarP& record) {
  return Send(Frame()
                  .Int32(record.number)
                  .Raw("$p")
                  .TextCr(record.texts[0])
                  .TextCr(record.texts[1])
                  .NumberFields(record.values)
                  .End());
}

bool OnlineFDev::SendDollarCapitalP(const DollarCapitalP& record) {
  const auto& parameters = record.parameters;
  const auto& values = record.fields.values;
  return Send(Frame()
                  .Parameters("1", parameters[0], parameters[1], parameters[2],
                              parameters[3], parameters[4], parameters[5])
                  .Int32(parameters[6])  // no separator: the printer's own way
                  .Raw("$P")
                  .NumberFields(values[0], values[1], values[2], values[3],
                                values[4], values[5])
                  .End());
}

bool OnlineFDev::SendCaretC(const NumberAndText& record) {
  return Deliver(
      Frame().Raw("1^c").Int32(record.number).Cr().TextCr(record.text).End());
}

bool OnlineFDev::SendDollarZ(const SingleText& record) {
  return Deliver(Frame().Raw("100;1$z").TextCr(record.text).End());
}

bool OnlineFDev::SendDollarO10(const TwoTexts& record) {
  return Send(
      Frame().Raw("10$o").RawLines(record.texts[0], record.texts[1]).End());
}

bool OnlineFDev::SendDollarO11(const TwoNumbers& record) {
  return Send(Frame().Raw("11$o").NumberFields(record.numbers).End());
}

bool OnlineFDev::SendDollarO12() { return Send(Frame().Raw("12;1$o").End()); }

bool OnlineFDev::SetSerw(const NumberAndText& record) {
  return Send(Frame()
                  .Raw("@SERW")
                  .TextCr(record.text)
                  .NumberFields(record.number)
                  .End());
}

bool OnlineFDev::SendSerw(const SingleNumber& record) {
  return Send(Frame().Raw("?SERW").NumberFields(record.number).End());
}

bool OnlineFDev::ReadSerw(NumberAndText* record) {
  return ReadFields("?SERW", Int(record->number), Line(record->text));
}

bool OnlineFDev::SetUsb(const UsbSettings& record) {
  const auto& long_texts = record.long_texts;
  const auto& short_texts = record.short_texts;
  return Send(
      Frame()
          .Int32(record.number)
          .Raw("@usb")
          .RawLines(long_texts[0], long_texts[2], long_texts[1], long_texts[3])
          .NumberFields(record.numbers)
          .RawFields(short_texts[0], short_texts[1], short_texts[2],
                     short_texts[3])
          .End());
}

bool OnlineFDev::SendUsb() {
  return Send(Frame().Raw("?usb").EndWithoutChecksum());
}

bool OnlineFDev::ReadUsb(UsbSettings* record) {
  auto& long_texts = record->long_texts;
  return ReadFields("?usb", Text(long_texts[0]), Text(long_texts[2]),
                    Text(long_texts[1]), Text(long_texts[3]),
                    Int(record->numbers), Text(record->short_texts));
}

bool OnlineFDev::SetCert(const CertSettings& record) {
  return Send(Frame()
                  .Raw("@CERT")
                  .NumberFields(record.numbers)
                  .RawLines(record.text)
                  .End());
}

bool OnlineFDev::SetEmf(const EmfSettings& record) {
  FrameBuilder frame = Frame();
  frame.Parameters(record.sends_value1, record.sends_value2, "@EMF")
      .RawLines(record.text);
  if (record.sends_value1 != 0) {
    frame.NumberFields(record.value1);
  }
  if (record.sends_value2 != 0) {
    frame.NumberFields(record.value2);
  }
  return Send(frame.End());
}

bool OnlineFDev::SendEmf() { return Send(Frame().Raw("?EMF").End()); }

bool OnlineFDev::ReadEmf(EmfSettings* record) {
  return ReadFields("?EMF", Line(record->text, 200), Int(record->value1),
                    Int(record->value2));
}

bool OnlineFDev::SetEpng(const ThreeNumbers& record) {
  return Send(Frame().Raw("@EPNG").NumberFields(record.numbers).End());
}

bool OnlineFDev::SendEpng() { return Send(Frame().Raw("?EPNG").End()); }

bool OnlineFDev::ReadEpng(ThreeNumbers* record) {
  return ReadFields("?EPNG", Int(record->numbers));
}

}  // namespace quilon
