#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/structured_exception.h"

namespace platform {

/// The value of an environment variable, none if it is not set; on Windows in UTF-8.
std::optional<std::string> EnvironmentText(const char* name);
/// Whether one has this value; false without memory to see.
inline bool EnvironmentIs(const char* name, std::string_view value) noexcept {
  bool is = false;
  Survives([&] { is = EnvironmentText(name) == value; });
  return is;
}
/// Sets one, for this process and what it loads.
void SetEnvironmentText(const char* name, const std::string& value);

}  // namespace platform
