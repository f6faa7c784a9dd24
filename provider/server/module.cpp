// The exported functions of the module and its entry point.

#include <vector>

#include "adapterapi/adapter_api.h"
#include "platform/bstr.h"
#include "platform/structured_exception.h"
#include "provider/registration/module_resources.h"
#include "provider/registration/registrar.h"
#include "provider/server/class_factory.h"
#include "provider/server/module_lock.h"

namespace {

HINSTANCE thisModule = nullptr;

/// The full path of the module's file; empty if the platform does not give it.
platform::OleString ModulePath() {
  constexpr std::size_t kLongest = 0x8000;
  platform::OleString path(kLongest, OLECHAR{});
  path.resize(GetModuleFileNameW(thisModule, path.data(), kLongest));
  return path.size() == kLongest ? platform::OleString() : path;
}

std::vector<wifi::ScriptKey> Script(const platform::OleString& modulePath) {
  return wifi::ParseRegistrationScript(wifi::RegistrationScriptText(thisModule), modulePath);
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    thisModule = module;
    // A failure is ignored: the library reports it when it is asked for its adapters.
    platform::Survives(
        [] { adapterapi::ImportedAdapterApi().SetLibraryMode(adapterapi::FixedNumber{1}); });
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
  return wifi::GetClassFactory(adapterapi::ImportedAdapterApi(), classId, iid, object);
}

STDAPI DllCanUnloadNow() {
  return platform::AnswerFenced([] { return wifi::ModuleLock::None() ? S_OK : S_FALSE; });
}

STDAPI DllRegisterServer() {
  return platform::AnswerFenced([]() -> HRESULT {
    const platform::OleString path = ModulePath();
    if (path.empty()) return E_UNEXPECTED;
    const auto script = Script(path);
    HRESULT result = wifi::ApplyRegistration(HKEY_CLASSES_ROOT, script);
    if (FAILED(result)) return result;
    result = wifi::RegisterTypeLibrary(path);
    // Undo the first half: the module is registered completely or not at all.
    if (FAILED(result)) wifi::RemoveRegistration(HKEY_CLASSES_ROOT, script);
    return result;
  });
}

STDAPI DllUnregisterServer() {
  return platform::AnswerFenced([] {
    const auto script = Script({});  // first, because it may run out of memory
    const HRESULT library = wifi::UnregisterTypeLibrary();
    const HRESULT keys = wifi::RemoveRegistration(HKEY_CLASSES_ROOT, script);
    return FAILED(keys) ? keys : library;
  });
}
