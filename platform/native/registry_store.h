#pragma once
// The registry of the process: maps handles to keys, and keeps the contents in a file.

#include <map>
#include <mutex>
#include <set>
#include <string>

#include "platform/native/registry_tree.h"

namespace native {

// What the handle of RegOpenKeyEx points to. A key may be open more than once.
struct OpenKey {
  RegistryNodeRef key;
};

/// The caller of any operation holds `lock`.
class Registry {
 public:
  static Registry& Instance();

  std::mutex lock;

  /// Finds the key of a handle. Returns an error code if there is no such key.
  LSTATUS Find(HKEY handle, RegistryNodeRef* key);
  /// The key at `path` below `key`. If it does not exist, it is created with `make`, else the
  /// result is null. Empty parts of the path are skipped.
  static RegistryNodeRef Descend(RegistryNodeRef key, std::u16string_view path, bool make);

  HKEY Open(RegistryNodeRef key);
  LSTATUS Close(HKEY handle);
  /// Makes a predefined handle refer to another key. null restores its own key.
  LSTATUS Override(HKEY handle, RegistryNodeRef key);

  /// Empties a key. Calls with open handles of its subkeys return ERROR_KEY_DELETED from then on.
  static void Clear(RegistryNode* key);
  static void Delete(RegistryNode* key);

  /// Called after each change: writes the file, if there is one.
  LSTATUS Save();
  bool KeepIn(const std::string& path);
  void Reset(RegistryNodeRef root);

 private:
  bool IsDeleted(const RegistryNode& key) const;

  RegistryNodeRef root_ = std::make_shared<RegistryNode>();
  std::set<OpenKey*> open_;
  std::map<HKEY, RegistryNodeRef> overrides_;
  std::string path_;
};

}  // namespace native
