#pragma once

#include "platform/bstr.h"

namespace wifi {

/// Whether two names are the same, ignoring letter case in the user's locale; a missing name is the
/// same as none.
inline bool SameNameIgnoringCase(const OLECHAR* left, const OLECHAR* right) {
  return left != nullptr && right != nullptr &&
         CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, left, -1, right, -1) == CSTR_EQUAL;
}

/// Whether two texts have the same letters, whatever their case: each is folded by itself, and no
/// locale makes one of two or none of one.
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
