#pragma once

#include "platform/platform.h"

namespace wifi {

/// Whether two names are the same, ignoring letter case in the user's locale; a missing name is the
/// same as none.
inline bool SameNameIgnoringCase(const OLECHAR* left, const OLECHAR* right) {
  return left != nullptr && right != nullptr &&
         CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, left, -1, right, -1) == CSTR_EQUAL;
}

}  // namespace wifi
