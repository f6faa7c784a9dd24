#pragma once

#include "platform/control/control.h"

namespace testing_support {

/// During its lifetime the version query of this program returns NT 5 instead of 6.1, so that no
/// property is left out.
class OsVersionNotNt6 {
 public:
  explicit OsVersionNotNt6(DWORD minor = 1) { platform::SetOsVersion(nullptr, 5, minor); }
  OsVersionNotNt6(const OsVersionNotNt6&) = delete;
  OsVersionNotNt6& operator=(const OsVersionNotNt6&) = delete;
  ~OsVersionNotNt6() { platform::SetOsVersion(nullptr, 6, 1); }
};

}  // namespace testing_support
