// soak requests N | cycles N | threads N: does what a service host does with the module over
// months. It fails if a request does not set exactly one status; requests and cycles also fail if
// memory, handles or threads grow.
//
// requests: N mixed requests to one provider.
//
// cycles: N times: load the module, create and initialise a provider, one request, release, unload.
//
// threads: two providers, each in its own thread, N requests to each.

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

#include "platform/control/control.h"
#include "platform/environment.h"
#include "provider/server/class_factory.h"
#include "tests/support/fake_wbem.h"
#include "tests/support/held.h"
#include "tests/sweep/requests.h"

namespace {

using namespace testing_support;
using platform::ComPtr;
using platform::Variant;
using sweep::Request;

std::atomic<bool> failed = false;

void Fail(const std::string& what) {
  std::printf("FAILED: %s\n", what.c_str());
  failed = true;
}

/// The module, as a service host loads it.
class Module {
 public:
  Module() : handle_(LoadLibraryA(MODULE_FILE)) {
    if (handle_ == nullptr) {
      std::puts("the module does not load");
      std::exit(1);
    }
  }
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;
  ~Module() {
    if (Exported<HRESULT STDAPICALLTYPE()>("DllCanUnloadNow")() != S_OK) {
      Fail("the module cannot be unloaded");
    }
    FreeLibrary(handle_);
  }
  ComPtr<IWbemServices> MakeProvider() const {
    ComPtr<IClassFactory> factory;
    Exported<HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**)>("DllGetClassObject")(
        wifi::kInstanceProviderClass, IID_IClassFactory, factory.put_void());
    ComPtr<IWbemServices> provider;
    factory->CreateInstance(nullptr, IID_IWbemServices, provider.put_void());
    return provider;
  }

 private:
  template <class Function>
  Function* Exported(const char* name) const {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(handle_, name)));
  }
  HMODULE handle_;
};

/// A client and a service for one thread.
class Service {
 public:
  Service() {
    for (const auto& [id, mac] :
         {std::pair("7", "00:A0:F8:00:00:01"), std::pair("10", "00:A0:F8:00:00:02")}) {
      auto adapter = ComPtr<FakeObject>::Adopt(new FakeObject(script_));
      adapter->values["DeviceID"] = Variant::AnsiText(id);
      adapter->values["PNPDeviceID"] = Variant::AnsiText("PCI\\VEN_7F3C&DEV_4220");
      adapter->values["MACAddress"] = Variant::AnsiText(mac);
      adapter->values["Caption"] = Variant::AnsiText("Caption");
      adapter->values["Description"] = Variant::AnsiText("Description");
      namespace_->platformObjects["Win32_NetworkAdapter"].push_back(
          ComPtr<IWbemClassObject>(adapter.get()));
    }
    for (Request& request : sweep::AllRequests(script_)) {
      if (request.kind != Request::kFactory) requests_.push_back(std::move(request));
    }
  }

  std::size_t requests() const { return requests_.size(); }
  void Initialize(IWbemServices& provider) {
    ComPtr<IWbemProviderInit> init;
    provider.QueryInterface(IID_IWbemProviderInit, init.put_void());
    init->Initialize(nullptr, 0, nullptr, nullptr, namespace_.get(), nullptr, nullptr);
  }
  /// Makes the n-th of the mixed requests; returns its number of instances.
  std::size_t Make(IWbemServices& provider, std::size_t n) {
    journal_.Clear();
    namespace_->contexts.clear();
    namespace_->enumerations.clear();
    const Request& request = requests_[n % requests_.size()];
    if (request.kind == Request::kInitialize) {
      Initialize(provider);
      return 0;
    }
    const auto client = ComPtr<FakeSink>::Adopt(new FakeSink(script_));
    const HRESULT answer = sweep::Send(request, provider, client.get());
    if (client->statuses != std::vector<HRESULT>{answer}) Fail("status of " + request.name);
    if (client->references() != 1) Fail("the sink is kept by " + request.name);
    return client->objects.size();
  }

