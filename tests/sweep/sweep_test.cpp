// Every step of every request may fail, once or from then on. Whatever fails, the request sets
// exactly one status, leaks nothing, destroys nothing that others use, and the next request is
// served.

#include <algorithm>
#include <cstring>
#include <iostream>
#include <numeric>

#include "platform/control/control.h"
#include "provider/server/class_factory.h"
#include "tests/support/fake_profile_library.h"
#include "tests/support/provider_fixture.h"
#include "tests/sweep/requests.h"
#include "tests/sweep/swept_module.h"

adapterapi::AdapterApi* sweep::currentLibrary = nullptr;

namespace sweep {
namespace {

using namespace adapterapi;
using namespace testing_support;
using platform::ComPtr;
using platform::Variant;

// What the library returns: records with unterminated texts and counts beyond all bounds, the
// number 1, two networks.
template <class Record>
void Give(Record* record) {
  std::memset(record, '1', sizeof(*record));
}
template <class Record>
void Give(const Record*) {}
inline void Give(std::uint32_t* number) {
  *number = 1;
}
inline void Give(std::uint32_t) {}
template <class Entry>
void Give(const LibraryList<Entry>** list) {
  static const auto* const two = [] {
    static std::uint8_t bytes[sizeof(std::int32_t) + 2 * sizeof(Entry)];
    bytes[0] = 2;
    std::memset(bytes + sizeof(std::int32_t), '1', sizeof(Entry));
    std::memset(bytes + sizeof(std::int32_t) + sizeof(Entry), '2', sizeof(Entry));
    return reinterpret_cast<const LibraryList<Entry>*>(bytes);
  }();
  *list = two;
}

struct Outcome {
  HRESULT answer;
  std::vector<HRESULT> statuses;
  std::vector<std::string> calls;  ///< of both libraries
  std::vector<std::string> puts;   ///< CLASS.NAME=VALUE of every indicated instance
  bool operator==(const Outcome&) const = default;
};

// In the order of Step.
constexpr const char* kStepNames[] = {
    "new",    "text", "fetch", "signature",       "spawn",          "put", "get", "indicate",
    "status", "open", "next",  "adapter library", "profile library"};
static_assert(std::size(kStepNames) == std::tuple_size_v<StepCounts>);

/// What is alive between two requests.
struct Levels {
  long blocks = LiveBlocks();
  int texts = LiveTexts();
  int objects = FakeObject::live;
  int sinks = FakeSink::live;
  int enumerations = FakeEnumeration::live;
  int impersonations = ImpersonationDepth();
  bool operator==(const Levels&) const = default;
  /// Nothing more than before; less is possible, because a failure may have emptied a cache.
  bool NothingAdded(const Levels& before) const {
    return blocks <= before.blocks && texts <= before.texts && objects == before.objects &&
           sinks == before.sinks && enumerations == before.enumerations &&
           impersonations == before.impersonations;
  }
};

class Sweep : public ProviderFixture {
 protected:
  Sweep() {
    currentLibrary = &api;
    platform::SetOsVersion(Module().handle, 5, 1);  // no property is left out
#define QUARN_OPERATION(ordinal, name, parameters, arguments) \
  api.on##name = [](auto... values) { return (Give(values), ..., ApiStatus{0}); };
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
    profiles.stores[1] = {{"Home", "home", "", 1, 0, 1, 1}, {"Office", "office", "", 1, 1, 6, 2}};
    profiles.stores[16] = {{"Site", "site", "", 2, 0, 3, 1}};
    profiles.onGetProfileToApply = [](ORVEL_WLAN_PROFILE&) { return 0; };
    const auto user = MakeObject();
    user->values["UserName"] = Variant::AnsiText("DOMAIN\\user");
    fakeNamespace.platformObjects["Win32_ComputerSystem"].push_back(
        ComPtr<IWbemClassObject>(user.get()));
    Initialize({{7, "7", 1}, {10, "10", 2}});  // also fills the lists; its provider is not used
    EXPECT_EQ(Factory(init_, served_), S_OK);
    InitializeOnly(*init_.get());
  }
  ~Sweep() override {
    platform::SetOsVersion(Module().handle, 6, 1);
  }

