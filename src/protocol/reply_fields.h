// The fields of a reply as values, so that reading one looks like its row in
// the protocol:
//
//     ReadFields("#R", Text(record->name), TextUpToEsc(record->version));
//
// Each takes the next field of the reply it is called with and stores it where
// it was told to. What is copied out is cut to its array and NUL-terminated.
#ifndef QUILON_PROTOCOL_REPLY_FIELDS_H_
#define QUILON_PROTOCOL_REPLY_FIELDS_H_

#include <cstddef>
#include <cstdint>

#include "src/protocol/reply.h"
#include "src/text/copy_text.h"

namespace quilon {

// A number.
template <typename Integer>
auto Int(Integer& number) {
  return [&number](Reply& reply) { number = reply.Int32Field(); };
}

// As many numbers as the array holds.
template <size_t kCount>
auto Int(int32_t (&numbers)[kCount]) {
  return [&numbers](Reply& reply) {
    for (int32_t& number : numbers) {
      number = reply.Int32Field();
    }
  };
}

// A number that is not stored.
inline auto SkipInt() {
  return [](Reply& reply) { reply.Int32Field(); };
}

// As many numbers as the array holds; the array keeps what it has where
// `kKept`, counted from 1, says so.
template <size_t... kKept, size_t kCount>
auto IntExcept(int32_t (&numbers)[kCount]) {
  return [&numbers](Reply& reply) {
    for (size_t i = 0; i < kCount; ++i) {
      const int32_t number = reply.Int32Field();
      if (((i + 1 != kKept) && ...)) {
        numbers[i] = number;
      }
    }
  };
}

// An amount, of which the low 32 bits are kept.
inline auto Amount(int32_t& amount) {
  return [&amount](Reply& reply) {
    amount = static_cast<int32_t>(reply.AmountField());
  };
}

template <size_t kCount>
auto Amount(int32_t (&amounts)[kCount]) {
  return [&amounts](Reply& reply) {
    for (int32_t& amount : amounts) {
      amount = static_cast<int32_t>(reply.AmountField());
    }
  };
}

// A text up to any separator.
template <size_t kCapacity>
auto Text(char (&array)[kCapacity], size_t max_length = kCapacity - 1) {
  return [&array, max_length](Reply& reply) {
    CopyText(reply.NextField(), array, max_length);
  };
}

// As many texts as the array holds.
template <size_t kCount, size_t kCapacity>
auto Text(char (&arrays)[kCount][kCapacity]) {
  return [&arrays](Reply& reply) {
    for (auto& array : arrays) {
      CopyText(reply.NextField(), array);
    }
  };
}

// A text up to the next separator that is not stored.
inline auto SkipText() {
  return [](Reply& reply) { reply.NextField(); };
}

// A text up to CR.
template <size_t kCapacity>
auto Line(char (&array)[kCapacity], size_t max_length = kCapacity - 1) {
  return [&array, max_length](Reply& reply) {
    CopyText(reply.NextLine(), array, max_length);
  };
}

// The same for an array of many thousand bytes, whose rest stays as it is.
template <size_t kCapacity>
auto LongLine(char (&array)[kCapacity]) {
  return [&array](Reply& reply) { PutText(reply.NextLine(), array); };
}

// A text up to ESC; empty when none follows.
template <size_t kCapacity>
auto TextUpToEsc(char (&array)[kCapacity]) {
  return [&array](Reply& reply) { CopyText(reply.TextUpTo("\x1B"), array); };
}

}  // namespace quilon

#endif  // QUILON_PROTOCOL_REPLY_FIELDS_H_
