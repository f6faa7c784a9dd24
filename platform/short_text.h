#pragma once

#include <algorithm>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace platform {

/// A narrow text of at most `Room` characters, built in place: no heap, no locale, and every part
/// is type-checked. Characters beyond `Room` are cut off.
///
///     ShortText<32>().Add("Number of Adapter:").Decimal(2).c_str()  // "Number of Adapter:2"
template <std::size_t Room>
class ShortText {
 public:
  ShortText& Add(std::string_view text) {
    const std::size_t added = std::min(text.size(), Room - size_);
    std::copy_n(text.data(), added, text_ + size_);
    size_ += added;
    return *this;
  }
  ShortText& Add(char character) {
    if (size_ < Room) text_[size_++] = character;
    return *this;
  }
  /// Adds a wide text, which must be ASCII.
  template <class Character>
  ShortText& Ascii(const Character* text) {
    for (; *text != 0; ++text) Add(static_cast<char>(*text));
    return *this;
  }
  ShortText& Decimal(std::integral auto number) {
    size_ = EndOf(std::to_chars(text_ + size_, text_ + Room, number));
    return *this;
  }
  /// Adds `number` in upper-case hexadecimal, with exactly `digits` digits.
  ShortText& Hex(std::uint32_t number, int digits) {
    for (int digit = digits - 1; digit >= 0; --digit) {
      Add("0123456789ABCDEF"[number >> 4 * digit & 0xF]);
    }
    return *this;
  }
  /// Adds `number` in decimal with one digit after the point.
  ShortText& Tenths(double number) {
    size_ = EndOf(std::to_chars(text_ + size_, text_ + Room, number, std::chars_format::fixed, 1));
    return *this;
  }

  operator std::string_view() const { return {text_, size_}; }
  const char* c_str() const { return text_; }

 private:
  std::size_t EndOf(std::to_chars_result result) const {
    return result.ec == std::errc() ? static_cast<std::size_t>(result.ptr - text_) : size_;
  }

  char text_[Room + 1] = {};
  std::size_t size_ = 0;
};

}  // namespace platform
