// The two commands that close a document together with its payments.
#include <algorithm>
#include <cstdint>
#include <numeric>

#include "src/commands/online_fdev.h"

namespace quilon {
namespace {

// The lists of a "$y" frame, as they are or in the short form.
class Lists {
 public:
  Lists(bool is_short, FrameBuilder& frame)
      : is_short_(is_short), frame_(frame) {}

  // A list of texts, or a single empty text.
  template <size_t kTexts, size_t kCapacity>
  void Add(const char (&texts)[kTexts][kCapacity], int32_t count) {
    if (!is_short_) {
      frame_.TextCrList(texts, count);
    } else if (count > 0) {
      frame_.Cr();
    }
  }

  // A list of amounts, or their sum when it is above 0.
  template <size_t kAmounts>
  void Add(const int64_t (&amounts)[kAmounts], int32_t count) {
    if (!is_short_) {
      frame_.AmountFieldList(amounts, count);
      return;
    }
    // Sums of absurd amounts wrap.
    const auto sum = static_cast<int64_t>(std::accumulate(
        amounts, amounts + std::clamp(count, 0, int32_t{kAmounts}), uint64_t{0},
        [](uint64_t total, int64_t amount) {
          return total + static_cast<uint64_t>(amount);
        }));
    if (sum > 0) {
      frame_.AmountFields(sum);
    }
  }

 private:
  bool is_short_;
  FrameBuilder& frame_;
};

}  // namespace

bool OnlineFDev::SendDollarX(const DollarX& record) {
  FrameBuilder frame = Frame();
  frame.Parameters(5, 0, 1, record.comparison_mode);
  for (const int32_t integer : record.integers) {
    frame.Semicolon().Int32(integer);
  }
  frame.Semicolon().Parameters(record.has_payments6, record.has_payments10,
                               record.last_integer);
  return Deliver(frame.Raw("$x")
                     .TextCr(record.leading_text)
                     .TextCrList(record.texts)
                     .TextCrList(record.short_texts)
                     .AmountFields(record.total, record.adjustment)
                     .AmountFieldList(record.amounts)
                     .AmountFields(record.payments6_sum, record.payments10_sum,
                                   record.last_amount)
                     .End());
}

bool OnlineFDev::SendDollarY(const DollarY& record) {
  const bool is_short = record.kind == 3;
  const int32_t count_z = is_short ? 0 : record.count_z;
  const auto sent_count = [is_short](int32_t count) {
    return is_short ? std::min(count, 1) : count;
  };
  FrameBuilder frame = Frame();
  Lists lists(is_short, frame);

  frame
      .Parameters(record.text_count, record.kind, record.integers1[0],
                  record.integers1[1], record.comparison_mode,
                  sent_count(record.payment6_count),
                  sent_count(record.payment10_count), record.integer2, count_z,
                  record.integers3[0], record.integers3[1])
      .Semicolon();
  for (int32_t i = 0; i < count_z && i < std::ssize(record.integers_z); ++i) {
    frame.Int32(record.integers_z[i]).Semicolon();
  }
  frame.Raw("$y").TextCr(record.text1, record.text2);
  if (record.text3[0] != '\0') {
    frame.TextCr(record.text3);
  } else {
    frame.TextCr(record.alternative_text3);
  }
  frame.TextCrList(record.texts, is_short ? 0 : record.text_count)
      .TextCrList(record.texts_z, count_z);
  lists.Add(record.payment6_numbers, record.payment6_count);
  lists.Add(record.payment6_quantities, record.payment6_count);
  lists.Add(record.payment10_numbers, record.payment10_count);
  lists.Add(record.payment10_quantities, record.payment10_count);
  frame.AmountFields(record.total, record.adjustment)
      .AmountFieldList(record.amounts1)
      .AmountFieldList(record.amounts_z, count_z)
      .AmountFields(record.amount2);
  lists.Add(record.payment6_amounts, record.payment6_count);
  lists.Add(record.payment10_amounts, record.payment10_count);
  return Deliver(frame.End());
}

}  // namespace quilon
