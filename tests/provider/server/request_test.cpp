// The frame of the requests, their routing and their final status.

#include <functional>

#include "classes/adapter_class.h"
#include "tests/support/provider_fixture.h"

namespace wifi {
namespace {

using platform::Bstr;
using platform::ComPtr;
using platform::Variant;
using testing_support::Answers;
using testing_support::FakeObject;
using testing_support::FakeSink;
using testing_support::ProviderFixture;
using testing_support::Raises;
using Strings = std::vector<std::string>;

class Request : public ProviderFixture {
 protected:
  struct Outcome {
    HRESULT result;
    Strings keys;  ///< the first put of every instance that was indicated
    bool operator==(const Outcome&) const = default;
  };

  Outcome Run(const std::function<HRESULT(IWbemServices&, IWbemObjectSink*)>& operation) {
    const ComPtr<FakeSink> answers = testing_support::MakeSink(script);
    Outcome outcome{operation(*provider.get(), answers.get()), {}};
    EXPECT_EQ(answers->statuses, std::vector<HRESULT>{outcome.result});
    for (const auto& object : answers->objects) {
      outcome.keys.push_back(object->className + " " + object->ShownPuts().front());
    }
    return outcome;
  }
  Outcome Enumerate(const OLECHAR* className) {
    const Bstr name(className);
    return Run([&](IWbemServices& target, IWbemObjectSink* answers) {
      return target.CreateInstanceEnumAsync(name.get(), 0, nullptr, answers);
    });
  }
  Outcome Query(const OLECHAR* text) {
    const Bstr query(text);
    return Run([&](IWbemServices& target, IWbemObjectSink* answers) {
      return target.ExecQueryAsync(nullptr, query.get(), 0, nullptr, answers);
    });
  }
  Outcome Get(const OLECHAR* text) {
    const Bstr path(text);
    return Run([&](IWbemServices& target, IWbemObjectSink* answers) {
      return target.GetObjectAsync(path.get(), 0, nullptr, answers);
    });
  }
  Outcome Delete(const OLECHAR* text) {
    const Bstr path(text);
    return Run([&](IWbemServices& target, IWbemObjectSink* answers) {
      return target.DeleteInstanceAsync(path.get(), 0, nullptr, answers);
    });
  }
  Outcome Put(const char* path, const char* className) {
    const auto instance = MakeObject();
    if (path != nullptr) instance->values["__PATH"] = Variant::AnsiText(path);
    if (className != nullptr) instance->values["__CLASS"] = Variant::AnsiText(className);
    return Run([&](IWbemServices& target, IWbemObjectSink* answers) {
      return target.PutInstanceAsync(instance.get(), 0, nullptr, answers);
    });
  }

