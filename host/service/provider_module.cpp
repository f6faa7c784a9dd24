#include "host/service/provider_module.h"

#include "host/os/os.h"
#include "host/service/result_codes.h"

namespace host {
namespace {

constexpr CLSID kProviderClass = {
    0x3B14BAD6, 0xC364, 0x4576, {0x82, 0x71, 0x39, 0xB5, 0x85, 0x0A, 0xBD, 0xA8}};

template <class Function>
Function Export(HMODULE module, const char* name) {
  // Through void (*)(): the one function type that every other may be cast to and from.
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

using GetClassObjectFunction = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
using CanUnloadFunction = HRESULT(STDAPICALLTYPE*)();

}  // namespace

ProviderModule::ProviderModule(const std::string& path)
    : path_(path), module_(os::LoadModule(path)) {
  if (module_ == nullptr)
    throw ModuleError("the module '" + path + "' cannot be loaded: system error " +
                      std::to_string(GetLastError()));
}

ProviderModule::~ProviderModule() {
  FreeLibrary(module_);
}

platform::ComPtr<IClassFactory> ProviderModule::Factory() const {
  const auto getClassObject = Export<GetClassObjectFunction>(module_, "DllGetClassObject");
  if (getClassObject == nullptr) {
    throw ModuleError("the module '" + path_ + "' does not export DllGetClassObject");
  }
  platform::ComPtr<IClassFactory> factory;
  const HRESULT result = getClassObject(kProviderClass, IID_IClassFactory, factory.put_void());
  if (FAILED(result) || !factory) {
    throw ModuleError("the module '" + path_ +
                      "' gives no class factory: " + DescribeResult(result));
  }
  return factory;
}

void ProviderModule::CheckUnloadable(Defects& defects) const {
  const auto canUnload = Export<CanUnloadFunction>(module_, "DllCanUnloadNow");
  if (canUnload == nullptr) {
    defects.Add("the module does not export DllCanUnloadNow");
  } else if (const HRESULT result = canUnload(); result != S_OK) {
    defects.Add("DllCanUnloadNow gives " + DescribeResult(result) +
                " although everything is released");
  }
}

}  // namespace host
