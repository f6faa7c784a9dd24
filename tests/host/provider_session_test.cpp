#include "host/service/provider_session.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/host/fake_provider.h"
#include "tests/host/toy.h"

namespace host {
namespace {

using platform::Bstr;
using platform::ComPtr;
using platform::Variant;

constexpr HRESULT kFailed = WBEM_E_FAILED;

ComPtr<IWbemClassObject> Spawn(Request& request, const OLECHAR* className) {
  ComPtr<IWbemClassObject> definition;
  ComPtr<IWbemClassObject> instance;
  const Bstr name(className);
  if (SUCCEEDED(
          request.services->GetObject(name.get(), 0, request.context, definition.put(), nullptr))) {
    definition->SpawnInstance(0, instance.put());
  }
  return instance;
}

HRESULT PutCount(IWbemClassObject* instance, LONG count) {
  Variant value = Variant::Integer(count);
  return instance->Put(OLESTR("Count"), 0, value.in_place(), 0);
}

HRESULT IndicateToy(Request& request, LONG count) {
  const ComPtr<IWbemClassObject> toy = Spawn(request, OLESTR("Toy"));
  PutCount(toy.get(), count);
  IWbemClassObject* object = toy.get();
  return request.sink->Indicate(1, &object);
}

HRESULT Finish(Request& request, HRESULT status) {
  request.sink->SetStatus(WBEM_STATUS_COMPLETE, status, nullptr, nullptr);
  return status;
}

class ProviderSessionTest : public ::testing::Test {
 protected:
  void Start() { ASSERT_EQ(session_.Start(provider_.factory()), S_OK); }
  void ExpectDefects(const std::vector<std::string>& parts) {
    ASSERT_EQ(defects_.size(), parts.size()) << ::testing::PrintToString(defects_);
    for (std::size_t index = 0; index < parts.size(); ++index) {
      EXPECT_NE(defects_[index].find(parts[index]), std::string::npos) << defects_[index];
    }
  }

  static simulator::PlatformObjects Machine() {
    simulator::PlatformObjects objects;
    objects.userName = "HOME\\anna";
    objects.adapters.push_back({"7", "PCI\\1", "00:11", "caption", std::nullopt});
    objects.adapters.push_back({"9", std::nullopt, "00:22", std::nullopt, "text"});
    return objects;
  }

