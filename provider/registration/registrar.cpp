#include "provider/registration/registrar.h"

#include "platform/registry_key.h"
#include "platform/text.h"

namespace wifi {
namespace {

using platform::OleString;
using platform::RegistryKey;

constexpr LSTATUS kDone = ERROR_SUCCESS;
constexpr LSTATUS kMissing = ERROR_FILE_NOT_FOUND;

OleString Expanded(const std::string& text, const OleString& modulePath) {
  static const OleString kModule = OLESTR("%MODULE%");
  OleString expanded = platform::WideFromUtf8(text);
  const std::size_t position = expanded.find(kModule);
  if (position != OleString::npos) expanded.replace(position, kModule.size(), modulePath);
  return expanded;
}

LSTATUS RemoveTree(HKEY parent, const OleString& name) {
  const LSTATUS removed = RegDeleteTreeW(parent, name.c_str());
  return removed == kMissing ? kDone : removed;
}

LSTATUS Write(HKEY parent, const ScriptKey& key, const OleString& modulePath) {
  const OleString name = platform::WideFromUtf8(key.name);
  LSTATUS result = key.rule == RemovalRule::kWithSubkeys ? RemoveTree(parent, name) : kDone;
  RegistryKey written;
  if (result == kDone) result = written.Create(parent, name);
  if (result == kDone && key.defaultValue) {
    result = written.SetText({}, Expanded(*key.defaultValue, modulePath));
  }
  for (const auto& [valueName, text] : key.values) {
    if (result != kDone) break;
    result = written.SetText(platform::WideFromUtf8(valueName), Expanded(text, modulePath));
  }
  for (const ScriptKey& child : key.keys) {
    if (result != kDone) break;
    result = Write(written.get(), child, modulePath);
  }
  return result;
}

LSTATUS Remove(HKEY parent, const ScriptKey& key) {
  const OleString name = platform::WideFromUtf8(key.name);
  if (key.rule == RemovalRule::kWithSubkeys) return RemoveTree(parent, name);
  RegistryKey open;
  LSTATUS result = open.Open(parent, name, KEY_READ | KEY_WRITE);
  if (result != kDone) return result == kMissing ? kDone : result;
  for (const ScriptKey& child : key.keys) {
    const LSTATUS removed = Remove(open.get(), child);
    if (result == kDone) result = removed;
  }
  const bool keep = key.rule == RemovalRule::kNever || open.HasSubkeys();
  open = RegistryKey();
  if (keep || result != kDone) return result;
  return RegDeleteKeyW(parent, name.c_str());
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

HRESULT ApplyRegistration(HKEY root, const std::vector<ScriptKey>& script,
                          const OleString& modulePath) {
  for (const ScriptKey& key : script) {
    const LSTATUS written = Write(root, key, modulePath);
    if (written == kDone) continue;
    RemoveRegistration(root, script);
    return HRESULT_FROM_WIN32(static_cast<DWORD>(written));
  }
  return S_OK;
}

}  // namespace wifi
