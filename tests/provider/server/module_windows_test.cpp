// The linked module in a process of its own, as a service host sees it over time.

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <latch>
#include <thread>
#include <type_traits>
#include <vector>

#include "platform/com_ptr.h"
#include "platform/control/control.h"
#include "provider/server/class_factory.h"
#include "tests/support/fake_wbem.h"
#include "tests/support/held.h"

namespace {

using platform::ComPtr;
using testing_support::Held;
using testing_support::HeldByProcess;

struct Unload {
  void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, Unload>;

/// The provider object of a freshly loaded module.
ComPtr<IWbemServices> MakeProvider(HMODULE module) {
  using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  const auto getClassObject = reinterpret_cast<GetClassObject>(
      reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
  ComPtr<IClassFactory> factory;
  getClassObject(wifi::kInstanceProviderClass, IID_IClassFactory, factory.put_void());
  ComPtr<IWbemServices> provider;
  factory->CreateInstance(nullptr, IID_IWbemServices, provider.put_void());
  return provider;
}

// Serves one request in which an exception is thrown and caught.
void LoadUseUnload() {
  const Module module(LoadLibraryA("WiFiAdapterProvider.dll"));
  ASSERT_TRUE(module);
  testing_support::Journal journal;
  testing_support::InstanceScript script{journal};
  const auto sink = ComPtr<testing_support::FakeSink>::Adopt(new testing_support::FakeSink(script));
  const ComPtr<IWbemServices> provider = MakeProvider(module.get());
  ComPtr<IWbemProviderInit> initializing;
  provider->QueryInterface(IID_IWbemProviderInit, initializing.put_void());
  script.putThrows = "AutoConnect";
  const auto services =
      ComPtr<testing_support::FakeNamespace>::Adopt(new testing_support::FakeNamespace(script));
  initializing->Initialize(nullptr, 0, nullptr, nullptr, services.get(), nullptr, nullptr);
  const platform::Bstr className(OLESTR("WiFi_SystemPolicies"));
  provider->CreateInstanceEnumAsync(className.get(), 0, nullptr, sink.get());
  EXPECT_EQ(sink->statuses.size(), 1u);
}

// A service unloads idle providers and loads them again, for as long as the machine runs.
TEST(Module, LeavesNothingBehindWhenItIsUnloaded) {
  const platform::Apartment apartment;
  constexpr int kCycles = 100;
  for (const bool keepLibraries : {true, false}) {
    const Module quarn(keepLibraries ? LoadLibraryA("QuarnApi.dll") : nullptr);
    const Module tolva(keepLibraries ? LoadLibraryA("TolvaApi.dll") : nullptr);
    for (int cycle = 0; cycle < 5; ++cycle) LoadUseUnload();
    const Held before = HeldByProcess();
    for (int cycle = 0; cycle < kCycles; ++cycle) LoadUseUnload();
    const Held after = HeldByProcess();
    // The system's own list of loaded modules grows in steps.
    EXPECT_LT((after.bytes - before.bytes) / kCycles, 200u) << "bytes a cycle";
    EXPECT_EQ(after.handles, before.handles);
  }
}

// A service creates threads without end; in each of these an exception is thrown. The system gives
// the ids of ended threads to new ones, so only many threads at a time have many ids.
TEST(Module, ServesMoreThreadsThanItHasRoomForAtATime) {
  const platform::Apartment apartment;
  const Module kept(LoadLibraryA("WiFiAdapterProvider.dll"));
  for (int round = 0; round < 2; ++round) {
    std::vector<std::thread> threads;
    std::latch all(900);
    for (std::ptrdiff_t thread = 0; thread < 900; ++thread) {
      threads.emplace_back([&] {
        LoadUseUnload();
        all.arrive_and_wait();
      });
    }
    for (std::thread& thread : threads) thread.join();
  }
}

// The module does not prevent a host from starting: requests report what is wrong.
TEST(Module, IsLoadedThoughTheLibraryRaisesAtItsStart) {
  constexpr const char* kScenario = "raising.json";
  std::ofstream(kScenario)
      << R"({"faults": [{"operation": "SetLibraryMode", "structured": "access-violation"}]})";
  SetEnvironmentVariableA("WIFI_SCENARIO", kScenario);
  const Module quarn(LoadLibraryA("QuarnApi.dll"));
  using GetApiVersion = std::int32_t(std::uint32_t*);
  std::uint32_t version = 0;  // this call reads the scenario
  EXPECT_EQ(reinterpret_cast<GetApiVersion*>(reinterpret_cast<void*>(
                GetProcAddress(quarn.get(), MAKEINTRESOURCEA(23))))(&version),
            0);
  EXPECT_TRUE(Module(LoadLibraryA("WiFiAdapterProvider.dll")));
  SetEnvironmentVariableA("WIFI_SCENARIO", nullptr);
  std::remove(kScenario);
}

}  // namespace
