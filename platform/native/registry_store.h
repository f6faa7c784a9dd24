#pragma once
// The one registry of the process: which key a handle stands for, and the file that keeps it.

#include <map>
#include <mutex>
#include <set>
#include <string>

#include "platform/native/registry_tree.h"

namespace native {

// What RegOpenKeyEx hands out; a key may be open more than once.
struct OpenKey {
  RegistryNodeRef key;
};

/// Every operation is called with the lock held.
class Registry {
 public:
  static Registry& Instance();

  std::mutex lock;

  /// The key behind a handle; the code of the failure otherwise.
  LSTATUS Find(HKEY handle, RegistryNodeRef* key);
  /// The key below `key`, none if there is none and it is not to be made. Empty parts of the path
  /// count for nothing.
  static RegistryNodeRef Descend(RegistryNodeRef key, std::u16string_view path, bool make);

  HKEY Open(RegistryNodeRef key);
  LSTATUS Close(HKEY handle);
  /// Makes a predefined key stand for another one; none puts its own back.
  LSTATUS Override(HKEY handle, RegistryNodeRef key);

  /// Empties a key; open handles of what was below it say from then on that it is deleted.
  static void Clear(RegistryNode* key);
  static void Delete(RegistryNode* key);

  /// Ends a change: writes the file, if there is one.
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
