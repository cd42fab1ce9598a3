// Fiscal documents with the buyer's data: header, end and "@c". Their lines are
// those of document_commands.cc.
#include "src/commands/online_fdev.h"

namespace quilon {

bool OnlineFDev::SendBuyerHeader(const BuyerHeader& record) {
  FrameBuilder frame = Frame();
  frame
      .Parameters(1, record.line_count, 1, record.integer2, record.integer5, 0,
                  record.integer3, 0, 0, record.integer6, record.integer7)
      .Raw("$h");
  if (record.document_number != 0) {
    frame.Int32(record.document_number).Cr();
  } else {
    frame.TextCr(record.number_text);
  }
  return Deliver(frame.TextCrList(record.lines, record.line_count)
                     .TextCr(record.buyer_text1, record.buyer_text2,
                             record.buyer_text3, record.buyer_text4,
                             record.buyer_text5)
                     .TextCr(record.closing_text1, record.closing_text2)
                     .End());
}

bool OnlineFDev::SendBuyerEnd(const BuyerEnd& record) {
  return Deliver(Frame()
                     .Parameters(record.integer1, record.integer2,
                                 record.extra_line_count, 0,
                                 record.comparison_mode, 1, record.integer4,
                                 record.integer5, record.integer7)
                     .Raw("$e")
                     .TextCr(record.code_text)
                     .TextCrList(record.extra_lines, record.extra_line_count)
                     .TextCrList(record.closing_texts)
                     .AmountFields(record.total)
                     .Amount32(static_cast<int32_t>(record.adjustment))
                     .Slash()
                     .End());
}

bool OnlineFDev::SendAtC(const AtC& record) {
  FrameBuilder frame = Frame();
  for (const int32_t integer : record.integers1) {
    frame.Int32(integer).Semicolon();
  }
  for (const auto& text : record.texts) {
    frame.Text(text).Semicolon();
  }
  frame
      .Parameters(record.integers2[0], record.integers2[1], record.integers2[2],
                  record.integers2[3], record.integers2[4])
      .Raw("@c");
  for (const auto& text : record.optional_texts) {
    frame.OptionalTextCr(text);
  }
  return Deliver(frame.TextCr(record.closing_text).End());
}

}  // namespace quilon
