#include "tests/classes/update_fixture.h"

namespace wifi {
namespace {

using platform::Variant;
using testing_support::Answers;
using testing_support::Raw;
using Strings = std::vector<std::string>;

class SystemPolicies : public testing_support::UpdateFixture {};

TEST_F(SystemPolicies, TheOneInstanceWhateverTheKey) {
  api.onGetPolicyValue = [](std::uint32_t id, std::uint32_t* value) {
    *value = id;
    return 0;
  };
  api.onGetSettingValue = [](std::uint32_t id, std::uint32_t* value) {
    *value = id == 406 ? 2 : 0;
    return 0;
  };
  const Strings expected = {"SettingID=text:9B22596F-DFD9-4948-817C-43794FEA9472",
                            "Caption=text:System Policies", "Description=text:System Policies",
                            "AutoConnect=number:201", "SingleBSSMode=flag:true"};
  EXPECT_EQ(Enumerate("WiFi_SystemPolicies"), S_OK);
  ASSERT_EQ(sink->objects.size(), 1u);
  EXPECT_EQ(sink->objects[0]->ShownPuts(), expected);
  EXPECT_EQ(journal.traces(),
            Strings{"Getting system polices information for WiFi_SystemPolicies"});
  for (const char* path : {"WiFi_SystemPolicies.SettingID=\"other\"", "WiFi_SystemPolicies=@"}) {
    EXPECT_EQ(Get(path), S_OK);
    ASSERT_EQ(sink->objects.size(), 1u);
    EXPECT_EQ(sink->objects[0]->ShownPuts(), expected);
  }
  api.onGetPolicyValue = Answers(1);
  api.onGetSettingValue = Answers(-1);
  EXPECT_EQ(Enumerate("WiFi_SystemPolicies"), S_OK);
  ASSERT_EQ(sink->objects.size(), 1u);
  EXPECT_EQ(sink->objects[0]->puts.size(), 3u);
  api.onGetPolicyValue = api.onGetSettingValue = Answers(0);  // without writing anything
  EXPECT_EQ(Enumerate("WiFi_SystemPolicies"), S_OK);
  ASSERT_EQ(sink->objects.size(), 1u);
  EXPECT_EQ(sink->objects[0]->Last("AutoConnect"), "number:0");
  api.onGetPolicyValue = testing_support::Gives(2u);
  EXPECT_EQ(Enumerate("WiFi_SystemPolicies"), S_OK);
  EXPECT_EQ(sink->objects[0]->Last("SingleBSSMode"), "flag:false");
  script.putResults["Caption"] = E_ACCESSDENIED;
  journal.Clear();
  EXPECT_EQ(Enumerate("WiFi_SystemPolicies"), E_ACCESSDENIED);
  EXPECT_EQ(journal.calls(), Strings{});
  EXPECT_TRUE(sink->objects.empty());
}

TEST_F(SystemPolicies, UpdateWritesBothForEachAdapterOffered) {
  const auto put = [&](Variant autoConnect, Variant singleBss) {
    auto object = Submitted("WiFi_SystemPolicies", nullptr, nullptr);
    object->values["AutoConnect"] = std::move(autoConnect);
    object->values["SingleBSSMode"] = std::move(singleBss);
    changes.clear();
    EXPECT_EQ(Put(object), S_OK);
    EXPECT_EQ(changes.size() % 3, 0u);
    changes.resize(changes.size() / 3);
    return changes;
  };
  EXPECT_EQ(put(Variant::Integer(0), Variant::Boolean(true)),
            (Strings{"SetPolicyValue 201 0", "SetBoosSeteing 406 1"}));
  EXPECT_EQ(put(Variant::AnsiText("2"), Variant::Boolean(false)),
            (Strings{"SetPolicyValue 201 2", "SetBoosSeteing 406 0"}));
  EXPECT_EQ(put(Variant::Integer(3), Raw(VT_BOOL, 1)), Strings{"SetBoosSeteing 406 1"});
  EXPECT_EQ(put(Variant::Integer(-1), Variant::Boolean(true)), Strings{"SetBoosSeteing 406 1"});
  EXPECT_EQ(put(Variant::Integer(1), Raw(VT_NULL, -1)), Strings{"SetPolicyValue 201 1"});
  EXPECT_EQ(journal.traces(), Strings{});
  EXPECT_EQ(put(Variant::AnsiText("x"), Variant::Boolean(true)), Strings{"SetBoosSeteing 406 1"});
  EXPECT_EQ(journal.traces(), Strings(3, "UpdatesysPolicies: failed to change type!"));
}

TEST_F(SystemPolicies, UpdateEndsAtTheFirstFailure) {
  auto object = Submitted("WiFi_SystemPolicies", nullptr, nullptr);
  object->values["AutoConnect"] = Variant::Integer(1);
  EXPECT_EQ(Put(object), WBEM_E_NOT_FOUND);
  EXPECT_EQ(changes, Strings{"SetPolicyValue 201 1"});
  object->values.erase("AutoConnect");
  object->values["SingleBSSMode"] = Variant::Boolean(true);
  statuses["SetBoosSeteing"] = 1;
  EXPECT_EQ(Put(object), WBEM_E_PROVIDER_FAILURE);
  EXPECT_EQ(changes.back(), "SetBoosSeteing 406 1");
  EXPECT_EQ(journal.traces(), Strings{"UpdatesysPolicies: SetBoosSeteing() failed!"});
}

}  // namespace
}  // namespace wifi
