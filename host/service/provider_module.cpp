#include "host/service/provider_module.h"

#include "host/os/os.h"
#include "host/service/result_codes.h"
#include "platform/registry_key.h"
#include "platform/text.h"

namespace host {
namespace {

constexpr CLSID kProviderClass = {
    0x3B14BAD6, 0xC364, 0x4576, {0x82, 0x71, 0x39, 0xB5, 0x85, 0x0A, 0xBD, 0xA8}};
constexpr const OLECHAR* kServerKey =
    OLESTR("CLSID\\{3B14BAD6-C364-4576-8271-39B5850ABDA8}\\InprocServer32");

template <class Function>
Function Export(HMODULE module, const char* name) {
  // Through void (*)(): the one function type that every other may be cast to and from.
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

using GetClassObjectFunction = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
using ResultFunction = HRESULT(STDAPICALLTYPE*)();

HMODULE Load(const std::string& path) {
  const HMODULE module = os::LoadModule(path);
  if (module == nullptr) {
    throw ModuleError("the module '" + path + "' cannot be loaded: system error " +
                      std::to_string(GetLastError()));
  }
  return module;
}

std::string RegisteredPath() {
  platform::RegistryKey key;
  std::optional<platform::OleString> path;
  if (key.Open(HKEY_CLASSES_ROOT, kServerKey, KEY_READ) == 0) path = key.Text({});
  if (!path) throw ModuleError("the provider's class is not registered");
  return platform::Utf8Text(*path);
}

}  // namespace

void LoadClosedLibraries(const std::string& folder) {
  // They stay until the process ends: the module's imports are bound to them.
  for (const char* name : {"QuarnApi", "TolvaApi"}) Load(folder + "/" + os::LibraryFile(name));
}

ProviderModule::ProviderModule(const std::string& path, bool loadedByCom)
    : path_(path), loadedByCom_(loadedByCom), module_(loadedByCom ? nullptr : Load(path)) {}

ProviderModule::ProviderModule(const std::string& path) : ProviderModule(path, false) {}

ProviderModule ProviderModule::Registered() {
  return ProviderModule(RegisteredPath(), os::HasComRegistration());
}

ProviderModule::~ProviderModule() {
  if (module_ != nullptr) FreeLibrary(module_);
}

HMODULE ProviderModule::handle() const {
  return loadedByCom_ ? os::LoadedModule(path_) : module_;
}

platform::ComPtr<IClassFactory> ProviderModule::Factory() const {
  platform::ComPtr<IClassFactory> factory;
  HRESULT result = S_OK;
  if (loadedByCom_) {
    result = os::RegisteredClassFactory(kProviderClass, factory.put());
  } else {
    const auto getClassObject = Export<GetClassObjectFunction>(module_, "DllGetClassObject");
    if (getClassObject == nullptr) {
      throw ModuleError("the module '" + path_ + "' does not export DllGetClassObject");
    }
    result = getClassObject(kProviderClass, IID_IClassFactory, factory.put_void());
  }
  if (FAILED(result) || !factory) {
    throw ModuleError("the module '" + path_ +
                      "' gives no class factory: " + DescribeResult(result));
  }
  return factory;
}

void ProviderModule::CheckUnloadable(Defects& defects) const {
  if (const HRESULT result = CallExport("DllCanUnloadNow"); result != S_OK) {
    defects.Add("DllCanUnloadNow gives " + DescribeResult(result) +
                " although everything is released");
  }
  if (!loadedByCom_) return;
  os::UnloadUnusedModules();
  if (handle() != nullptr) defects.Add("the module stays loaded although nothing of it is needed");
}

HRESULT ProviderModule::CallExport(const char* name) const {
  const auto function = Export<ResultFunction>(handle(), name);
  if (function == nullptr) {
    throw ModuleError("the module '" + path_ + "' does not export " + name);
  }
  return function();
}

HRESULT ProviderModule::Register() const {
  return CallExport("DllRegisterServer");
}
HRESULT ProviderModule::Unregister() const {
  return CallExport("DllUnregisterServer");
}

}  // namespace host