  static Outcome Failed(HRESULT result) { return {result, {}}; }
};

const Strings kBoth = {"WiFi_NetworkAdapter DeviceID=text:10",
                       "WiFi_NetworkAdapter DeviceID=text:7"};

TEST_F(Request, EnumeratesByWholeNameWithoutRegardToCase) {
  Initialize({{1, "7", 1}, {2, "10", 2}});
  EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapter")), (Outcome{0, kBoth}));
  EXPECT_EQ(Enumerate(OLESTR("wifi_NETWORKadapter")), (Outcome{0, kBoth}));
  for (const OLECHAR* unknown : {OLESTR("WiFi_NetworkAdapter "), OLESTR("WiFi_NetworkAdapte"),
                                 OLESTR(""), OLESTR("Win32_NetworkAdapter")}) {
    EXPECT_EQ(Enumerate(unknown), Failed(WBEM_E_INVALID_CLASS));
  }
  EXPECT_EQ(Run([](IWbemServices& target, IWbemObjectSink* answers) {
              return target.CreateInstanceEnumAsync(nullptr, 0, nullptr, answers);
            }),
            Failed(WBEM_E_INVALID_CLASS));
}

TEST_F(Request, EndsWithSuccessAndNothingWithoutAdapters) {
  EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapter")), (Outcome{0, {}}));
  EXPECT_EQ(Get(OLESTR("WiFi_NetworkAdapter.DeviceID=\"7\"")), Failed(WBEM_E_NOT_FOUND));
}

TEST_F(Request, FindsTheFirstClassNameAnywhereInAQuery) {
  Initialize({{1, "7", 1}, {2, "10", 2}});
  for (const OLECHAR* query :
       {OLESTR("SELECT * FROM WiFi_NetworkAdapter WHERE DeviceID = 'none'"),
        // Its name begins with the name of the other class, which comes first.
        OLESTR("SELECT * FROM WiFi_NetworkAdapterConfiguration"),
        OLESTR("SELECT * FROM WiFi_NetworkAdapterSetting"), OLESTR("WiFi_NetworkAdapter")}) {
    EXPECT_EQ(Query(query), (Outcome{0, kBoth}));
  }
  EXPECT_EQ(Query(OLESTR("SELECT * FROM wifi_networkadapter")), Failed(WBEM_E_INVALID_CLASS));
  EXPECT_EQ(Query(OLESTR("SELECT * FROM wifi_adaptertxrxstats")), Failed(WBEM_E_INVALID_CLASS));
  EXPECT_EQ(Query(nullptr), Failed(WBEM_E_INVALID_CLASS));
}

TEST_F(Request, GetsOneInstanceByItsExactKey) {
  Initialize({{1, "Lan7", 1}, {2, "10", 2}});
  const Outcome found{0, {"WiFi_NetworkAdapter DeviceID=text:Lan7"}};
  EXPECT_EQ(Get(OLESTR("WiFi_NetworkAdapter.DeviceID=\"Lan7\"")), found);
  EXPECT_EQ(Get(OLESTR("\\\\.\\root\\cimv2:WIFI_networkadapter.DeviceID='Lan7'")), found);
  const struct {
    const OLECHAR* path;
    HRESULT result;
  } rows[] = {
      {OLESTR("WiFi_NetworkAdapter.DeviceID=\"lan7\""), WBEM_E_NOT_FOUND},
      {OLESTR("WiFi_NetworkAdapter.deviceid=\"Lan7\""), WBEM_E_NOT_FOUND},
      {OLESTR("WiFi_NetworkAdapter.SettingID=\"Lan7\""), WBEM_E_NOT_FOUND},
      {OLESTR("WiFi_NetworkAdapter.DeviceID=10"), WBEM_E_NOT_FOUND},  // a number is not a text
      {OLESTR("WiFi_NetworkAdapter"), WBEM_E_NOT_FOUND},
      {OLESTR("WiFi_Other.DeviceID=\"Lan7\""), WBEM_E_INVALID_CLASS},
      {OLESTR("WiFi_NetworkAdapter.DeviceID="), WBEM_E_INVALID_OBJECT_PATH},
      {OLESTR("\\\\.\\root\\cimv2"), WBEM_E_INVALID_CLASS},  // a path without a class
      {OLESTR("root\\cimv2:WiFi_NetworkAdapter.DeviceID=\"Lan7\""), WBEM_E_INVALID_OBJECT_PATH},
      {OLESTR(""), WBEM_E_INVALID_OBJECT_PATH},
      {nullptr, WBEM_E_INVALID_OBJECT_PATH},
  };
  for (const auto& row : rows) EXPECT_EQ(Get(row.path), Failed(row.result));
}

// A nested Initialize may run during a call out of the provider.
TEST_F(Request, KeepsTheAdaptersThatItStartedWith) {
  Initialize({{1, "7", 1}, {2, "10", 2}});
  const auto initializeWith = [&](const testing_support::AdapterSetup& adapter) {
    fakeNamespace.platformObjects.clear();
    Initialize({adapter});
  };
  int bands = 0;
  api.onGetBand = [&](auto, auto) {
    if (++bands == 1) initializeWith({3, "9", 3});
    return 0;
  };
  EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapter")), (Outcome{0, kBoth}));
  EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapter")),
            (Outcome{0, {"WiFi_NetworkAdapter DeviceID=text:9"}}));

  // Of two nested Initialize calls the inner one's adapters are kept.
  const std::uint32_t none = 0;
  api.onGetAdapterList = [&](const adapterapi::AdapterList** list) {
    *list = reinterpret_cast<const adapterapi::AdapterList*>(&none);
    return 0;
  };
  int modes = 0;
  api.onSetLibraryMode = [&](auto) {
    if (++modes == 1) initializeWith({4, "8", 4});
    return 0;
  };
  InitializeOnly();
  EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapter")),
            (Outcome{0, {"WiFi_NetworkAdapter DeviceID=text:8"}}));
}