  HRESULT Factory(ComPtr<IWbemProviderInit>& init, ComPtr<IWbemServices>& made) {
    ComPtr<IClassFactory> factory;
    HRESULT result = Module().getClassObject(wifi::kInstanceProviderClass, IID_IClassFactory,
                                             factory.put_void());
    if (FAILED(result) != !factory) return E_UNEXPECTED;
    if (FAILED(result)) return result;
    result = factory->CreateInstance(nullptr, IID_IWbemProviderInit, init.put_void());
    if (FAILED(result) != !init) return E_UNEXPECTED;
    return FAILED(result) ? result : init->QueryInterface(IID_IWbemServices, made.put_void());
  }

  HRESULT Serve(const Request& request, IWbemObjectSink* client) {
    const Side inside(true);
    ComPtr<IWbemProviderInit> init;
    ComPtr<IWbemServices> made;
    switch (request.kind) {
      case Request::kInitialize:
        initStatuses.clear();
        return InitializeOnly(*init_.get());
      case Request::kFactory:
        return Factory(init, made);
      default:
        return Send(request, *served_.get(), client);
    }
  }

  /// Makes a request with its own sink; `kept_` says which of the client's objects were kept.
  Outcome Run(const Request& request, FaultPlan* plan = nullptr) {
    // Ensures that every update finds something to change.
    if (request.kind == Request::kPut) Serve(primer_, MakeSink(script).get());
    journal.Clear();
    fakeNamespace.contexts.clear();
    fakeNamespace.enumerations.clear();
    Outcome outcome;
    const ComPtr<FakeSink> client = MakeSink(script);
    FaultPlan::calls = {};
    FaultPlan::armed = plan;
    outcome.answer = Serve(request, client.get());
    FaultPlan::armed = nullptr;
    outcome.statuses =
        request.kind == Request::kFactory ? std::vector<HRESULT>{outcome.answer} : client->statuses;
    if (request.kind == Request::kInitialize) {
      outcome.statuses.assign(initStatuses.begin(), initStatuses.end());
      kept_ = outcome.answer != S_OK;
      if (initStatuses.size() == 1) outcome.answer = initStatuses[0];
    } else {
      kept_ = client->references() != 1 || (request.object && request.object->references() != 1);
    }
    for (const std::string& event : journal.events()) {
      if (event.starts_with("call ") || event.starts_with("tolva ")) outcome.calls.push_back(event);
    }
    for (const auto& object : client->objects) {
      for (const auto& put : object->puts) {
        outcome.puts.push_back(object->className + "." + put.name + "=" + put.value);
      }
    }
    return outcome;
  }

  /// What is wrong with a request in which something failed; empty if it is correct.
  std::string Breach(const Request& request, const FaultPlan& plan, const Outcome& untouched,
                     const Outcome& outcome) const {
    if (outcome.statuses.size() != 1) return "it has no one status";
    const bool statusThrew = plan.step == Step::kStatus && plan.manner != Manner::kCode;
    if (outcome.answer != outcome.statuses[0] &&
        !(statusThrew && outcome.answer == WBEM_E_PROVIDER_FAILURE)) {
      return "its answer is not its status";
    }
    if (kept_) return "it keeps an object of the client";
    if (plan.manner == Manner::kReenter) {
      if (outcome.puts != untouched.puts || outcome.answer != untouched.answer) {
        return "another request in between changes it";
      }
      return {};
    }
    if (plan.step != Step::kHeap && plan.step != Step::kText) return {};
    // Out of memory, nothing wrong is reported and nothing else is done.
    for (const std::string& put : outcome.puts) {
      const auto name = put.substr(0, put.find('='));
      if (put == name + "=error:8007000E" ||
          (request.kind == Request::kMethod &&
           (put == name + "=flag:false" || put == name + "=number:0")))
        continue;
      if (!std::ranges::count(untouched.puts, put)) return "it says " + put;
    }
    for (const std::string& call : outcome.calls) {
      if (!std::ranges::count(untouched.calls, call)) return "it makes the call " + call;
    }
    return {};
  }

