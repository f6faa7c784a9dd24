#include <benchmark/benchmark.h>

#include "bench/platform_provider.h"
#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "platform/text.h"

namespace bench {
namespace {

using platform::Bstr;
using platform::ComPtr;

void EnumerateOwn(benchmark::State& state, const char* className) {
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  ComPtr<IWbemLocator> locator;
  ComPtr<IWbemServices> services;
  const Bstr space(OLESTR("root\\cimv2"));
  const Bstr name(platform::WideText(className));
  if (FAILED(CoCreateInstance(CLSID_WbemLocator, nullptr, CLSCTX_INPROC_SERVER, IID_IWbemLocator,
                              locator.put_void())) ||
      FAILED(locator->ConnectServer(space.get(), nullptr, nullptr, nullptr, 0, nullptr, nullptr,
                                    services.put()))) {
    state.SkipWithError("no management service");
    return;
  }
  for (auto _ : state) {
    ComPtr<IEnumWbemClassObject> instances;
    services->CreateInstanceEnum(name.get(), 0, nullptr, instances.put());
    ComPtr<IWbemClassObject> instance;
    ULONG returned = 0;
    if (!instances || instances->Next(WBEM_INFINITE, 1, instance.put(), &returned) != S_OK) {
      state.SkipWithError("nothing was enumerated");
      return;
    }
  }
}

}  // namespace

void RegisterPlatformProvider() {
  for (const char* name : {"Win32_BIOS", "Win32_OperatingSystem"}) {
    benchmark::RegisterBenchmark((std::string("platform/") + name).c_str(), EnumerateOwn, name);
  }
}

Memory MemoryOf(const std::function<void()>&) {
  return {};
}

}  // namespace bench
