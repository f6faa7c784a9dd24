#include "platform/com_ptr.h"
#include "provider/registration/module_resources.h"

namespace wifi {
namespace {

constexpr WORD kScriptResource = 102;
constexpr GUID kTypeLibrary = {
    0xA9A3ACD3, 0x02FF, 0x4C28, {0x83, 0x53, 0xF0, 0xFD, 0xFC, 0x66, 0xE0, 0x1A}};

}  // namespace

std::string_view RegistrationScriptText(HINSTANCE module) {
  HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(kScriptResource), L"REGISTRY");
  if (resource == nullptr) return {};
  // Resources need not be freed; they are mapped as long as their module.
  HGLOBAL loaded = LoadResource(module, resource);
  const void* bytes = loaded == nullptr ? nullptr : LockResource(loaded);
  if (bytes == nullptr) return {};
  return {static_cast<const char*>(bytes), SizeofResource(module, resource)};
}

HRESULT RegisterTypeLibrary(const platform::OleString& modulePath) {
  platform::ComPtr<ITypeLib> library;
  return LoadTypeLibEx(modulePath.c_str(), REGKIND_REGISTER, library.put());
}

HRESULT UnregisterTypeLibrary() {
  // Checked first, because UnRegisterTypeLib has different results for a library that is not
  // registered.
  platform::Bstr path;
  if (FAILED(QueryPathOfRegTypeLib(kTypeLibrary, 1, 0, LOCALE_NEUTRAL, path.put()))) return S_OK;
  return UnRegisterTypeLib(kTypeLibrary, 1, 0, LOCALE_NEUTRAL, SYS_WIN64);
}

}  // namespace wifi
