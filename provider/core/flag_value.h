#pragma once

#include <cstdint>
#include <optional>

#include "platform/platform.h"

namespace wifi {

/// The flag in a client's value: the low 16 bits of a boolean or integer, unconverted; zero is off.
/// nullopt for any other type.
inline std::optional<std::uint16_t> FlagBits(const VARIANT& value) {
  switch (value.vt) {
    case VT_BOOL:
      return static_cast<std::uint16_t>(value.boolVal);
    case VT_UI1:
      return value.bVal;
    case VT_I2:
    case VT_UI2:
      return value.uiVal;
    case VT_I4:
    case VT_UI4:
      return static_cast<std::uint16_t>(value.ulVal);
    default:
      return std::nullopt;
  }
}

}  // namespace wifi
