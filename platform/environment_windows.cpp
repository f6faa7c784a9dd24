#include "platform/environment.h"
#include "platform/text.h"

namespace platform {

std::optional<std::string> EnvironmentText(const char* name) {
  const std::wstring wideName = WideText(name);
  std::wstring value;
  DWORD size = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
  if (size == 0) return std::nullopt;
  // Another thread may make the value longer between the calls; the call then returns the new size.
  while (size > value.size()) {
    value.resize(size);
    size = GetEnvironmentVariableW(wideName.c_str(), value.data(), size);
  }
  value.resize(size);
  return Utf8Text(value);
}

void SetEnvironmentText(const char* name, const std::string& value) {
  SetEnvironmentVariableW(WideText(name).c_str(), WideFromUtf8(value).c_str());
}

}  // namespace platform
