// The module's exported functions and its start-up.

#include <new>
#include <vector>

#include "adapterapi/adapter_api.h"
#include "platform/platform.h"
#include "provider/registration/module_resources.h"
#include "provider/registration/registrar.h"
#include "provider/server/class_factory.h"
#include "provider/server/module_lock.h"

namespace {

HINSTANCE thisModule = nullptr;

/// The full path of this module's file; empty if the platform does not say.
platform::OleString ModulePath() {
  constexpr std::size_t kLongest = 0x8000;
  platform::OleString path(kLongest, OLECHAR{});
  path.resize(GetModuleFileNameW(thisModule, path.data(), kLongest));
  return path.size() == kLongest ? platform::OleString() : path;
}

/// The one fence of the registering exports.
template <class Steps>
HRESULT Fenced(Steps&& steps) {
  try {
    return steps();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

std::vector<wifi::ScriptKey> Script() {
  return wifi::ParseRegistrationScript(wifi::RegistrationScriptText(thisModule));
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    thisModule = module;
    try {
      adapterapi::ImportedAdapterApi().SetLibraryMode(1);
    } catch (...) {
      // The library says so itself once it is asked for its adapters.
    }
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
  return wifi::GetClassFactory(adapterapi::ImportedAdapterApi(), classId, iid, object);
}

STDAPI DllCanUnloadNow() {
  return wifi::ModuleLock::None() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return Fenced([]() -> HRESULT {
    const platform::OleString path = ModulePath();
    if (path.empty()) return E_UNEXPECTED;
    const auto script = Script();
    HRESULT result = wifi::ApplyRegistration(HKEY_CLASSES_ROOT, script, path);
    if (FAILED(result)) return result;
    result = wifi::RegisterTypeLibrary(path);
    // Nothing stays half registered.
    if (FAILED(result)) wifi::RemoveRegistration(HKEY_CLASSES_ROOT, script);
    return result;
  });
}

STDAPI DllUnregisterServer() {
  return Fenced([] {
    const HRESULT library = wifi::UnregisterTypeLibrary();
    const HRESULT keys = wifi::RemoveRegistration(HKEY_CLASSES_ROOT, Script());
    return FAILED(keys) ? keys : library;
  });
}
