#include "methods/method_dispatch.h"

#include <set>

#include "tests/methods/method_fixture.h"
#include "tests/support/schema_objects.h"

namespace wifi {
namespace {

using testing_support::Answers;
using testing_support::PathOf;
using testing_support::Raises;
using Strings = std::vector<std::string>;

class MethodDispatch : public testing_support::MethodFixture {};

constexpr HRESULT kNotSupported = WBEM_E_NOT_SUPPORTED;
constexpr HRESULT kInvalidClass = WBEM_E_INVALID_CLASS;

TEST_F(MethodDispatch, UnknownMethodsAndClasses) {
  const struct {
    const char* path;
    const char* method;
    HRESULT status;
  } kRows[] = {
      {"WiFi_NetworkAdapter.DeviceID=\"7\"", "setradiostate", kNotSupported},
      {"WiFi_NetworkAdapter.DeviceID=\"7\"", "", kNotSupported},
      {"WiFi_NetworkAdapter.DeviceID=\"7\"", "IsAssociated", kNotSupported},
      {"WiFi_NetworkAdapterConfiguration.SettingID=\"7\"", "getAPIVersion", WBEM_S_NO_ERROR},
      {"WiFi_PreferredProfile.Name=\"a\"", "Delete", WBEM_S_NO_ERROR},
      {"WiFi_NetworkExcludeList.SettingID=\"7\"", "Clear", WBEM_S_NO_ERROR},
      {"WiFi_AdapterAssociationInfo.SettingID=\"7\"", "Disassociate", kInvalidClass},
      {"WiFi_NetworkAdapterSetting.Setting=\"7\"", "IsAssociated", kNotSupported},
      {"WiFi_AdapterChannel.SettingID=\"7\"", "IsAssociated", kInvalidClass},
      {"WiFi_NetworkAdapter.DeviceID=\"7\" ", "ResetStatistics", WBEM_E_INVALID_OBJECT_PATH},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.path) + " " + row.method);
    EXPECT_EQ(Exec(row.path, row.method), row.status);
    EXPECT_EQ(sink->statuses.back(), row.status);
    EXPECT_TRUE(sink->objects.empty());
  }
  EXPECT_EQ(journal.calls(), Strings{});
}

TEST_F(MethodDispatch, EveryMethodAnswersItsOutParameters) {
  for (const contract::Method& row : contract::kMethods) {
    const std::string method(row.name);
    const std::string className(row.className);
    SCOPED_TRACE(className + "." + method);
    // A missing adapter, under a class name in another letter case.
    const std::string_view keys = contract::FindClass(row.className).keys;
    std::string path = className + "." + std::string(keys.substr(0, keys.find(' '))) + "=\"none\"";
    path[0] = 'w';
    EXPECT_EQ(Exec(path, method.c_str()), WBEM_S_NO_ERROR);
    EXPECT_EQ(Out(), Strings{row.returnType == CIM_SINT32 ? "ReturnValue=number:0"
                                                          : "ReturnValue=flag:false"});
    EXPECT_EQ(sink->objects[0]->className, className + "." + method);
    EXPECT_EQ(Exec(className + "=@", method.c_str()), WBEM_S_NO_ERROR);
    EXPECT_EQ(Out().size(), 1u);
    if (method.rfind("Set", 0) != 0) continue;
    // Accepted, but without a body.
    EXPECT_EQ(OnAdapter(method.c_str()), WBEM_S_NO_ERROR);
    EXPECT_EQ(Out(), Strings{"ReturnValue=flag:false"});
  }
  EXPECT_EQ(journal.calls(), Strings{});
}

TEST_F(MethodDispatch, EveryMethodReadsItsInParameters) {
  FillFromSchema(*in.get());
  const auto keys =
      testing_support::KeysOfAdapter7({{"NetworkName", "Guests"}, {"Name", "Office"}});
  for (const contract::Method& row : contract::kMethods) {
    std::set<std::string> declared;
    for (const contract::Parameter& parameter : contract::kParameters) {
      const bool isOfMethod = parameter.className == row.className && parameter.method == row.name;
      if (isOfMethod && !parameter.isOut) declared.emplace(parameter.name);
    }
    journal.Clear();
    Exec(PathOf(row.className, keys), std::string(row.name).c_str());
    const Strings read = journal.Of("get ");
    EXPECT_EQ(std::set(read.begin(), read.end()), declared)
        << row.className << "." << row.name
        << ": its body in methods/ reads other in-parameters than the schema declares";
  }
}

