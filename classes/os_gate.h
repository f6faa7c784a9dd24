#pragma once

#include "platform/os_version.h"

namespace wifi {

/// Whether GetVersionExA reports NT major version 6, on which some adapter properties are neither
/// read nor written. Not cached.
inline bool IsNtVersion6() {
  const platform::OsVersion version = platform::QueryOsVersion();
  return version.IsNt() && version.major == 6;
}

}  // namespace wifi