 private:
  Journal journal_;
  InstanceScript script_{journal_};
  ComPtr<FakeNamespace> namespace_ = ComPtr<FakeNamespace>::Adopt(new FakeNamespace(script_));
  std::vector<Request> requests_;
};

/// Repeats a step and compares what the process holds before and after. Memory may grow by less
/// than the smallest leak would need, one text in each of `steps` steps. A heap that is still
/// warming up gets further windows to settle; a leak grows in all of them alike.
template <class Step>
void ExpectToHold(const char* what, std::size_t times, std::size_t steps, const Step& step) {
  constexpr std::size_t kSmallestText = 16;  // bytes
  constexpr std::size_t kMostBytes = 16384;  // for any number of steps: the system's own records
  constexpr int kMostWindows = 20;
  const std::size_t bytes = std::min(times / steps * kSmallestText * 3 / 4, kMostBytes);
  for (int window = 1;; ++window) {
    const Held before = HeldByProcess();
    for (std::size_t n = 0; n < times; ++n) step(n);
    const Held after = HeldByProcess();
    std::printf("%zu %s: bytes %zu to %zu, handles %u to %u, threads %u to %u\n", times, what,
                before.bytes, after.bytes, before.handles, after.handles, before.threads,
                after.threads);
    if (after.handles > before.handles) Fail("handles grow");
    if (after.threads > before.threads) Fail("threads grow");
    if (after.bytes <= before.bytes + bytes) return;
    if (window == kMostWindows) return Fail("memory grows");
  }
}

void SoakRequests(std::size_t times) {
  const Module module;
  const ComPtr<IWbemServices> provider = module.MakeProvider();
  Service service;
  service.Initialize(*provider.get());
  std::size_t instances = 0;
  // A stride that is coprime to their number mixes them.
  const auto make = [&](std::size_t n) { instances += service.Make(*provider.get(), n * 7919); };
  for (std::size_t n = 0; n < 4 * service.requests(); ++n) make(n);
  if (instances == 0) Fail("no instance was given");
  ExpectToHold("requests", times / service.requests() * service.requests(), service.requests(),
               make);
  std::printf("%zu instances\n", instances);
}

// The libraries stay loaded, because the maker's libraries are not ours to measure.
void SoakCycles(std::size_t times) {
  LoadLibraryA(QUARN_FILE);
  LoadLibraryA(TOLVA_FILE);
  Service service;
  const auto cycle = [&](std::size_t n) {
    const Module module;
    const ComPtr<IWbemServices> provider = module.MakeProvider();
    service.Initialize(*provider.get());
    service.Make(*provider.get(), n);
  };
  for (std::size_t n = 0; n < 2 * service.requests(); ++n) cycle(n);
  ExpectToHold("cycles", times, 1, cycle);
}

void SoakThreads(std::size_t times) {
  const Module module;
  const auto serve = [&] {
    const platform::Apartment apartment;
    Service service;
    const ComPtr<IWbemServices> provider = module.MakeProvider();
    service.Initialize(*provider.get());
    for (std::size_t n = 0; n < times; ++n) service.Make(*provider.get(), n);
  };
  std::thread first(serve);
  std::thread second(serve);
  first.join();
  second.join();
  std::printf("%zu requests in each of two threads\n", times);
}

}  // namespace

int main(int count, char** arguments) {
  const std::string what = count == 3 ? arguments[1] : "";
  const auto soak = what == "requests"  ? SoakRequests
                    : what == "cycles"  ? SoakCycles
                    : what == "threads" ? SoakThreads
                                        : nullptr;
  if (soak == nullptr) {
    std::puts("usage: soak requests|cycles|threads N");
    return 2;
  }
  SetEnvironmentVariableA("WIFI_SCENARIO", SCENARIO_FILE);
  const platform::Apartment apartment;
  soak(std::strtoull(arguments[2], nullptr, 10));
  return failed ? 1 : 0;
}
