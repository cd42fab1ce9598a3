// The two commands that carry whole lists, "#f" and "#m".
#include <iterator>

#include "src/commands/online_fdev.h"

namespace quilon {

bool OnlineFDev::SendHashF(const HashF& record) {
  return Send(Frame()
                  .Raw("8;4;4#f")
                  .TextCr(record.text1, record.text2)
                  .TextCrList(record.texts4)
                  .TextCr(record.text20, record.text21)
                  .AmountFieldList(record.amounts)
                  .TextCr(record.text22, record.text23, record.text24)
                  .OptionalTextCr(record.text3)
                  .End());
}

bool OnlineFDev::SendHashM(const HashM& record) {
  FrameBuilder frame = Frame();
  frame.Parameters(record.count_a, record.count_b, record.count_c, "212");
  for (int32_t i = 0; i < record.count_c; ++i) {
    frame.Semicolon();
    if (i < std::ssize(record.integers_c)) {
      frame.Int32(record.integers_c[i]);
    }
  }
  return Send(frame.Raw("#m")
                  .TextCr(record.text1, record.text2, record.text3,
                          record.text4, record.text5)
                  .TextCrList(record.texts_c, record.count_c)
                  .TextCrList(record.texts_a, record.count_a)
                  .TextCrList(record.texts_b, record.count_b)
                  .AmountFieldList(record.amounts)
                  .AmountFieldList(record.amounts_c, record.count_c)
                  .AmountFields(record.amount6)
                  .AmountFieldList(record.amounts_a1, record.count_a)
                  .AmountFields(record.amount7)
                  .AmountFieldList(record.amounts_a2, record.count_a)
                  .AmountFields(record.amount8)
                  .TextCr(record.text6, record.text7, record.text8)
                  .End());
}

}  // namespace quilon
