#pragma once

#include <algorithm>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace platform {

/// A narrow text of at most `Room` characters, put together in place: it needs no memory, follows
/// no locale, and the compiler knows the type of each part. What goes beyond the room is cut off.
template <std::size_t Room>
class ShortText {
 public:
  ShortText& Add(std::string_view text) {
    const std::size_t added = std::min(text.size(), Room - size_);
    std::copy_n(text.data(), added, text_ + size_);
    size_ += added;
    return *this;
  }
  /// A wide text of ASCII characters.
  template <class Character>
  ShortText& Ascii(const Character* text) {
    for (; *text != 0; ++text) {
      const char character = static_cast<char>(*text);
      Add({&character, 1});
    }
    return *this;
  }
  ShortText& Decimal(std::integral auto number) {
    size_ = EndOf(std::to_chars(text_ + size_, text_ + Room, number));
    return *this;
  }
  /// Upper-case hexadecimal, of that many digits.
  ShortText& Hex(std::uint32_t number, int digits) {
    for (int digit = digits - 1; digit >= 0; --digit) {
      Add({&"0123456789ABCDEF"[number >> 4 * digit & 0xF], 1});
    }
    return *this;
  }
  /// Decimal, of one digit behind the point.
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
