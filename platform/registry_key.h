#pragma once

#include <optional>
#include <utility>

#include "platform/bstr.h"

namespace platform {

/// Owns an open registry key. Results are the error codes of the system, 0 for success.
class RegistryKey {
 public:
  RegistryKey() noexcept = default;
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
  RegistryKey& operator=(RegistryKey other) noexcept {
    std::swap(key_, other.key_);
    return *this;
  }
  ~RegistryKey() {
    if (key_ != nullptr) RegCloseKey(key_);
  }

  HKEY get() const noexcept { return key_; }

  LSTATUS Create(HKEY parent, const OleString& name) {
    return RegCreateKeyExW(parent, name.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                           KEY_READ | KEY_WRITE, nullptr, put(), nullptr);
  }
  LSTATUS Open(HKEY parent, const OleString& name, REGSAM access) {
    return RegOpenKeyExW(parent, name.c_str(), 0, access, put());
  }
  LSTATUS Open(HKEY parent, const char* ansiName, REGSAM access) {
    return RegOpenKeyExA(parent, ansiName, 0, access, put());
  }
  /// Writes a text value. An empty name means the default value of the key.
  LSTATUS SetText(const OleString& name, const OleString& text) {
    return RegSetValueExW(key_, name.empty() ? nullptr : name.c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>((text.size() + 1) * sizeof(OLECHAR)));
  }
  /// The text of a value; nullopt if there is no such value or its type is not REG_SZ.
  std::optional<OleString> Text(const OleString& name) const {
    DWORD type = 0;
    DWORD size = 0;
    const OLECHAR* valueName = name.empty() ? nullptr : name.c_str();
    if (RegQueryValueExW(key_, valueName, nullptr, &type, nullptr, &size) != 0 || type != REG_SZ) {
      return std::nullopt;
    }
    OleString text(size / sizeof(OLECHAR), OLECHAR{});
    if (RegQueryValueExW(key_, valueName, nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()),
                         &size) != 0) {
      return std::nullopt;
    }
    return OleString(text.c_str());  // without its terminator
  }
  LSTATUS SetNumber(const OleString& name, DWORD number) {
    return RegSetValueExW(key_, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                          sizeof(number));
  }
  /// A REG_DWORD, or a REG_BINARY of four bytes read in little-endian order; nullopt for anything
  /// else.
  std::optional<DWORD> Number(const char* ansiName) const {
    DWORD number = 0;
    DWORD size = sizeof(number);
    DWORD type = 0;
    const LSTATUS status =
        RegQueryValueExA(key_, ansiName, nullptr, &type, reinterpret_cast<BYTE*>(&number), &size);
    const bool isNumber = type == REG_DWORD || type == REG_BINARY;
    if (status != 0 || !isNumber || size != sizeof(number)) return std::nullopt;
    return number;
  }
  bool HasSubkeys() const {
    OLECHAR name[256];
    DWORD length = 256;
    return RegEnumKeyExW(key_, 0, name, &length, nullptr, nullptr, nullptr, nullptr) ==
           static_cast<LSTATUS>(ERROR_SUCCESS);
  }

 private:
  HKEY* put() noexcept {
    if (HKEY open = std::exchange(key_, nullptr)) RegCloseKey(open);
    return &key_;
  }

  HKEY key_ = nullptr;
};

}  // namespace platform
