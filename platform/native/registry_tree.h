#pragma once
// The contents of the registry, and their file format.

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/native/system.h"

namespace native {

struct RegistryValue {
  std::u16string name;
  DWORD type = 0;
  std::vector<BYTE> data;
};

/// The maps are indexed by the folded names. Keys and values keep the spelling that they were
/// created with.
struct RegistryNode {
  std::u16string name;
  RegistryNode* parent = nullptr;  ///< null for the root and for a deleted key
  std::map<std::u16string, std::shared_ptr<RegistryNode>> keys;
  std::map<std::u16string, RegistryValue> values;
};
using RegistryNodeRef = std::shared_ptr<RegistryNode>;

/// The upper-case form, equal for names that differ only in letter case.
std::u16string FoldedName(std::u16string_view name);

/// The child with this name, created if it does not exist.
RegistryNodeRef MakeChild(const RegistryNodeRef& key, std::u16string_view name);
/// Sets or replaces a value. An existing value keeps the spelling of its name.
void SetValue(RegistryNode* key, RegistryValue value);

/// Whether the text is unchanged after conversion to UTF-8 and back, as names in the file must be.
bool IsWellFormed(std::u16string_view text);

/// The file format is JSON in UTF-8: {"registry": 1, "root": KEY}, where a KEY is
/// {"keys": {NAME: KEY}, "values": {NAME: VALUE}} and a VALUE {"text": "..."} (REG_SZ),
/// {"number": 7} (REG_DWORD) or {"type": 3, "bytes": [0, 255]} (all other data).
std::string WriteRegistry(const RegistryNode& root);
/// Reads the file format; null if the text is not in it.
RegistryNodeRef ReadRegistry(const std::string& text);

/// Replaces the file atomically: a reader sees the old contents or the new, never a part. Returns
/// false if it cannot be written.
bool ReplaceFile(const std::string& path, const std::string& contents);

}  // namespace native
