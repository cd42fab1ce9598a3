// Copies texts into the char arrays of records.
#ifndef QUILON_TEXT_COPY_TEXT_H_
#define QUILON_TEXT_COPY_TEXT_H_

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace quilon {

// Puts at most `max_length` bytes of `text` into `array`, cut to its room; the
// rest of the array is NUL.
template <size_t kCapacity>
void CopyText(std::string_view text, char (&array)[kCapacity],
              size_t max_length = kCapacity - 1) {
  const size_t length = text.copy(array, std::min(max_length, kCapacity - 1));
  std::fill(array + length, std::end(array), '\0');
}

// Puts `text`, cut to its room, and a NUL into an array that is too large to be
// cleared for every text.
template <size_t kCapacity>
void PutText(std::string_view text, char (&array)[kCapacity]) {
  array[text.copy(array, kCapacity - 1)] = '\0';
}

}  // namespace quilon

#endif  // QUILON_TEXT_COPY_TEXT_H_