TEST_F(Request, NeverDeletes) {
  Initialize({{1, "7", 1}});
  for (const OLECHAR* path :
       {OLESTR("WiFi_NetworkAdapter.DeviceID=\"7\""), OLESTR("wifi_networkadapterconfiguration"),
        OLESTR("WiFi_NetworkAdapterSetting")}) {
    EXPECT_EQ(Delete(path), Failed(WBEM_E_NOT_SUPPORTED));
  }
  EXPECT_EQ(Delete(OLESTR("WiFi_AdapterDevice.SettingID=\"7\"")), Failed(WBEM_E_INVALID_CLASS));
  EXPECT_EQ(Delete(OLESTR("no path?")), Failed(WBEM_E_INVALID_OBJECT_PATH));
}

TEST_F(Request, RoutesAPutByTheInstancesClass) {
  EXPECT_EQ(Put("WiFi_X.K=1", "WiFi_X"), (Outcome{0, {}}));  // no such adapter: nothing to do
  Initialize({{1, "7", 1}, {2, "10", 2}});
  EXPECT_EQ(Put("WiFi_NetworkAdapter.DeviceID=\"7\"", "WiFi_AdapterDevice"),
            Failed(WBEM_E_INVALID_CLASS));
  EXPECT_EQ(Put("WiFi_NetworkAdapterSetting", "wifi_networkadaptersetting"),
            Failed(WBEM_E_NOT_SUPPORTED));
  EXPECT_EQ(Put("WiFi_NetworkAdapter.DeviceID=\"7\"", nullptr), Failed(WBEM_E_NOT_FOUND));
  EXPECT_EQ(Put("not a path?", "WiFi_NetworkAdapter"), Failed(WBEM_E_INVALID_OBJECT_PATH));
  EXPECT_EQ(Put(nullptr, "WiFi_NetworkAdapter"), Failed(WBEM_E_INVALID_OBJECT_PATH));
  EXPECT_EQ(Run([](IWbemServices& target, IWbemObjectSink* answers) {
              return target.PutInstanceAsync(nullptr, 0, nullptr, answers);
            }),
            Failed(WBEM_E_INVALID_PARAMETER));
}

TEST_F(Request, StopsAtTheFirstAdapterWhoseInstanceFails) {
  Initialize({{1, "1", 1}, {2, "2", 2}, {3, "3", 3}});
  const Strings first = {"WiFi_NetworkAdapter DeviceID=text:1"};

  script.indicateResults[2] = WBEM_E_CALL_CANCELLED;
  EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapter")), (Outcome{WBEM_E_CALL_CANCELLED, first}));
  script.indicateResults.clear();
  script.indicateResult = WBEM_S_FALSE;  // a success code stops the walk as well
  EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapter")), (Outcome{WBEM_S_FALSE, first}));
  script.indicateResult = S_OK;

  script.putResults["Band"] = WBEM_E_TYPE_MISMATCH;
  EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapter")), Failed(WBEM_E_TYPE_MISMATCH));
  script.putResults.clear();
  script.spawnResult = E_OUTOFMEMORY;
  EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapter")), Failed(E_OUTOFMEMORY));
  script.spawnResult = S_OK;
  fakeNamespace.getObjectResults["WiFi_NetworkAdapter"] = WBEM_E_ACCESS_DENIED;
  EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapter")), Failed(WBEM_E_ACCESS_DENIED));
}

TEST_F(Request, TurnsAnExceptionIntoProviderFailure) {
  Initialize({{1, "1", 1}, {2, "2", 2}});
  int calls = 0;
  api.onGetSettingValue = [&](std::uint32_t, std::uint32_t*) -> adapterapi::ApiStatus {
    if (++calls == 2) throw 1;
    return 0;
  };
  // What was delivered before remains delivered.
  EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapter")),
            (Outcome{WBEM_E_PROVIDER_FAILURE, {"WiFi_NetworkAdapter DeviceID=text:1"}}));
}

/// Returns success without a class definition.
class EmptyServices final : public testing_support::UnusedServices {
 public:
  HRESULT STDMETHODCALLTYPE GetObject(const BSTR, LONG, IWbemContext*, IWbemClassObject** object,
                                      IWbemCallResult**) override {
    *object = nullptr;
    return S_OK;
  }
};