  /// Makes every call of the request fail in turn.
  void SweepOne(const Request& request) {
    SCOPED_TRACE(request.name);
    for (int round = 0; round < 3; ++round) Run(request), Run(other_);
    const Outcome untouched = Run(request);
    const StepCounts calls = FaultPlan::calls;
    const Outcome other = Run(other_);
    const Levels before;
    for (const auto& [step, manner] : kFaults) {
      if (calls[static_cast<std::size_t>(step)] == 0) continue;
      const bool structured = manner == Manner::kStructured || step == Step::kHeap;
      if (kStructuredOnly && !structured) continue;
      if (!kStructuredOnly && manner == Manner::kStructured) continue;
      for (const bool persistent : {false, true}) {
        if (persistent && manner == Manner::kReenter) continue;
        for (int nth = 1;; ++nth) {
          FaultPlan plan{step, manner, nth, persistent};
          Outcome inner = other;
          plan.reenter = [&] {
            const ComPtr<FakeSink> sink2 = MakeSink(script);
            inner.answer = Serve(other_, sink2.get());
            inner.statuses = sink2->statuses;
            // The adapters are discovered again too; the request keeps those that it started with.
            const std::vector<LONG> outer = initStatuses;
            InitializeOnly(*init_.get());
            initStatuses = outer;
          };
          const Outcome outcome = Run(request, &plan);
          if (plan.struck == 0) break;
          ++points[static_cast<std::size_t>(step)];
          std::string breach = Breach(request, plan, untouched, outcome);
          if (breach.empty() && !Levels().NothingAdded(before))
            breach = "it leaves something behind";
          // While adapters are being discovered, there are no adapters yet.
          if (breach.empty() && inner != other && request.kind != Request::kInitialize)
            breach = "the one in between is not served";
          const Outcome again = Run(request);
          if (breach.empty() && again != untouched) breach = "the same request then differs";
          if (breach.empty() && Run(other_) != other) breach = "another request then differs";
          if (breach.empty()) continue;
          ADD_FAILURE() << kStepNames[static_cast<std::size_t>(step)] << ", manner "
                        << static_cast<int>(manner) << (persistent ? " from call " : " at call ")
                        << nth << ": " << breach << ", answer " << std::hex << outcome.answer;
          if (++failures > 40) return;
        }
      }
    }
    Run(request), Run(other_), Run(request), Run(other_);
    EXPECT_EQ(Levels(), before);
  }

  struct Fault {
    Step step;
    Manner manner;
  };
  static const std::vector<Fault> kFaults;

  static inline StepCounts points = {};
  static inline int failures = 0;
  static void TearDownTestSuite() {
    std::cout << std::accumulate(points.begin(), points.end(), 0) << " failure points tried:";
    for (std::size_t step = 0; step < points.size(); ++step) {
      std::cout << ' ' << kStepNames[step] << ' ' << points[step];
    }
    std::cout << std::endl;
  }

  FakeProfileLibrary profiles{journal};
  ComPtr<IWbemProviderInit> init_;
  ComPtr<IWbemServices> served_;
  bool kept_ = false;
  const Request primer_{Request::kEnumerate, "", platform::Bstr(OLESTR("WiFi_NetworkAdapter"))};
  const Request other_{Request::kGet, "",
                       platform::Bstr(OLESTR("WiFi_AdapterVersion.SettingID=\"10\""))};
};

const std::vector<Sweep::Fault> Sweep::kFaults = [] {
  std::vector<Fault> faults = {{Step::kHeap, Manner::kCode}, {Step::kText, Manner::kCode}};
  for (int step = static_cast<int>(Step::kFetch); step < static_cast<int>(Step::kEnd); ++step) {
    for (int manner = 0; manner < static_cast<int>(Manner::kEnd); ++manner) {
      faults.push_back({static_cast<Step>(step), static_cast<Manner>(manner)});
    }
  }
  return faults;
}();

// So out of memory only the text is missing, and the request is served.
TEST_F(Sweep, TextsOfRecordsNeedNoMemoryBesides) {
  for (const OLECHAR* name : {OLESTR("WiFi_AdapterVersion"), OLESTR("WiFi_AdapterTcpIpSettings"),
                              OLESTR("WiFi_AdapterTxRxStats")}) {
    EXPECT_FALSE(Run({Request::kEnumerate, "", platform::Bstr(name)}).puts.empty());
    EXPECT_EQ(FaultPlan::calls[static_cast<std::size_t>(Step::kHeap)], 0);
  }
}

TEST_F(Sweep, AnInitializeWithoutMemoryLeavesNoAdapter) {
  FaultPlan plan{Step::kHeap, Manner::kCode, 1, true};
  Run({Request::kInitialize, "", {}}, &plan);
  EXPECT_GT(plan.struck, 0);
  EXPECT_TRUE(Run(primer_).puts.empty());
}

TEST_F(Sweep, EveryRequest) {
  for (const Request& request : AllRequests(script)) SweepOne(request);
}

}  // namespace
}  // namespace sweep
