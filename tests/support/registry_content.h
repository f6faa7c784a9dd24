#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "platform/registry_key.h"
#include "platform/text.h"

namespace testing_support {

/// Maps "\\KEY\\SUBKEY[@VALUE]" to its text, for everything below a key; keys without a value have
/// "".
using RegistryContent = std::map<std::string, std::string>;

inline void CollectRegistry(HKEY key, const std::string& path, RegistryContent& content) {
  for (const OLECHAR* name : {OLESTR(""), OLESTR("Model"), OLESTR("ThreadingModel")}) {
    OLECHAR text[1024];
    DWORD size = sizeof(text);
    if (RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size) == 0) {
      const std::string suffix = *name == OLECHAR{} ? "" : "@" + platform::Utf8Text(name);
      content[path + suffix] = platform::Utf8Text(text);
    }
  }
  OLECHAR name[256];
  DWORD length = 256;
  for (DWORD index = 0;
       RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) == 0;
       ++index, length = 256) {
    platform::RegistryKey child;
    ASSERT_EQ(child.Open(key, name, KEY_READ), LSTATUS{0});
    const std::string childPath = path + "\\" + platform::Utf8Text(name);
    content[childPath];
    CollectRegistry(child.get(), childPath, content);
  }
}

inline RegistryContent ContentOf(HKEY key) {
  RegistryContent content;
  CollectRegistry(key, "", content);
  return content;
}

}  // namespace testing_support
