#pragma once

#include "platform/os_version.h"

namespace wifi {

/// Whether the platform calls itself NT major version 6, where some adapter properties are neither
/// read nor written. Asked afresh at every gate.
inline bool IsNtVersion6() {
  const platform::OsVersion version = platform::QueryOsVersion();
  return version.IsNt() && version.major == 6;
}

}  // namespace wifi
