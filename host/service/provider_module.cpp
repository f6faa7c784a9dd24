#include "host/service/provider_module.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "host/os/os.h"
#include "host/service/result_text.h"
#include "platform/registry_key.h"
#include "platform/text.h"

namespace host {
namespace {

/// The identifier in a text of the form {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}.
CLSID ParseClassId(const std::string& text) {
  unsigned long first = 0;
  unsigned bytes[10] = {};
  int end = 0;
  const int read = std::sscanf(text.c_str(), "{%8lx-%4x-%4x-%2x%2x-%2x%2x%2x%2x%2x%2x}%n", &first,
                               &bytes[0], &bytes[1], &bytes[2], &bytes[3], &bytes[4], &bytes[5],
                               &bytes[6], &bytes[7], &bytes[8], &bytes[9], &end);
  if (read != 11 || end != 38 || text.size() != 38) {
    throw ModuleError("the schema's '" + text + "' is no class identifier");
  }
  CLSID id = {
      static_cast<DWORD>(first), static_cast<WORD>(bytes[0]), static_cast<WORD>(bytes[1]), {}};
  std::copy(std::begin(bytes) + 2, std::end(bytes), id.Data4);
  return id;
}

template <class Function>
Function Export(HMODULE module, const char* name) {
  // Through void (*)(), the one function type that every other may be cast to and from.
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

using GetClassObjectFunction = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
using ResultFunction = HRESULT(STDAPICALLTYPE*)();

HMODULE Load(const std::string& path) {
  const HMODULE module = os::LoadModule(path);
  if (module == nullptr) {
    throw ModuleError("the module '" + path + "' cannot be loaded: " + os::LoadProblem(path));
  }
  return module;
}

}  // namespace

void LoadClosedLibraries(const std::string& folder) {
  // They stay loaded until the process ends, because the module's imports are bound to them.
  for (const char* name : {"QuarnApi", "TolvaApi"}) Load(folder + "/" + os::LibraryFile(name));
}

ProviderModule::ProviderModule(const std::string& path, bool loadedByCom)
    : path_(path), loadedByCom_(loadedByCom), module_(loadedByCom ? nullptr : Load(path)) {}

ProviderModule::ProviderModule(const std::string& path) : ProviderModule(path, false) {}

std::optional<std::string> ProviderModule::RegisteredPath(const std::string& classId) {
  const platform::OleString server =
      platform::WideFromUtf8("CLSID\\" + classId + "\\InprocServer32");
  platform::RegistryKey key;
  std::optional<platform::OleString> path;
  if (key.Open(HKEY_CLASSES_ROOT, server, KEY_READ) == 0) path = key.Text({});
  return path ? std::optional(platform::Utf8Text(*path)) : std::nullopt;
}

ProviderModule ProviderModule::Registered(const std::string& classId) {
  const auto path = RegisteredPath(classId);
  if (!path) throw ModuleError("the provider's class is not registered");
  return ProviderModule(*path, os::HasComRegistration());
}

ProviderModule::~ProviderModule() {
  if (module_ != nullptr) FreeLibrary(module_);
}

HMODULE ProviderModule::handle() const {
  return loadedByCom_ ? os::LoadedModule(path_) : module_;
}

platform::ComPtr<IClassFactory> ProviderModule::Factory(const std::string& classId) const {
  const CLSID provider = ParseClassId(classId);
  platform::ComPtr<IClassFactory> factory;
  HRESULT result = S_OK;
  if (loadedByCom_) {
    result = os::RegisteredClassFactory(provider, factory.put());
  } else {
    const auto getClassObject = Export<GetClassObjectFunction>(module_, "DllGetClassObject");
    if (getClassObject == nullptr) {
      throw ModuleError("the module '" + path_ + "' does not export DllGetClassObject");
    }
    result = getClassObject(provider, IID_IClassFactory, factory.put_void());
  }
  // The system's code does not say why a module was not loaded; Load throws the reason.
  if (loadedByCom_ && FAILED(result)) FreeLibrary(Load(path_));
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
