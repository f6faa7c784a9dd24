#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "adapterapi/records.h"

namespace wifi {

/// printf's text, of any length.
template <class... Arguments>
std::string FormatText(const char* format, Arguments... arguments) {
  const int length = std::snprintf(nullptr, 0, format, arguments...);
  std::string text(static_cast<std::size_t>(length < 0 ? 0 : length), '\0');
  std::snprintf(text.data(), text.size() + 1, format, arguments...);
  return text;
}

/// Six upper-case hexadecimal pairs joined by colons.
inline std::string MacText(const adapterapi::MacAddress& mac) {
  return FormatText("%02X:%02X:%02X:%02X:%02X:%02X", mac[0], mac[1], mac[2], mac[3], mac[4],
                    mac[5]);
}

}  // namespace wifi
