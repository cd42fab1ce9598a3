// The information blocks, "$I".
#include "src/commands/online_fdev.h"
#include "src/protocol/reply_fields.h"

namespace quilon {

bool OnlineFDev::SendInfoBlock(const SingleNumber& record) {
  return Send(Frame().Int32(record.number).Raw("$i").EndWithoutChecksum());
}

bool OnlineFDev::ReadInfo43(InfoBlock43* record) {
  return ReadFields("$I", IntExcept<5, 6>(record->numbers));
}

bool OnlineFDev::ReadInfo53(InfoBlock53* record) {
  return ReadFields("$I", Text(record->first_text), Text(record->texts),
                    Int(record->numbers));
}

bool OnlineFDev::ReadInfo54(InfoBlock54* record) {
  return ReadFields("$I", Int(record->numbers1), Text(record->texts1),
                    IntExcept<5, 7>(record->numbers2), Text(record->texts2));
}

bool OnlineFDev::ReadInfo55(InfoBlock55* record) {
  return ReadFields("$I", Text(record->texts));
}

bool OnlineFDev::ReadInfo56(InfoBlock56* record) {
  return ReadFields("$I", Text(record->text), Int(record->numbers));
}

bool OnlineFDev::ReadInfoNumber(SingleNumber* record) {
  return ReadFields("$I", Int(record->number));
}

bool OnlineFDev::ReadInfo58(SixNumbers* record) {
  return ReadFields("$I", Int(record->numbers));
}

bool OnlineFDev::ReadInfo60(InfoBlock60* record) {
  return ReadFields("$I", Int(record->numbers1), Text(record->text1),
                    Text(record->text2, 19), IntExcept<7, 9>(record->numbers2),
                    Text(record->texts));
}

bool OnlineFDev::ReadInfo61(InfoBlock61* record) {
  return ReadFields("$I", IntExcept<6, 10>(record->numbers),
                    Line(record->text));
}

bool OnlineFDev::ReadInfo62(SevenNumbers* record) {
  return ReadFields("$I", Int(record->numbers));
}

bool OnlineFDev::ReadInfo64(InfoBlock64* record) {
  return ReadFields("$I", Int(record->number), Text(record->text1),
                    Text(record->text2), Line(record->text3),
                    Line(record->text4, 20), Int(record->numbers));
}

}  // namespace quilon
