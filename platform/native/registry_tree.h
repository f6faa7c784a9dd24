#pragma once
// The registry's contents, and their form as a file.

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

/// Keys and values are found by their names' folded form and keep the spelling they came with.
struct RegistryNode {
  std::u16string name;
  RegistryNode* parent = nullptr;  ///< none for the root and for a key that was deleted
  std::map<std::u16string, std::shared_ptr<RegistryNode>> keys;
  std::map<std::u16string, RegistryValue> values;
};
using RegistryNodeRef = std::shared_ptr<RegistryNode>;

/// The form in which names that differ only in letter case are equal.
std::u16string FoldedName(std::u16string_view name);

/// The child of that name, made if there is none.
RegistryNodeRef MakeChild(const RegistryNodeRef& key, std::u16string_view name);
/// A value that is already there keeps the spelling of its name.
void SetValue(RegistryNode* key, RegistryValue value);

/// Whether the text survives the way to UTF-8 and back, as names in the file must.
bool IsWellFormed(std::u16string_view text);

/// The file's form is JSON in UTF-8: {"registry": 1, "root": KEY}, where a KEY is
/// {"keys": {NAME: KEY}, "values": {NAME: VALUE}} and a VALUE {"text": "..."} (REG_SZ),
/// {"number": 7} (REG_DWORD) or {"type": 3, "bytes": [0, 255]} (whatever else).
std::string WriteRegistry(const RegistryNode& root);
/// The root that the text describes, none if the text is no such file.
RegistryNodeRef ReadRegistry(const std::string& text);

/// Replaces the file as a whole: a reader finds the old contents or the new, never a part.
bool ReplaceFile(const std::string& path, const std::string& contents);

}  // namespace native
