// What an instance of each class costs, compared with a floor measured in the same run (the same
// class fetches, spawns, puts of prepared values and indications, without the provider) and with
// the same library calls alone. Growth by adapters and by networks, trace off and on.

#include <benchmark/benchmark.h>

#include <algorithm>

#include "adapterapi/mac_text.h"
#include "bench/library.h"
#include "bench/platform_provider.h"
#include "bench/service.h"
#include "platform/bstr.h"
#include "platform/text.h"
#include "provider/core/trace.h"
#include "provider/server/instance_provider.h"
#include "schema/contract.h"

namespace bench {
namespace {

using platform::Bstr;
using platform::ComPtr;
using platform::Variant;
using platform::WideText;

class InitSink final : public testing_support::FakeUnknown<IWbemProviderInitSink> {
 public:
  HRESULT STDMETHODCALLTYPE SetStatus(LONG, LONG) override { return S_OK; }
};

std::string StationMac(std::size_t index) {
  MacAddress mac;
  Library::WriteMac(index, mac);
  return std::string(adapterapi::MacText(mac));
}

/// An initialised provider between the cheapest possible service and libraries.
class Bench {
 public:
  Bench(std::size_t adapters, std::size_t networks)
      : library(adapters, networks),
        provider(ComPtr<wifi::InstanceProvider>::Adopt(new wifi::InstanceProvider(library))) {
    SetProfileCount(networks);
    for (std::size_t index = 0; index < adapters; ++index) {
      auto object =
          ComPtr<testing_support::FakeObject>::Adopt(new testing_support::FakeObject(script_));
      object->values["DeviceID"] = Variant::AnsiText(std::to_string(index));
      object->values["PNPDeviceID"] = Variant::AnsiText("PCI\\VEN_7F3C&DEV_4220");
      object->values["MACAddress"] = Variant::AnsiText(StationMac(index));
      object->values["Caption"] = Variant::AnsiText("Wireless adapter");
      object->values["Description"] = Variant::AnsiText("Wireless adapter, 802.11a/b/g");
      services.adapters.push_back(ComPtr<IWbemClassObject>(object.get()));
    }
    const auto initSink = ComPtr<InitSink>::Adopt(new InitSink);
    provider->Initialize(nullptr, 0, nullptr, nullptr, &services, nullptr, initSink.get());
    wifi::SetTraceReceiver(nullptr);  // the journal no longer records trace lines
  }

  void Enumerate(const Bstr& name) {
    provider->CreateInstanceEnumAsync(name.get(), 0, nullptr, sink.get());
  }

 private:
  testing_support::Journal journal_;
  testing_support::InstanceScript script_{journal_};

