#pragma once

#include <optional>
#include <string>

#include "platform/platform.h"

namespace platform {

/// The value of an environment variable, none if it is not set.
inline std::optional<std::string> EnvironmentText(const char* name) {
  std::string value;
  DWORD size = GetEnvironmentVariableA(name, nullptr, 0);
  if (size == 0) return std::nullopt;
  // Another thread may make the value longer in between; then the answer is the new size.
  while (size > value.size()) {
    value.resize(size);
    size = GetEnvironmentVariableA(name, value.data(), size);
  }
  value.resize(size);
  return value;
}

}  // namespace platform
