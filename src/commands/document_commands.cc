// Fiscal documents: header, lines, payments and end.
#include "src/commands/online_fdev.h"

namespace quilon {
namespace {

// The quantity as text; as value when the text is empty; nothing when the text
// has 11 characters or more.
template <size_t kCapacity>
void AddQuantity(FrameBuilder& frame, const char (&quantity_text)[kCapacity],
                 int64_t quantity) {
  const std::string_view text = TextOf(quantity_text);
  if (text.empty()) {
    frame.Quantity(quantity);
  } else if (text.size() < 11) {
    frame.Raw(text);
  }
}

}  // namespace

bool OnlineFDev::SendHeader(int32_t first_parameter,
                            const DocumentHeader& record) {
  return Deliver(Frame()
                     .Parameters(first_parameter, record.line_count, 0, 1,
                                 record.header_integer)
                     .Raw("$h")
                     .TextCrList(record.lines, record.line_count)
                     .TextCr(record.final_text)
                     .End());
}

bool OnlineFDev::SendDocumentHeader(const DocumentHeader& record) {
  return SendHeader(0, record);
}

bool OnlineFDev::SendDocumentHeader219(const DocumentHeader& record) {
  return SendHeader(1, record);
}

bool OnlineFDev::SendDocumentLine(const DocumentLine& record) {
  const bool closed_by_text = record.kind == 1;
  FrameBuilder frame = Frame();
  frame.Parameters(record.integer1, record.integer2, record.integer3);
  if (closed_by_text) {
    frame.Semicolon().Int32(record.kind).Raw("$l");
  } else {
    frame.Raw("^l");
  }
  frame.TextCr(record.name);
  if (record.kind == 0) {
    frame.TextCr(record.second_name);
  }
  AddQuantity(frame, record.quantity_text, record.quantity);
  if (!TextOf(record.unit).empty()) {
    frame.Char(' ').Text(record.unit);
  }
  frame.Cr()
      .Raw(record.rate_group)
      .Slash()
      .AmountFields(record.price, record.value);
  if (record.optional_amount != 0) {
    frame.AmountFields(record.optional_amount).TextCr(record.optional_text);
  }
  if (closed_by_text) {
    frame.TextCr(record.closing_text);
  }
  return Deliver(frame.End());
}

bool OnlineFDev::SendDocumentLineP(const DocumentLineP& record) {
  FrameBuilder frame = Frame();
  frame.Parameters(record.integer).Raw("$l").Int32(record.name_number).Cr();
  AddQuantity(frame, record.quantity_text, record.quantity);
  return Deliver(
      frame.Cr().RawFields("P").AmountFields(record.price, record.value).End());
}

bool OnlineFDev::SendDocumentEnd(const DocumentEnd& record) {
  return Deliver(
      Frame()
          .Int32(record.first_parameter)
          .Semicolon()
          .Amount32(record.discount_rate)
          .Semicolon()
          .Parameters(record.extra_line_count, 0, record.adjustment_kind, 0)
          .Raw("$e")
          .TextCr(record.code_text)
          .TextCrList(record.extra_lines, record.extra_line_count)
          .AmountFields(record.paid, record.total, record.adjustment)
          .End());
}

bool OnlineFDev::SendDocumentShortEnd(const DocumentShortEnd& record) {
  return Deliver(Frame()
                     .Raw("0$e")
                     .OptionalTextCr(record.first_text)
                     .OptionalTextCr(record.second_text)
                     .End());
}

bool OnlineFDev::SendPayment(std::string_view mnemonic, const Payment& record) {
  FrameBuilder frame = Frame();
  frame.Raw(mnemonic).AmountFields(record.amount).Int32(record.number).Cr();
  AddQuantity(frame, record.quantity_text, record.quantity);
  return Deliver(frame.Cr().End());
}

bool OnlineFDev::SendPayment6(const Payment& record) {
  return SendPayment("6$d", record);
}

bool OnlineFDev::SendPayment7(const Payment& record) {
  return SendPayment("7$d", record);
}

bool OnlineFDev::SendPayment10(const Payment& record) {
  return SendPayment("10$d", record);
}

bool OnlineFDev::SendPayment11(const Payment& record) {
  return SendPayment("11$d", record);
}

bool OnlineFDev::SendDollarN(const DollarN& record) {
  return Deliver(Frame()
                     .Parameters(record.integer)
                     .Raw("$n")
                     .TextCr(record.text)
                     .AmountFields(record.amount)
                     .End());
}

bool OnlineFDev::SendDollarCapitalL(const DollarCapitalL& record) {
  return Deliver(Frame()
                     .Parameters(record.integers[0], record.integers[1],
                                 record.integers[2])
                     .Raw("$L")
                     .AmountFieldList(record.amounts)
                     .TextCr(record.text)
                     .End());
}

bool OnlineFDev::SendDollarCapitalY(const DollarCapitalY& record) {
  return Deliver(Frame()
                     .Parameters(record.integers[0], record.integers[1])
                     .Raw("$Y")
                     .AmountFieldList(record.amounts)
                     .TextCr(record.text)
                     .End());
}

bool OnlineFDev::SendDollarB(const DollarB& record) {
  return Deliver(Frame()
                     .Parameters(record.integers[0], record.integers[1])
                     .Raw("$b")
                     .AmountFields(record.amount)
                     .TextCr(record.text)
                     .End());
}

bool OnlineFDev::SendAtZ(const AtZ& record) {
  return Deliver(Frame()
                     .Parameters(record.integer)
                     .Semicolon()
                     .Raw("@z")
                     .TextCr(record.text)
                     .RawLines(record.raw_text)
                     .AmountFieldList(record.amounts)
                     .End());
}

bool OnlineFDev::SendAtE(const AtE& record) {
  const bool full = record.mode == 3;
  FrameBuilder frame = Frame();
  if (record.mode != 0) {
    frame.Parameters(record.mode).Semicolon();
  }
  if (full) {
    frame.Parameters(record.integer1, record.integer2).Semicolon();
  }
  frame.Raw("@e").TextCr(record.text);
  if (full && record.integer1 != 0) {
    frame.NumberFields(record.integer3);
  }
  if (full && record.integer2 != 0) {
    frame.NumberFields(record.integer2);
  }
  return Deliver(frame.End());
}

}  // namespace quilon