  std::vector<std::string> defects_;
  Defects collector_{[this](const std::string& sentence) { defects_.push_back(sentence); }};
  FakeProvider provider_;
  ProviderSession session_{ToyRepository(), Machine(), collector_};
};

TEST_F(ProviderSessionTest, GivesWhatAWellBehavedProviderIndicates) {
  Start();
  provider_.services.steps = [](Request& request) {
    EXPECT_EQ(platform::Utf8Text(request.text.view()), "Toy") << "the class's own spelling";
    IndicateToy(request, 1);
    IndicateToy(request, 2);
    return Finish(request, WBEM_S_NO_ERROR);
  };
  const Outcome outcome = session_.Enumerate("TOY");
  EXPECT_EQ(outcome.status, S_OK);
  ASSERT_EQ(outcome.objects.size(), 2u);
  EXPECT_EQ(outcome.objects[1].ToJson().dump(), R"({"Count":2})");
  session_.Stop();
  ExpectDefects({});
}

TEST_F(ProviderSessionTest, GivesManyInstancesAsTheyComeAndForgetsNoHeldOne) {
  constexpr LONG kMany = 20000;
  Start();
  provider_.services.steps = [](Request& request) {
    [[maybe_unused]] auto* oldest = Spawn(request, OLESTR("Toy")).release();  // without a Release
    for (LONG index = 0; index < kMany; ++index) IndicateToy(request, index);
    const ComPtr<IWbemClassObject> recent = Spawn(request, OLESTR("Toy"));
    recent->Release();  // one Release too many
    return Finish(request, S_OK);
  };
  LONG next = 0;
  const Outcome outcome = session_.Enumerate("Toy", [&next](const CimObject& toy) {
    EXPECT_EQ(toy.ToJson()["Count"], next);
    ++next;
  });
  EXPECT_EQ(next, kMany);
  EXPECT_TRUE(outcome.objects.empty());
  ExpectDefects({"1 reference to an instance of Toy was not released", "released more often"});
}

TEST_F(ProviderSessionTest, PassesFailuresOnWithoutBlame) {
  Start();
  provider_.services.steps = [](Request& request) {
    IndicateToy(request, 1);
    return Finish(request, kFailed);
  };
  const Outcome outcome = session_.Get(R"(Toy.Id="1")");
  EXPECT_EQ(outcome.status, kFailed);
  EXPECT_EQ(outcome.objects.size(), 1u);
  ExpectDefects({});
}

TEST_F(ProviderSessionTest, ReportsEveryBreachOfTheContract) {
  Start();
  IWbemClassObject* leaked = nullptr;
  FakeServices foreign;  // an object that is not from the host
  struct Row {
    const char* what;
    FakeServices::Steps steps;
    std::vector<std::string> defects;
  };
  const Row rows[] = {
      {"two final statuses",
       [](Request& request) {
         Finish(request, S_OK);
         return Finish(request, S_OK);
       },
       {"SetStatus again"}},
      {"no final status", [](Request&) { return S_OK; }, {"no final status"}},
      {"Indicate after the end",
       [](Request& request) {
         Finish(request, S_OK);
         EXPECT_TRUE(FAILED(IndicateToy(request, 1)));
         return S_OK;
       },
       {"Indicate after the final status"}},
      {"return value and status differ",
       [](Request& request) {
         Finish(request, kFailed);
         return S_OK;
       },
       {"returned WBEM_S_NO_ERROR (0x00000000): success, but its status was WBEM_E_FAILED"}},
      {"flags on the status",
       [](Request& request) { return request.sink->SetStatus(2, S_OK, nullptr, nullptr); },
       {"SetStatus with flags 2"}},
      {"no objects",
       [](Request& request) {
         request.sink->Indicate(0, nullptr);
         IWbemClassObject* none = nullptr;
         request.sink->Indicate(0, &none);
         request.sink->Indicate(1, &none);
         return Finish(request, S_OK);
       },
       {"no array", "0 objects", "a missing object"}},
      {"values that do not fit, and a property that is not declared",
       [](Request& request) {
         const ComPtr<IWbemClassObject> toy = Spawn(request, OLESTR("Toy"));
         Variant text = Variant::AnsiText("many");
         EXPECT_TRUE(FAILED(toy->Put(OLESTR("Count"), 0, text.in_place(), 0)));
         EXPECT_TRUE(FAILED(toy->Put(OLESTR("Colour"), 0, text.in_place(), 0)));
         return Finish(request, S_OK);
       },
       {"refused Count: WBEM_E_TYPE_MISMATCH", "refused Colour: WBEM_E_NOT_FOUND"}},
      {"another class",
       [](Request& request) {
         const ComPtr<IWbemClassObject> pair = Spawn(request, OLESTR("Pair"));
         IWbemClassObject* object = pair.get();
         EXPECT_TRUE(FAILED(request.sink->Indicate(1, &object)));
         return Finish(request, S_OK);
       },
       {"an instance of Pair instead of Toy"}},
      {"a class definition",
       [](Request& request) {
         ComPtr<IWbemClassObject> definition;
         const Bstr name(OLESTR("Toy"));
         request.services->GetObject(name.get(), 0, request.context, definition.put(), nullptr);
         IWbemClassObject* object = definition.get();
         request.sink->Indicate(1, &object);
         return Finish(request, S_OK);
       },
       {"a class definition instead of an instance"}},
      {"an object of its own",
       [&foreign](Request& request) {
         auto* object = reinterpret_cast<IWbemClassObject*>(static_cast<IUnknown*>(&foreign));
         request.sink->Indicate(1, &object);
         return Finish(request, S_OK);
       },
       {"not spawned from a class definition"}},
      {"no context",
       [](Request& request) {
         request.context = nullptr;
         IndicateToy(request, 1);
         return Finish(request, S_OK);
       },
       {"GetObject(Toy) without the request's context"}},
      {"a leaked instance",
       [&leaked](Request& request) {
         leaked = Spawn(request, OLESTR("Toy")).release();
         return Finish(request, S_OK);
       },
       {"1 reference to an instance of Toy was not released"}},
      {"leaked sink and context",
       [](Request& request) {
         request.context->AddRef();
         request.sink->AddRef();
         request.sink->AddRef();
         return Finish(request, S_OK);
       },
       {"1 reference to the request's context", "2 references to the sink were"}},
      {"too many releases",
       [](Request& request) {
         IndicateToy(request, 1);
         request.sink->Release();
         request.context->Release();
         request.context->Release();
         return Finish(request, S_OK);
       },
       {"the request's context was released more often", "the sink was released more often"}},
      {"an exception",
       [](Request& request) -> HRESULT {
         Finish(request, S_OK);
         throw std::runtime_error("escaped");
       },
       {"an exception left the provider", "returned E_UNEXPECTED"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    defects_.clear();
    provider_.services.steps = row.steps;
    session_.Enumerate("Toy");
    ExpectDefects(row.defects);
  }
  EXPECT_EQ(PutCount(leaked, 3), S_OK) << "what is held stays usable";
}

TEST_F(ProviderSessionTest, TakesAnyClassWhenTheProviderAnswersAQuery) {
  Start();
  provider_.services.steps = [](Request& request) {
    IndicateToy(request, 1);
    return Finish(request, S_OK);
  };
  EXPECT_EQ(session_.Query("SELECT * FROM Pair").objects.size(), 1u);
  ExpectDefects({});
}

TEST_F(ProviderSessionTest, HandsOverInstancesAndParameters) {
  Start();
  std::string seen;
  provider_.services.steps = [&seen](Request& request) {
    const CimObject& given = ClassObject::From(request.object)->object();
    seen += given.info().name() + given.ToJson().dump();
    if (given.info().name() != "__PARAMETERS") return Finish(request, S_OK);
    ComPtr<IWbemClassObject> definition;
    ComPtr<IWbemClassObject> signature;
    ComPtr<IWbemClassObject> out;
    const Bstr name(OLESTR("Toy"));
    request.services->GetObject(name.get(), 0, request.context, definition.put(), nullptr);
    definition->GetMethod(OLESTR("Reset"), 0, nullptr, signature.put());
    signature->SpawnInstance(0, out.put());
    Variant result = Variant::Boolean(true);
    out->Put(OLESTR("ReturnValue"), 0, result.in_place(), 0);
    IWbemClassObject* object = out.get();
    request.sink->Indicate(1, &object);
    return Finish(request, S_OK);
  };
  EXPECT_EQ(session_.Put(NewToy("1", 4)).status, S_OK);
  CimObject in(*ToyRepository().FindClass("Toy")->FindMethod("Reset")->in);
  Put(in, "Level", Variant::Integer(2));
  const Outcome outcome = session_.Call(R"(Toy.Id="1")", "Reset", &in);
  EXPECT_EQ(seen, R"(Toy{"Id":"1","Count":4}__PARAMETERS{"Level":2})");
  ASSERT_EQ(outcome.objects.size(), 1u);
  EXPECT_EQ(outcome.objects[0].ToJson().dump(), R"({"ReturnValue":true})");
  ExpectDefects({});
}

TEST_F(ProviderSessionTest, ServesThePlatformClassesDuringInitialize) {
  std::vector<std::string> found;
  provider_.onInitialize = [&found](IWbemServices* services) {
    for (const OLECHAR* className :
         {OLESTR("win32_networkadapter"), OLESTR("Win32_ComputerSystem")}) {
      ComPtr<IEnumWbemClassObject> instances;
      const Bstr name(className);
      ASSERT_EQ(services->CreateInstanceEnum(name.get(), 0, nullptr, instances.put()), S_OK);
      ComPtr<IWbemClassObject> object;
      ULONG count = 0;
      while (instances->Next(WBEM_INFINITE, 1, object.put(), &count) == WBEM_S_NO_ERROR) {
        found.push_back(ClassObject::From(object.get())->object().ToJson().dump());
      }
      EXPECT_EQ(count, 0u);
    }
    ComPtr<IEnumWbemClassObject> own;
    const Bstr name(OLESTR("Toy"));
    EXPECT_EQ(services->CreateInstanceEnum(name.get(), 0, nullptr, own.put()),
              WBEM_E_NOT_SUPPORTED);
  };
  Start();
  EXPECT_EQ(
      found,
      (std::vector<std::string>{
          R"({"DeviceID":"7","PNPDeviceID":"PCI\\1","MACAddress":"00:11","Caption":"caption","Description":null})",
          R"({"DeviceID":"9","PNPDeviceID":null,"MACAddress":"00:22","Caption":null,"Description":"text"})",
          R"({"UserName":"HOME\\anna"})"}));
  ExpectDefects({});
}

TEST_F(ProviderSessionTest, ReportsAFailedStartAndGoesOn) {
  provider_.initStatus = 17;
  Start();
  EXPECT_EQ(session_.init_status(), 17);
  provider_.services.steps = [](Request& request) { return Finish(request, S_OK); };
  EXPECT_EQ(session_.Enumerate("Toy").status, S_OK);
  ExpectDefects({});
}

TEST_F(ProviderSessionTest, WantsOneInitStatus) {
  provider_.initStatusCount = 0;
  Start();
  EXPECT_TRUE(FAILED(session_.init_status()));
  ExpectDefects({"Initialize: no final status"});
}

TEST_F(ProviderSessionTest, WantsTheNamespaceBack) {
  provider_.releasesNamespace = false;
  Start();
  session_.Stop();
  ExpectDefects({"still holds the namespace"});
  provider_.services.services.reset();  // while it can still be released
}

}  // namespace
}  // namespace host