 public:
  Library library;
  Namespace services;
  ComPtr<CountingSink> sink = ComPtr<CountingSink>::Adopt(new CountingSink);
  ComPtr<wifi::InstanceProvider> provider;
};

/// `networks` is the length of every list.
struct Class {
  std::string name;
  std::size_t adapters;
  std::size_t networks;
};

/// A hundred instances of classes with one instance per adapter, a thousand of lists, which have a
/// key besides the adapter's.
Class Measured(const contract::Class& row) {
  for (const contract::Property& property : contract::kProperties) {
    if (property.className != row.name || !property.isKey) continue;
    if (property.name == "MacAddress" || property.name == "NetworkName" || property.name == "Name")
      return {std::string(row.name), 1, 1000};
  }
  return {std::string(row.name), 100, 1};
}

/// Seconds per instance, the figure from which a row's ratios are computed.
void CountInstances(benchmark::State& state, std::size_t instances) {
  state.counters["instance"] = benchmark::Counter(
      static_cast<double>(instances),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Provider(benchmark::State& state, const Class& shown) {
  Bench bench(shown.adapters, shown.networks);
  const Bstr name(WideText(shown.name));
  bench.Enumerate(name);
  const std::size_t instances = bench.sink->indicated;
  if (FAILED(bench.sink->status) || instances == 0) state.SkipWithError("nothing was enumerated");
  for (auto _ : state) bench.Enumerate(name);
  CountInstances(state, instances);
  const Memory memory = MemoryOf([&] { bench.Enumerate(name); });
  const auto each = static_cast<double>(instances);
  state.counters["allocations"] = static_cast<double>(memory.allocations) / each;
  state.counters["bytes"] = static_cast<double>(memory.bytes) / each;
}

/// The texts of an array, created again each time, as any provider has to create its array.
Variant MadeAnew(const Variant& array) {
  SAFEARRAYBOUND bound = {16, 0};
  platform::SafeArray made(SafeArrayCreate(VT_BSTR, 1, &bound));
  for (LONG index = 0; index < 16; ++index) {
    const Bstr text(OLESTR("1"));
    SafeArrayPutElement(made.get(), &index, text.get());
  }
  benchmark::DoNotOptimize(array.type());
  return Variant::Array(std::move(made), VT_BSTR);
}

void Floor(benchmark::State& state, const Class& shown) {
  Bench bench(shown.adapters, shown.networks);
  const platform::OleString className = WideText(shown.name);
  bench.Enumerate(Bstr(className));
  const std::size_t instances = bench.sink->indicated;
  std::vector<PutValue>& puts = bench.sink->first;
  for (auto _ : state) {
    for (std::size_t index = 0; index < instances; ++index) {
      const Bstr name(className);
      IWbemClassObject* definition = nullptr;
      IWbemClassObject* instance = nullptr;
      bench.services.GetObject(name.get(), 0, nullptr, &definition, nullptr);
      definition->SpawnInstance(0, &instance);
      definition->Release();
      for (PutValue& put : puts) {
        if (put.value.type() == (VT_ARRAY | VT_BSTR)) put.value = MadeAnew(put.value);
        instance->Put(put.name.c_str(), 0, put.value.in_place(), 0);
      }
      bench.sink->Indicate(1, &instance);
      instance->Release();
    }
  }
  CountInstances(state, instances);
}

void Calls(benchmark::State& state, const Class& shown) {
  Bench bench(shown.adapters, shown.networks);
  bench.library.NoteCalls(true);
  bench.Enumerate(Bstr(WideText(shown.name)));
  bench.library.NoteCalls(false);
  for (auto _ : state) bench.library.RepeatCalls();
  CountInstances(state, bench.sink->indicated);
}

void GetNetwork(benchmark::State& state, bool last) {
  const auto networks = static_cast<std::size_t>(state.range(0));
  Bench bench(1, networks);
  const Bstr path(WideText("WiFi_AdapterCachedScanList.MacAddress=\"" +
                           StationMac(last ? networks - 1 : 0) + "\",SettingID=\"0\""));
  for (auto _ : state) bench.provider->GetObjectAsync(path.get(), 0, nullptr, bench.sink.get());
  if (bench.sink->indicated == 0) state.SkipWithError("the network was not found");
  state.SetComplexityN(state.range(0));
}

void EnumerateAdapters(benchmark::State& state) {
  Bench bench(static_cast<std::size_t>(state.range(0)), 1);
  const Bstr name(OLESTR("WiFi_AdapterVersion"));
  for (auto _ : state) bench.Enumerate(name);
}

void EnumerateNetworks(benchmark::State& state) {
  Bench bench(1, static_cast<std::size_t>(state.range(0)));
  const Bstr name(OLESTR("WiFi_AdapterCachedScanList"));
  for (auto _ : state) bench.Enumerate(name);
}

/// Receives every line and ignores it.
class Listener final : public wifi::TraceReceiver {
  void OnLine(const char* line, bool) override { benchmark::DoNotOptimize(line); }
};

void Traced(benchmark::State& state, bool on) {
  Bench bench(100, 1);
  Listener listener;
  if (on) wifi::SetTraceReceiver(&listener);
  const Bstr name(OLESTR("WiFi_NetworkAdapter"));
  for (auto _ : state) bench.Enumerate(name);
  wifi::SetTraceReceiver(nullptr);
}

const bool kRegistered = [] {
  for (const contract::Class& row : contract::kClasses) {
    const Class shown = Measured(row);
    const std::string& name = shown.name;
    benchmark::RegisterBenchmark(("provider/" + name).c_str(), Provider, shown);
    benchmark::RegisterBenchmark(("floor/" + name).c_str(), Floor, shown);
    benchmark::RegisterBenchmark(("calls/" + name).c_str(), Calls, shown);
  }
  for (const bool last : {false, true}) {
    benchmark::RegisterBenchmark(last ? "get_last" : "get_first", GetNetwork, last)
        ->Arg(10)
        ->Arg(1000)
        ->Arg(100000);
    benchmark::RegisterBenchmark(last ? "trace/on" : "trace/off", Traced, last);
  }
  benchmark::RegisterBenchmark("adapters", EnumerateAdapters)->RangeMultiplier(10)->Range(1, 10000);
  benchmark::RegisterBenchmark("networks", EnumerateNetworks)
      ->RangeMultiplier(10)
      ->Range(10, 100000);
  return true;
}();

}  // namespace
}  // namespace bench
