#pragma once

#include "platform/native/types.h"

namespace native {

/// The upper-case form of a letter of code page 1252. Every other code unit is returned unchanged.
constexpr OLECHAR Capital(OLECHAR unit) {
  if ((unit >= u'a' && unit <= u'z') || (unit >= 0xE0 && unit <= 0xFE && unit != 0xF7)) {
    return static_cast<OLECHAR>(unit - 0x20);
  }
  switch (unit) {
    case 0xFF:
      return 0x178;
    case 0x153:
    case 0x161:
    case 0x17E:
      return static_cast<OLECHAR>(unit - 1);
    default:
      return unit;
  }
}

}  // namespace native
