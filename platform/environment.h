#pragma once

#include <optional>
#include <string>

namespace platform {

/// The value of an environment variable, none if it is not set; on Windows in UTF-8.
std::optional<std::string> EnvironmentText(const char* name);
/// Sets one, for this process and what it loads.
void SetEnvironmentText(const char* name, const std::string& value);

}  // namespace platform
