// What the printer tells of itself.
#include "src/commands/online_fdev.h"
#include "src/protocol/reply_fields.h"

namespace quilon {

bool OnlineFDev::SendDeviceInfo() {
  return Send(Frame().Raw("#v").EndWithoutChecksum());
}

bool OnlineFDev::ReadDeviceInfo(PrinterVersion* record) {
  return ReadFields("#R", Text(record->name), TextUpToEsc(record->version));
}

bool OnlineFDev::SetTotalsMode(const SingleNumber& record) {
  return Send(Frame().Parameters("243", record.number).Raw("$r").End());
}

bool OnlineFDev::SendIdentity() {
  return Send(Frame().Raw("23#s").EndWithoutChecksum());
}

bool OnlineFDev::SendTotals() {
  return Send(Frame().Raw("22#s").EndWithoutChecksum());
}

bool OnlineFDev::ReadIdentity(Identity* record) {
  return ReadFields(
      "#X", Int(record->numbers1), SkipInt(), Int(record->numbers2),
      Amount(record->amounts), Int(record->number), Amount(record->totals),
      Amount(record->last_amount), TextUpToEsc(record->unique_number));
}

bool OnlineFDev::SendClock() {
  return Send(Frame().Raw("#c").EndWithoutChecksum());
}

bool OnlineFDev::ReadClock(SixNumbers* record) {
  return ReadFields("#C", Int(record->numbers));
}

bool OnlineFDev::SendPort() {
  return Send(Frame().Raw("50$i").EndWithoutChecksum());
}

bool OnlineFDev::ReadPort(PortInfo* record) {
  if (!ReadFields("$I", Text(record->port))) {
    return false;
  }
  record->block = 50;
  return true;
}

bool OnlineFDev::SendMemory() {
  return Send(Frame().Raw("210#s").EndWithoutChecksum());
}

bool OnlineFDev::ReadMemory(MemoryInfo* record) {
  return ReadFields("#X", Text(record->text1), Text(record->text2),
                    Int(record->number1), Int(record->number2),
                    Int(record->free_space), Int(record->capacity));
}

bool OnlineFDev::SendLog(const SingleNumber& record) {
  return Send(Frame().Raw("#LOG").NumberFields(record.number).End());
}

bool OnlineFDev::ReadLog(SingleNumber* record) {
  return ReadFields("#LOG", SkipText(), Int(record->number));
}

bool OnlineFDev::SendProc() { return Send(Frame().Raw("?PROC").End()); }

bool OnlineFDev::ReadProc(ProcInfo* record) {
  return ReadFields("?PROC", Text(record->text1), Text(record->text2),
                    Int(record->numbers));
}

}  // namespace quilon