TEST_F(MethodDispatch, AFaultOfTheLibraryIsFalse) {
  api.onResetStatistics = Raises();
  api.onGetApiVersion = Raises();
  api.onIsExcludeListEnabled = Raises();
  EXPECT_EQ(OnAdapter("ResetStatistics"), WBEM_S_NO_ERROR);
  EXPECT_EQ(Out(), Strings{"ReturnValue=flag:false"});
  EXPECT_EQ(Exec("WiFi_NetworkAdapterConfiguration.SettingID=\"7\"", "GetAPIVersion"), 0);
  EXPECT_EQ(Out(), Strings{"ReturnValue=flag:false"});
  journal.Clear();
  EXPECT_EQ(Exec("WiFi_NetworkExcludeList.SettingID=\"7\"", "IsExcludeListEnabled"), 0);
  EXPECT_EQ(Out(), Strings{"ReturnValue=flag:false"});
  EXPECT_EQ(journal.Of("method "), Strings(2, "IsExcludeListEnabled"));  // made, and made again
}

TEST_F(MethodDispatch, TheStatusIsThatOfDelivery) {
  script.indicateResult = WBEM_E_CALL_CANCELLED;
  EXPECT_EQ(OnAdapter("ResetStatistics"), WBEM_E_CALL_CANCELLED);
  script.indicateResult = S_OK;
  script.putResults["ReturnValue"] = E_ACCESSDENIED;
  EXPECT_EQ(OnAdapter("ResetStatistics"), S_OK);
  EXPECT_EQ(sink->objects.size(), 1u);
  script.putThrows = "ReturnValue";
  EXPECT_EQ(OnAdapter("ResetStatistics"), WBEM_E_PROVIDER_FAILURE);
  script.putThrows.clear();
  script.spawnResult = WBEM_E_OUT_OF_MEMORY;
  EXPECT_EQ(OnAdapter("ResetStatistics"), WBEM_E_OUT_OF_MEMORY);
  fakeNamespace.getObjectResults["WiFi_NetworkAdapter"] = WBEM_E_NOT_FOUND;
  EXPECT_EQ(OnAdapter("ResetStatistics"), WBEM_E_NOT_FOUND);
  // The method itself ran every time.
  EXPECT_EQ(journal.calls(), Strings(5, "ResetStatistics"));
}

TEST_F(MethodDispatch, TheObjectOfASecondOutParameterIsMadeFirst) {
  api.onGetRogueApCount = Answers(0);
  EXPECT_EQ(Exec("WiFi_NetworkExcludeList.SettingID=\"7\"", "GetRogueApCount"), 0);
  EXPECT_EQ(
      journal.events(),
      (Strings{"method GetRogueApCount", "spawn WiFi_NetworkExcludeList.GetRogueApCount",
               "call GetRogueApCount", "put Count", "put ReturnValue", "indicate", "status 0"}));
  journal.Clear();
  OnAdapter("ResetStatistics");
  EXPECT_EQ(journal.events().front(), "call ResetStatistics");
}

TEST_F(MethodDispatch, ASuccessWithoutItsObjectIsAFailure) {
  using testing_support::Step;
  for (const Step step : {Step::kFetch, Step::kSignature, Step::kSpawn}) {
    testing_support::FaultPlan plan{step, testing_support::Manner::kNothing, 1, false};
    testing_support::FaultPlan::armed = &plan;
    {
      const testing_support::Side inside(true);
      EXPECT_EQ(OnAdapter("ResetStatistics"), WBEM_E_FAILED) << static_cast<int>(step);
    }
    testing_support::FaultPlan::armed = nullptr;
    EXPECT_EQ(plan.struck, 1);
  }
}

TEST_F(MethodDispatch, NoNamespaceNoObject) {
  state.services.reset();
  ParsedPath path;
  path.className = OLESTR("WiFi_NetworkAdapter");
  EXPECT_TRUE(FAILED(ExecuteMethod(state, delivery(), path, OLESTR("ResetStatistics"), nullptr)));
  EXPECT_EQ(ExecuteMethod(state, delivery(), path, nullptr, nullptr), kNotSupported);
  EXPECT_FALSE(journal.Has("indicate"));
}

}  // namespace
}  // namespace wifi
