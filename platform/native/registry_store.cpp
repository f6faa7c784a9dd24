#include "platform/native/registry_store.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <sstream>
#include <utility>

#include "platform/native/letter_case.h"

namespace native {
namespace {

struct PredefinedKey {
  HKEY handle;
  std::u16string_view path;
};
const PredefinedKey kPredefinedKeys[] = {
    {HKEY_CLASSES_ROOT, u"HKEY_LOCAL_MACHINE\\Software\\Classes"},
    {HKEY_CURRENT_USER, u"HKEY_CURRENT_USER"},
    {HKEY_LOCAL_MACHINE, u"HKEY_LOCAL_MACHINE"},
};

// The predefined key of this handle; nullptr for any other handle.
const PredefinedKey* Predefined(HKEY handle) {
  for (const PredefinedKey& key : kPredefinedKeys) {
    if (key.handle == handle) return &key;
  }
  return nullptr;
}

}  // namespace

std::u16string FoldedName(std::u16string_view name) {
  std::u16string folded(name);
  std::transform(folded.begin(), folded.end(), folded.begin(), Capital);
  return folded;
}

RegistryNodeRef MakeChild(const RegistryNodeRef& key, std::u16string_view name) {
  std::u16string folded = FoldedName(name);
  if (const auto found = key->keys.find(folded); found != key->keys.end()) return found->second;
  auto child = std::make_shared<RegistryNode>();
  child->name = name;
  child->parent = key.get();
  key->keys.emplace(std::move(folded), child);  // last: if memory runs out, nothing is half made
  return child;
}

void SetValue(RegistryNode* key, RegistryValue value) {
  RegistryValue& place = key->values[FoldedName(value.name)];
  if (!place.name.empty()) value.name = place.name;
  place = std::move(value);
}

Registry& Registry::Instance() {
  // Never destroyed, because modules close keys even while they are unloaded.
  static auto* registry = new Registry;
  return *registry;
}

LSTATUS Registry::Find(HKEY handle, RegistryNodeRef* key) {
  if (const PredefinedKey* predefined = Predefined(handle)) {
    const auto replaced = overrides_.find(handle);
    *key = replaced == overrides_.end() ? Descend(root_, predefined->path, true) : replaced->second;
  } else {
    const auto open = open_.find(reinterpret_cast<OpenKey*>(handle));
    if (open == open_.end()) return ERROR_INVALID_HANDLE;
    *key = (*open)->key;
  }
  if (IsDeleted(**key)) return ERROR_KEY_DELETED;
  return ERROR_SUCCESS;
}

RegistryNodeRef Registry::Descend(RegistryNodeRef key, std::u16string_view path, bool make) {
  while (key != nullptr && !path.empty()) {
    const std::size_t end = std::min(path.find(u'\\'), path.size());
    const std::u16string_view name = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (name.empty()) continue;
    if (make) {
      key = MakeChild(key, name);
    } else {
      const auto child = key->keys.find(FoldedName(name));
      key = child == key->keys.end() ? nullptr : child->second;
    }
  }
  return key;
}

HKEY Registry::Open(RegistryNodeRef key) {
  auto open = std::make_unique<OpenKey>(OpenKey{std::move(key)});
  open_.insert(open.get());
  return reinterpret_cast<HKEY>(open.release());
}

LSTATUS Registry::Close(HKEY handle) {
  if (Predefined(handle) != nullptr) return ERROR_SUCCESS;
  auto* open = reinterpret_cast<OpenKey*>(handle);
  if (open_.erase(open) == 0) return ERROR_INVALID_HANDLE;
  delete open;
  return ERROR_SUCCESS;
}

LSTATUS Registry::Override(HKEY handle, RegistryNodeRef key) {
  if (Predefined(handle) == nullptr) return ERROR_INVALID_HANDLE;
  overrides_.erase(handle);
  if (key != nullptr) overrides_.emplace(handle, std::move(key));
  return ERROR_SUCCESS;
}

void Registry::Clear(RegistryNode* key) {
  for (const auto& [folded, child] : key->keys) {
    Clear(child.get());
    child->parent = nullptr;
  }
  key->keys.clear();
  key->values.clear();
}

void Registry::Delete(RegistryNode* key) {
  Clear(key);
  // Erasing the key may destroy it, so its name is copied first.
  const std::u16string folded = FoldedName(key->name);
  if (RegistryNode* parent = std::exchange(key->parent, nullptr)) parent->keys.erase(folded);
}

LSTATUS Registry::Save() {
  if (path_.empty() || ReplaceFile(path_, WriteRegistry(*root_))) return ERROR_SUCCESS;
  return ERROR_REGISTRY_IO_FAILED;
}

bool Registry::KeepIn(const std::string& path) {
  RegistryNodeRef read;
  errno = 0;
  if (std::ifstream file(path, std::ios::binary); file) {
    std::ostringstream contents;
    contents << file.rdbuf();
    read = file.bad() ? nullptr : ReadRegistry(contents.str());
    if (read == nullptr) return false;
  } else if (errno != ENOENT) {
    return false;
  }
  if (!ReplaceFile(path, WriteRegistry(read == nullptr ? *root_ : *read))) return false;
  if (read != nullptr) Reset(std::move(read));
  path_ = path;
  return true;
}

void Registry::Reset(RegistryNodeRef root) {
  path_.clear();
  overrides_.clear();
  Clear(root_.get());
  root_ = std::move(root);
}

bool Registry::IsDeleted(const RegistryNode& key) const {
  return key.parent == nullptr && &key != root_.get();
}

}  // namespace native
