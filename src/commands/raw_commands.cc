// A command that the application wrote itself, and any answer.
#include "commands/online_fdev.h"
#include "protocol/reply_fields.h"

namespace quilon {

int32_t OnlineFDev::SendRaw(const RawCommand& record) {
  FrameBuilder frame = Frame();
  frame.Text(record.text);
  if (record.mode == 0) {
    frame.EndWithoutChecksum();
  } else if (record.mode == 1) {
    frame.End();
  }
  return Send(frame);
}

int32_t OnlineFDev::ReadRaw(RawAnswer* record) {
  if (!ReadAnswer()) {
    return 0;
  }
  CopyText(reply().TextUpTo("\\"), record->text);
  return 1;
}

}  // namespace quilon
