#pragma once

#include "platform/bstr.h"
#include "platform/control/control.h"

namespace testing_support {

/// This machine's feature switches during its lifetime, empty at first.
class ProfileSettings {
 public:
  void Set(const OLECHAR* name, DWORD type, const void* data, DWORD size) {
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, OLESTR("SOFTWARE\\ORVEL\\Wireless\\GUIConfiguration"), 0,
                    nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), size);
    RegCloseKey(key);
  }
  void SetNumber(const OLECHAR* name, DWORD value) { Set(name, REG_DWORD, &value, sizeof(value)); }

 private:
  platform::PrivateLocalMachine machine_;
};

}  // namespace testing_support
