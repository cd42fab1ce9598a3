// The drawer, the customer display, and what is reported without being asked.
#include "src/commands/online_fdev.h"
#include "src/protocol/reply_fields.h"

namespace quilon {

bool OnlineFDev::OpenDrawer() { return Send(Frame().Raw("1$d").End()); }

bool OnlineFDev::Display(const DisplayText& record) {
  return Send(Frame()
                  .Int32(record.mode)
                  .Raw("$d")
                  .Text(record.text)
                  .EndWithoutChecksum());
}

bool OnlineFDev::SendExclamationD(const DisplayText& record) {
  return Send(Frame().Int32(record.mode).Raw("!d").Text(record.text).End());
}

bool OnlineFDev::SendHashE(const HashE& record) {
  return Send(Frame().Int32(record.number).Raw("#e").End());
}

// "#Z" is what is asked for here, so no packet is passed over.
bool OnlineFDev::ReadHashZ(HashE* record) {
  if (!ReadPacket() || !reply().SkipPast("P")) {
    return false;
  }
  const bool has_mnemonic = reply().HasAhead("#Z");
  CopyText(reply().TextUpTo("#Z"), record->number_z);
  if (has_mnemonic) {
    TakeFields(TextUpToEsc(record->text));
  }
  return true;
}

}  // namespace quilon
