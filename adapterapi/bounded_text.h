#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace adapterapi {

/// The narrow text at `text`, which ends at its terminator or after `room` bytes.
inline std::string_view BoundedText(const void* text, std::size_t room) {
  const char* first = static_cast<const char*>(text);
  const void* end = std::memchr(first, '\0', room);
  return {first,
          end == nullptr ? room : static_cast<std::size_t>(static_cast<const char*>(end) - first)};
}

/// The text in a field of a record. A text that fills the field has no terminator.
template <std::size_t Size>
std::string_view BoundedText(const char (&field)[Size]) {
  return BoundedText(field, Size);
}

}  // namespace adapterapi
