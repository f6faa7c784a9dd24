#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/structured_exception.h"

namespace platform {

/// The value of an environment variable, nullopt if it is not set. On Windows the text is UTF-8.
std::optional<std::string> EnvironmentText(const char* name);
/// Whether an environment variable has this value. Out of memory: false.
inline bool EnvironmentIs(const char* name, std::string_view value) noexcept {
  bool is = false;
  Survives([&] { is = EnvironmentText(name) == value; });
  return is;
}
/// Sets an environment variable of this process, for the modules that it loads too.
void SetEnvironmentText(const char* name, const std::string& value);

}  // namespace platform
