#pragma once

#include "platform/bstr.h"

namespace wifi {

/// Whether two names are equal in the user's locale, ignoring letter case. A null name equals no
/// name.
inline bool SameNameIgnoringCase(const OLECHAR* left, const OLECHAR* right) {
  return left != nullptr && right != nullptr &&
         CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, left, -1, right, -1) == CSTR_EQUAL;
}

/// Equal after upper-casing each character. Locale-independent: no character expands, merges or
/// vanishes.
inline bool EqualIgnoringCase(platform::OleString left, platform::OleString right) {
  for (platform::OleString* text : {&left, &right}) {
    const auto length = static_cast<int>(text->size());
    if (length > 0) {
      LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, text->data(), length, text->data(), length);
    }
  }
  return left == right;
}

}  // namespace wifi
