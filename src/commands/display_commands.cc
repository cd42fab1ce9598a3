// The drawer, the customer display, and what is reported without being asked.
#include "commands/online_fdev.h"
#include "protocol/reply_fields.h"

namespace quilon {

int32_t OnlineFDev::OpenDrawer() { return Send(Frame().Raw("1$d").End()); }

int32_t OnlineFDev::Display(const DisplayText& record) {
  return Send(Frame()
                  .Int32(record.mode)
                  .Raw("$d")
                  .Text(record.text)
                  .EndWithoutChecksum());
}

int32_t OnlineFDev::SendExclamationD(const DisplayText& record) {
  return Send(Frame().Int32(record.mode).Raw("!d").Text(record.text).End());
}

int32_t OnlineFDev::SendHashE(const HashE& record) {
  return Send(Frame().Int32(record.number).Raw("#e").End());
}

// "#Z" is what is asked for here, so no packet is passed over.
int32_t OnlineFDev::ReadHashZ(HashE* record) {
  if (!ReadPacket() || !reply().SkipPast("P")) {
    return 0;
  }
  const bool has_mnemonic = reply().HasAhead("#Z");
  CopyText(reply().TextUpTo("#Z"), record->number_z);
  if (has_mnemonic) {
    TakeFields(TextUpToEsc(record->text));
  }
  return 1;
}

}  // namespace quilon
