// Builds command frames: ESC "P", parameters, mnemonic, fields, checksum, ESC
// "\". The operations append and chain, so a frame reads like its row in the
// protocol:
//
//     builder.Begin().Parameters("243", record.mode).Raw("$r").End();
#ifndef QUILON_PROTOCOL_FRAME_BUILDER_H_
#define QUILON_PROTOCOL_FRAME_BUILDER_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

#include "src/text/mazovia.h"

namespace quilon {

// The text in a char array of a record or in a literal: up to the first NUL,
// or the whole array when it holds none.
template <size_t kCapacity>
std::string_view TextOf(const char (&array)[kCapacity]) {
  const void* end = std::memchr(array, '\0', kCapacity);
  return {array, end == nullptr ? kCapacity
                                : static_cast<size_t>(
                                      static_cast<const char*>(end) - array)};
}

// Writes into a buffer that belongs to somebody else. Every operation throws
// std::length_error("string too long") rather than let a frame pass 1 MiB.
class FrameBuilder {
 public:
  static constexpr size_t kMaxFrameLength = size_t{1} << 20;

  FrameBuilder(TextEncoding encoding, std::string* buffer)
      : buffer_(*buffer), encoding_(encoding) {}

  // Empties the buffer and begins a frame in it.
  FrameBuilder& Begin();

  FrameBuilder& Char(char byte);
  FrameBuilder& Cr() { return Char('\r'); }
  FrameBuilder& Slash() { return Char('/'); }
  FrameBuilder& Semicolon() { return Char(';'); }

  // Signed decimal.
  FrameBuilder& Int32(int32_t value) { return Int64(value); }
  FrameBuilder& Int64(int64_t value);

  // Hundredths: 1200 is "12", 1205 is "12.05", -150 is "-1.-50".
  FrameBuilder& Amount(int64_t hundredths);
  FrameBuilder& Amount32(int32_t hundredths);

  // Hundred-millionths: 150000000 is "1.50000000". Leading zeros of the
  // fraction are lost: 105000000 is "1.5000000".
  FrameBuilder& Quantity(int64_t hundred_millionths);

  // Bytes as they are.
  FrameBuilder& Raw(std::string_view bytes);
  template <size_t kCapacity>
  FrameBuilder& Raw(const char (&text)[kCapacity]) {
    return Raw(TextOf(text));
  }

  // Bytes as pairs of hexadecimal digits.
  FrameBuilder& UpperHex(std::span<const uint8_t> bytes) {
    return Hex(bytes, "0123456789ABCDEF");
  }
  FrameBuilder& LowerHex(std::span<const uint8_t> bytes) {
    return Hex(bytes, "0123456789abcdef");
  }

  // A text of the application, converted to the printer's code page.
  FrameBuilder& Text(std::string_view text);
  template <size_t kCapacity>
  FrameBuilder& Text(const char (&text)[kCapacity]) {
    return Text(TextOf(text));
  }

  // Converted texts, each closed by CR.
  template <size_t... kCapacities>
  FrameBuilder& TextCr(const char (&... texts)[kCapacities]) {
    (Text(texts).Cr(), ...);
    return *this;
  }

  // As many of `texts` as `count` says, each closed by CR.
  template <size_t kTexts, size_t kCapacity>
  FrameBuilder& TextCrList(const char (&texts)[kTexts][kCapacity],
                           int32_t count = int32_t{kTexts}) {
    for (int32_t i = 0; i < count && i < int32_t{kTexts}; ++i) {
      TextCr(texts[i]);
    }
    return *this;
  }

  // A converted text and its CR; nothing at all for an empty text.
  template <size_t kCapacity>
  FrameBuilder& OptionalTextCr(const char (&text)[kCapacity]) {
    return TextOf(text).empty() ? *this : TextCr(text);
  }

  // Numbers and literals with ";" between them.
  template <typename First, typename... Rest>
  FrameBuilder& Parameters(const First& first, const Rest&... rest) {
    Parameter(first);
    (Semicolon().Parameter(rest), ...);
    return *this;
  }

  // Numbers and arrays of numbers, each number closed by "/".
  template <typename... Numbers>
  FrameBuilder& NumberFields(const Numbers&... numbers) {
    (NumberField(numbers), ...);
    return *this;
  }

  // Bytes as they are, each text closed by "/".
  template <typename... Texts>
  FrameBuilder& RawFields(const Texts&... texts) {
    (Raw(texts).Slash(), ...);
    return *this;
  }

  // Bytes as they are, each text closed by CR.
  template <typename... Texts>
  FrameBuilder& RawLines(const Texts&... texts) {
    (Raw(texts).Cr(), ...);
    return *this;
  }

  // Amounts, each closed by "/".
  template <typename... Amounts>
  FrameBuilder& AmountFields(Amounts... amounts) {
    (Amount(amounts).Slash(), ...);
    return *this;
  }

  // As many of `amounts` as `count` says, each closed by "/".
  template <size_t kAmounts>
  FrameBuilder& AmountFieldList(const int64_t (&amounts)[kAmounts],
                                int32_t count = int32_t{kAmounts}) {
    for (int32_t i = 0; i < count && i < int32_t{kAmounts}; ++i) {
      AmountFields(amounts[i]);
    }
    return *this;
  }

  // The XOR of all bytes behind ESC "P", begun with 0xFF, as two lower-case
  // hexadecimal digits; nothing in a buffer of fewer than two bytes.
  FrameBuilder& Checksum();

  // Ends the frame with its checksum.
  FrameBuilder& End() { return Checksum().EndWithoutChecksum(); }

  // Ends a frame of a command that carries no checksum.
  FrameBuilder& EndWithoutChecksum();

  const std::string& bytes() const { return buffer_; }

 private:
  void CheckRoom(size_t length) const;
  FrameBuilder& Hex(std::span<const uint8_t> bytes, std::string_view digits);

  FrameBuilder& Parameter(int32_t value) { return Int32(value); }
  template <size_t kCapacity>
  FrameBuilder& Parameter(const char (&text)[kCapacity]) {
    return Raw(text);
  }

  template <typename Integer>
  void NumberField(Integer number) {
    Int64(static_cast<int64_t>(number)).Slash();
  }
  template <size_t kCount>
  void NumberField(const int32_t (&numbers)[kCount]) {
    for (const int32_t number : numbers) {
      NumberField(number);
    }
  }

  std::string& buffer_;
  TextEncoding encoding_;
};

}  // namespace quilon

#endif  // QUILON_PROTOCOL_FRAME_BUILDER_H_
