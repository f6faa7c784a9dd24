#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace adapterapi {

/// The narrow text at `text`, up to its terminator or `room` bytes, whichever comes first.
inline std::string_view BoundedText(const void* text, std::size_t room) {
  const char* first = static_cast<const char*>(text);
  const void* end = std::memchr(first, '\0', room);
  return {first,
          end == nullptr ? room : static_cast<std::size_t>(static_cast<const char*>(end) - first)};
}

/// The text of a record's field, which may fill it without a terminator.
template <std::size_t Size>
std::string_view BoundedText(const char (&field)[Size]) {
  return BoundedText(field, Size);
}

}  // namespace adapterapi
