// A reply packet of the printer and the position up to which it was read.
#ifndef QUILON_PROTOCOL_REPLY_H_
#define QUILON_PROTOCOL_REPLY_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quilon {

// The decimal number that `text` begins with. Reads like the standard
// string-to-integer functions and fails like them, too: throws
// std::invalid_argument or std::out_of_range.
int32_t ParseInt32(std::string_view text);

// The views that the readers return are valid until the next packet. Fields are
// separated by CR, "/" or ";". Behind the end every text is empty.
class Reply {
 public:
  // A reply without "\" is given up at this length.
  static constexpr size_t kMaxLength = size_t{1} << 20;

  void Clear();
  void Append(std::string_view bytes) { bytes_.append(bytes); }

  const std::string& bytes() const { return bytes_; }
  bool empty() const { return bytes_.empty(); }

  // Whether `marker` stands at the position or behind it.
  bool HasAhead(std::string_view marker) const {
    return bytes_.find(marker, cursor_) != std::string::npos;
  }

  // Moves behind the next `marker`. Returns false, and does not move, when
  // there is none.
  bool SkipPast(std::string_view marker);

  // The text up to the next separator, which is consumed.
  std::string_view NextField();

  // The text up to the next CR, which is consumed.
  std::string_view NextLine();

  // The text up to the next `marker`, which is consumed; when there is none, an
  // empty text, and the position stays.
  std::string_view TextUpTo(std::string_view marker);

  // A field as a number, -1 when it is empty. Fails like ParseInt32.
  int32_t Int32Field();

  // As Int32Field, with the points of the text left out: "12.34" is 1234.
  int64_t AmountField();

  // The next two bytes as a hexadecimal number; nothing when they are none.
  std::optional<int32_t> HexPair();

 private:
  // The text up to the next byte that ends it, which is consumed.
  template <typename Predicate>
  std::string_view TextUntil(Predicate ends);

  std::string bytes_;
  size_t cursor_ = 0;
};

}  // namespace quilon

#endif  // QUILON_PROTOCOL_REPLY_H_
