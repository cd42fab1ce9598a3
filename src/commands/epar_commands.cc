// The EPAR parameter sets.
#include "src/commands/online_fdev.h"
#include "src/protocol/reply_fields.h"

namespace quilon {

bool OnlineFDev::SetEparCommon(const EparSet& record) {
  return Send(Frame()
                  .Raw("@EPAR")
                  .RawLines(record.first_text)
                  .NumberFields(record.values)
                  .RawLines(record.second_text)
                  .End());
}

bool OnlineFDev::SetEpar(const EparSet& record) {
  FrameBuilder frame = Frame();
  if (record.type != 0) {
    frame.Int32(record.type).Semicolon();
  }
  frame.Raw("@EPAR").RawLines(record.first_text);
  if (record.type == 1) {
    frame.Raw("///").Cr();
  } else {
    frame.NumberFields(record.values).RawLines(record.second_text);
  }
  const auto& tail = record.tail_values;
  if (record.type == 2 || record.type == 3) {
    frame.NumberFields(tail[0], tail[1], tail[2], tail[3]);
  }
  if (record.type == 3) {
    frame.NumberFields(tail[4]);
  }
  return Send(frame.End());
}

bool OnlineFDev::SendEpar(EparSet* record) {
  if (record->type < 1 || record->type > 3) {
    record->type = 0;
  }
  return Send(Frame().Parameters(record->type, "?EPAR").Cr().End());
}

bool OnlineFDev::ReadEpar(EparSet* record) {
  if (!ReadAnswer()) {
    return false;
  }
  if (record->type == 0) {
    if (!reply().SkipPast("?EPAR")) {
      return false;
    }
  } else {
    const std::string_view before = reply().TextUpTo("?EPAR");
    if (before.empty() || before.back() < '0' || before.back() > '9') {
      return false;
    }
    record->type = before.back() - '0';
  }
  TakeFields(Line(record->first_text), Int(record->values),
             Text(record->second_text, 64));
  auto& tail = record->tail_values;
  if (record->type >= 1 && record->type <= 3) {
    TakeFields(Int(tail[0]), Int(tail[1]), Int(tail[2]), Int(tail[3]));
  }
  if (record->type == 2 || record->type == 3) {
    TakeFields(Int(tail[5]), Int(tail[6]), Int(tail[7]), Int(tail[8]),
               Int(tail[9]));
  }
  if (record->type == 3) {
    TakeFields(Int(tail[4]));
  }
  return true;
}

}  // namespace quilon
