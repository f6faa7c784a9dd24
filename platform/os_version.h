#pragma once

#include "platform/platform.h"

namespace platform {

struct OsVersion {
  DWORD platformId = 0;
  DWORD major = 0;
  DWORD minor = 0;

  bool IsNt() const { return platformId == VER_PLATFORM_WIN32_NT; }
};

/// What GetVersionExA answers now; all zero if it fails.
inline OsVersion QueryOsVersion() {
  OSVERSIONINFOA info = {};
  info.dwOSVersionInfoSize = sizeof(info);
  if (!GetVersionExA(&info)) return {};
  return {info.dwPlatformId, info.dwMajorVersion, info.dwMinorVersion};
}

}  // namespace platform