TEST_F(Request, FailsWhereTheServiceGivesNoDefinition) {
  services = ComPtr<IWbemServices>::Adopt(new EmptyServices);
  provider->Initialize(nullptr, 0, nullptr, nullptr, services.get(), nullptr, nullptr);
  EXPECT_EQ(Enumerate(OLESTR("WiFi_SystemPolicies")), Failed(WBEM_E_FAILED));
  EXPECT_EQ(Run([](IWbemServices& target, IWbemObjectSink* answers) {
              const Bstr path(OLESTR("WiFi_NetworkAdapter.DeviceID=\"7\""));
              const Bstr method(OLESTR("ResetStatistics"));
              return target.ExecMethodAsync(path.get(), method.get(), 0, nullptr, nullptr, answers);
            }),
            Failed(WBEM_E_FAILED));
}

/// A sink whose calls throw.
class ThrowingSink final : public testing_support::FakeUnknown<IWbemObjectSink> {
 public:
  explicit ThrowingSink(bool atStatus) : atStatus_(atStatus) {}
  std::vector<HRESULT> statuses;
  HRESULT STDMETHODCALLTYPE Indicate(LONG, IWbemClassObject**) override {
    if (!atStatus_) throw 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE SetStatus(LONG, HRESULT status, BSTR, IWbemClassObject*) override {
    statuses.push_back(status);
    if (atStatus_) throw 1;
    return S_OK;
  }

 private:
  bool atStatus_;
};

TEST_F(Request, OutlivesASinkThatThrows) {
  Initialize({{1, "1", 1}});
  const Bstr name(OLESTR("WiFi_NetworkAdapterConfiguration"));
  for (const bool atStatus : {false, true}) {
    const auto throwing = ComPtr<ThrowingSink>::Adopt(new ThrowingSink(atStatus));
    EXPECT_EQ(provider->CreateInstanceEnumAsync(name.get(), 0, nullptr, throwing.get()),
              static_cast<HRESULT>(WBEM_E_PROVIDER_FAILURE));
    const HRESULT told = atStatus ? S_OK : static_cast<HRESULT>(WBEM_E_PROVIDER_FAILURE);
    EXPECT_EQ(throwing->statuses, std::vector<HRESULT>{told});
  }
  EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapterConfiguration")).result, S_OK);
}

TEST_F(Request, KeepsItsProviderToItsEnd) {
  const auto system = MakeObject();
  system->values["UserName"] = Variant::AnsiText("OFFICE\\ana");
  fakeNamespace.platformObjects["Win32_ComputerSystem"] = {ComPtr<IWbemClassObject>(system.get())};
  const Bstr name(OLESTR("WiFi_NetworkAdapterConfiguration"));
  const struct {
    testing_support::Step step;  ///< the provider's only reference is released at the first
    std::function<void()> run;
    const char* last;
  } rows[] = {
      {testing_support::Step::kIndicate,
       [&] { provider->CreateInstanceEnumAsync(name.get(), 0, nullptr, sink.get()); }, "status 0"},
      {testing_support::Step::kGet, [&] { InitializeOnly(); }, "get Description"},
  };
  for (const auto& row : rows) {
    provider = ComPtr<InstanceProvider>::Adopt(new InstanceProvider(api));
    Initialize({{1, "1", 1}});
    journal.Clear();
    testing_support::FaultPlan plan{row.step, testing_support::Manner::kReenter, 1, false};
    plan.reenter = [&] { provider.reset(); };
    testing_support::FaultPlan::armed = &plan;
    {
      const testing_support::Side inside(true);
      row.run();
    }
    testing_support::FaultPlan::armed = nullptr;
    const Strings events = journal.events();
    ASSERT_GE(events.size(), 2u);
    EXPECT_EQ(Strings(events.end() - 2, events.end()), (Strings{row.last, "call CloseLibrary"}));
  }
}

TEST_F(Request, PassesTheRequestsContextOn) {
  Initialize({{1, "1", 1}});
  fakeNamespace.contexts.clear();
  auto* context = reinterpret_cast<IWbemContext*>(this);  // only its identity counts
  const Bstr name(OLESTR("WiFi_NetworkAdapter"));
  provider->CreateInstanceEnumAsync(name.get(), 0, context, sink.get());
  EXPECT_EQ(fakeNamespace.contexts, std::vector<IWbemContext*>{context});
}

TEST_F(Request, LeavesNoReferenceBehind) {
  Initialize({{1, "1", 1}, {2, "2", 2}});
  const int before = testing_support::FakeUnknown<IWbemClassObject>::live;
  script.putResults["TxRate"] = WBEM_E_FAILED;
  Enumerate(OLESTR("WiFi_NetworkAdapter"));
  script.putResults.clear();
  api.onGetSettingValue = Raises();
  Enumerate(OLESTR("WiFi_NetworkAdapter"));
  EXPECT_EQ(testing_support::FakeUnknown<IWbemClassObject>::live, before);
  // The sink and the namespace: one reference is the test's, one the provider's.
  EXPECT_EQ(sink->AddRef(), 2u);
  sink->Release();
  EXPECT_EQ(services->AddRef(), 4u);  // the fixture's state shares it too
  services->Release();
}

TEST_F(Request, RefusesARequestWithoutASink) {
  EXPECT_EQ(provider->CreateInstanceEnumAsync(nullptr, 0, nullptr, nullptr),
            WBEM_E_INVALID_PARAMETER);
}

TEST_F(Request, AnswersUnservedOperationsAtOnce) {
  IWbemServices& target = *provider.get();
  const HRESULT results[] = {
      target.OpenNamespace(nullptr, 0, nullptr, nullptr, nullptr),
      target.CancelAsyncCall(nullptr),
      target.QueryObjectSink(0, nullptr),
      target.GetObject(nullptr, 0, nullptr, nullptr, nullptr),
      target.PutClass(nullptr, 0, nullptr, nullptr),
      target.PutClassAsync(nullptr, 0, nullptr, sink.get()),
      target.DeleteClass(nullptr, 0, nullptr, nullptr),
      target.DeleteClassAsync(nullptr, 0, nullptr, sink.get()),
      target.CreateClassEnum(nullptr, 0, nullptr, nullptr),
      target.CreateClassEnumAsync(nullptr, 0, nullptr, sink.get()),
      target.PutInstance(nullptr, 0, nullptr, nullptr),
      target.DeleteInstance(nullptr, 0, nullptr, nullptr),
      target.CreateInstanceEnum(nullptr, 0, nullptr, nullptr),
      target.ExecQuery(nullptr, nullptr, 0, nullptr, nullptr),
      target.ExecNotificationQuery(nullptr, nullptr, 0, nullptr, nullptr),
      target.ExecNotificationQueryAsync(nullptr, nullptr, 0, nullptr, sink.get()),
      target.ExecMethod(nullptr, nullptr, 0, nullptr, nullptr, nullptr, nullptr),
  };
  for (const HRESULT result : results) {
    EXPECT_EQ(result, WBEM_E_NOT_SUPPORTED);
  }
  EXPECT_EQ(journal.events(), Strings{});
}

TEST_F(Request, MakesNoInstanceWithoutEntryOrClass) {
  ComPtr<IWbemClassObject> instance;
  EXPECT_EQ(MakeAdapterInstance(state, nullptr, ClassSelector::kNetworkAdapter, nullptr, instance),
            E_FAIL);
  AdapterEntry& entry = AddAdapter("1", 1);
  EXPECT_EQ(MakeAdapterInstance(state, nullptr, ClassSelector::kEnd, &entry, instance),
            WBEM_E_INVALID_CLASS);
  // Without a namespace there are no instances to put to.
  state.services.reset();
  EXPECT_EQ(MakeAdapterInstance(state, nullptr, ClassSelector::kNetworkAdapter, &entry, instance),
            E_FAIL);
  EXPECT_FALSE(instance);
  script.putThrows = "nothing";  // the default would make a nameless put throw
  const auto object = MakeObject();
  EXPECT_EQ(PutPropertyValue(object.get(), nullptr, Variant::Integer(1)), E_FAIL);
  EXPECT_EQ(PutOrRethrow(object.get(), nullptr, Variant::Integer(1).get()), E_FAIL);
  EXPECT_EQ(object->ShownPuts(), Strings{});
}

}  // namespace
}  // namespace wifi
