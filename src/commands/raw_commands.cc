// A command that the application wrote itself, and any answer.
#include "src/commands/online_fdev.h"
#include "src/protocol/reply_fields.h"

namespace quilon {

bool OnlineFDev::SendRaw(const RawCommand& record) {
  FrameBuilder frame = Frame();
  frame.Text(record.text);
  if (record.mode == 0) {
    frame.EndWithoutChecksum();
  } else if (record.mode == 1) {
    frame.End();
  }
  return Send(frame);
}

bool OnlineFDev::ReadRaw(RawAnswer* record) {
  if (!ReadAnswer()) {
    return false;
  }
  PutText(reply().TextUpTo("\\"), record->text);
  return true;
}

}  // namespace quilon
