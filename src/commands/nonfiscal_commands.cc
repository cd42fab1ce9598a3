// Non-fiscal printouts: begin, lines and end, all of them "$w".
#include "src/commands/online_fdev.h"

namespace quilon {

bool OnlineFDev::SendNonFiscalBegin(const NonFiscalBegin& record) {
  FrameBuilder frame = Frame();
  frame
      .Parameters("0", record.first_parameter, record.second_parameter,
                  record.third_parameter, record.header_flag)
      .Semicolon();  // also when no fifth parameter follows
  if (record.fifth_parameter != 0) {
    frame.Int32(record.fifth_parameter);
  }
  frame.Raw("$w");
  if (record.header_flag == 1) {
    frame.Raw(record.header_text);
  }
  return Send(frame.Cr().End());
}

bool OnlineFDev::SendNonFiscalLine(const NonFiscalLine& record) {
  FrameBuilder frame = Frame();
  frame
      .Parameters(record.parameter1, record.parameter2, record.parameter3,
                  record.parameter4, record.parameter5, record.parameter6,
                  record.parameter7)
      .Raw("$w");
  for (const auto& line : record.lines) {
    frame.OptionalTextCr(line);
  }
  return Send(frame.End());
}

bool OnlineFDev::SendNonFiscalEnd(const NonFiscalEnd& record) {
  FrameBuilder frame = Frame();
  frame.Parameters("1", record.second_parameter, record.third_parameter,
                   record.closing_line_count);
  if (record.fifth_parameter != 0) {
    frame.Semicolon().Int32(record.fifth_parameter);
  }
  frame.Raw("$w")
      .OptionalTextCr(record.closing_text)
      .TextCrList(record.closing_lines, record.closing_line_count);
  if (record.fifth_parameter != 0) {
    frame.Semicolon().Int32(record.trailing_parameter);
  }
  return Send(frame.End());
}

}  // namespace quilon
