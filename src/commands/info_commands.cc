// What the printer tells of itself.
#include "commands/online_fdev.h"
#include "protocol/reply_fields.h"

namespace quilon {

int32_t OnlineFDev::SendDeviceInfo() {
  return Send(Frame().Raw("#v").EndWithoutChecksum());
}

int32_t OnlineFDev::ReadDeviceInfo(PrinterVersion* record) {
  return ReadFields("#R", Text(record->name), TextUpToEsc(record->version));
}

int32_t OnlineFDev::SetTotalsMode(const SingleNumber& record) {
  return Send(Frame().Parameters("243", record.number).Raw("$r").End());
}

int32_t OnlineFDev::SendIdentity() {
  return Send(Frame().Raw("23#s").EndWithoutChecksum());
}

int32_t OnlineFDev::SendTotals() {
  return Send(Frame().Raw("22#s").EndWithoutChecksum());
}

int32_t OnlineFDev::ReadIdentity(Identity* record) {
  return ReadFields(
      "#X", Int(record->numbers1), SkipInt(), Int(record->numbers2),
      Amount(record->amounts), Int(record->number), Amount(record->totals),
      Amount(record->last_amount), TextUpToEsc(record->unique_number));
}

int32_t OnlineFDev::SendClock() {
  return Send(Frame().Raw("#c").EndWithoutChecksum());
}

int32_t OnlineFDev::ReadClock(SixNumbers* record) {
  return ReadFields("#C", Int(record->numbers));
}

int32_t OnlineFDev::SendPort() {
  return Send(Frame().Raw("50$i").EndWithoutChecksum());
}

int32_t OnlineFDev::ReadPort(PortInfo* record) {
  const int32_t result = ReadFields("$I", Text(record->port));
  if (result == 1) {
    record->block = 50;
  }
  return result;
}

int32_t OnlineFDev::SendMemory() {
  return Send(Frame().Raw("210#s").EndWithoutChecksum());
}

int32_t OnlineFDev::ReadMemory(MemoryInfo* record) {
  return ReadFields("#X", Text(record->text1), Text(record->text2),
                    Int(record->number1), Int(record->number2),
                    Int(record->free_space), Int(record->capacity));
}

int32_t OnlineFDev::SendLog(const SingleNumber& record) {
  return Send(Frame().Raw("#LOG").NumberFields(record.number).End());
}

int32_t OnlineFDev::ReadLog(SingleNumber* record) {
  return ReadFields("#LOG", SkipText(), Int(record->number));
}

int32_t OnlineFDev::SendProc() { return Send(Frame().Raw("?PROC").End()); }

int32_t OnlineFDev::ReadProc(ProcInfo* record) {
  return ReadFields("?PROC", Text(record->text1), Text(record->text2),
                    Int(record->numbers));
}

}  // namespace quilon
