#include "provider/registration/registrar.h"

#include "platform/registry_key.h"

namespace wifi {
namespace {

using platform::OleString;
using platform::RegistryKey;

constexpr LSTATUS kDone = ERROR_SUCCESS;
constexpr LSTATUS kMissing = ERROR_FILE_NOT_FOUND;

LSTATUS RemoveTree(HKEY parent, const OleString& name) {
  const LSTATUS removed = RegDeleteTreeW(parent, name.c_str());
  return removed == kMissing ? kDone : removed;
}

LSTATUS Write(HKEY parent, const ScriptKey& key) {
  LSTATUS result = key.rule == RemovalRule::kWithSubkeys ? RemoveTree(parent, key.name) : kDone;
  RegistryKey written;
  if (result == kDone) result = written.Create(parent, key.name);
  if (result == kDone && key.defaultValue) result = written.SetText({}, *key.defaultValue);
  for (const auto& [valueName, text] : key.values) {
    if (result != kDone) break;
    result = written.SetText(valueName, text);
  }
  for (const ScriptKey& child : key.keys) {
    if (result != kDone) break;
    result = Write(written.get(), child);
  }
  return result;
}

LSTATUS Remove(HKEY parent, const ScriptKey& key) {
  if (key.rule == RemovalRule::kWithSubkeys) return RemoveTree(parent, key.name);
  RegistryKey open;
  LSTATUS result = open.Open(parent, key.name, KEY_READ | KEY_WRITE);
  if (result != kDone) return result == kMissing ? kDone : result;
  for (const ScriptKey& child : key.keys) {
    const LSTATUS removed = Remove(open.get(), child);
    if (result == kDone) result = removed;
  }
  const bool keep = key.rule == RemovalRule::kNever || open.HasSubkeys();
  open = RegistryKey();
  if (keep || result != kDone) return result;
  return RegDeleteKeyW(parent, key.name.c_str());
}

}  // namespace

HRESULT RemoveRegistration(HKEY root, const std::vector<ScriptKey>& script) {
  LSTATUS result = kDone;
  for (const ScriptKey& key : script) {
    const LSTATUS removed = Remove(root, key);
    if (result == kDone) result = removed;
  }
  return HRESULT_FROM_WIN32(static_cast<DWORD>(result));
}

HRESULT ApplyRegistration(HKEY root, const std::vector<ScriptKey>& script) {
  for (const ScriptKey& key : script) {
    const LSTATUS written = Write(root, key);
    if (written == kDone) continue;
    RemoveRegistration(root, script);
    return HRESULT_FROM_WIN32(static_cast<DWORD>(written));
  }
  return S_OK;
}

}  // namespace wifi
