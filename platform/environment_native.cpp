#include "platform/environment.h"
#include "platform/platform.h"

namespace platform {

std::optional<std::string> EnvironmentText(const char* name) {
  std::string value;
  DWORD size = GetEnvironmentVariableA(name, nullptr, 0);
  if (size == 0) return std::nullopt;
  // Another thread may make the value longer between the calls; the call then returns the new size.
  while (size > value.size()) {
    value.resize(size);
    size = GetEnvironmentVariableA(name, value.data(), size);
  }
  value.resize(size);
  return value;
}

void SetEnvironmentText(const char* name, const std::string& value) {
  SetEnvironmentVariableA(name, value.c_str());
}

}  // namespace platform
