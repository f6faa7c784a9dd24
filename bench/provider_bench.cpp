// What requests cost, through the built module and the simulator's default scenario: whole
// enumerations of each kind of class, a get by key, an update that changes nothing, a path.
// Compare ratios of one run; machines are noisy.

#include <benchmark/benchmark.h>

#include <iostream>

#include "host/mof/product_schema.h"
#include "host/os/os.h"
#include "host/service/provider_module.h"
#include "host/service/provider_session.h"
#include "provider/core/object_path.h"

namespace {

/// The module with one initialised provider, for the whole run.
class Service {
 public:
  Service()
      : repository_(embedded::wifi_adapter_provider_mof(), "schema"),
        platformObjects_(simulator::LoadPlatformObjects("")),
        module_(host::os::DefaultModulePath()),
        session_(repository_, platformObjects_, defects_) {
    session_.Start(module_.Factory().get());
  }
  ~Service() { session_.Stop(); }
  host::ProviderSession& session() { return session_; }

 private:
  host::Repository repository_;
  simulator::PlatformObjects platformObjects_;
  host::Defects defects_{[](const std::string& sentence) { std::cerr << sentence << '\n'; }};
  host::ProviderModule module_;
  host::ProviderSession session_;
};

Service& TheService() {
  static Service service;
  return service;
}

void Enumerate(benchmark::State& state, const char* className) {
  for (auto _ : state) benchmark::DoNotOptimize(TheService().session().Enumerate(className));
}
BENCHMARK_CAPTURE(Enumerate, NetworkAdapter, "WiFi_NetworkAdapter");
BENCHMARK_CAPTURE(Enumerate, AdapterFeatures, "WiFi_AdapterFeatures");
BENCHMARK_CAPTURE(Enumerate, CachedScanList, "WiFi_AdapterCachedScanList");
BENCHMARK_CAPTURE(Enumerate, TxRxStats, "WiFi_AdapterTxRxStats");
BENCHMARK_CAPTURE(Enumerate, PreferredProfile, "WiFi_PreferredProfile");

void Get(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(TheService().session().Get("WiFi_NetworkAdapter.DeviceID=\"7\""));
  }
}
BENCHMARK(Get);

void ParsePath(benchmark::State& state) {
  const wifi::PathParser parser(wifi::PathFlag::kAbsoluteNamespace);
  for (auto _ : state) {
    std::unique_ptr<wifi::ParsedPath> path;
    benchmark::DoNotOptimize(parser.Parse(
        OLESTR("\\\\.\\root\\cimv2:WiFi_AvailableNetwork.MacAddress=\"02:00:00:00:00:01\","
               "SettingID=\"7\""),
        &path));
  }
}
BENCHMARK(ParsePath);

}  // namespace

BENCHMARK_MAIN();
