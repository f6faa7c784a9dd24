// The channels, the system policies, the configuration and its association.

#include "tests/classes/update_fixture.h"

namespace wifi {
namespace {

using platform::Bstr;
using platform::Variant;
using platform::WideText;
using testing_support::Answers;
using testing_support::FakeObject;
using testing_support::Gives;
using testing_support::Raw;
using Strings = std::vector<std::string>;

class OtherUpdates : public testing_support::UpdateFixture {
 protected:
  HRESULT Enumerate(const char* className) {
    sink->objects.clear();
    const Bstr name(WideText(className));
    return provider->CreateInstanceEnumAsync(name.get(), 0, nullptr, sink.get());
  }
  HRESULT Get(const char* path) {
    sink->objects.clear();
    const Bstr text(WideText(path));
    return provider->GetObjectAsync(text.get(), 0, nullptr, sink.get());
  }
};

class ChannelUpdate : public OtherUpdates {
 protected:
  ChannelUpdate() {
    api.onGetChannelInfo = [this](auto adapter, adapterapi::IbssPreferencesRecord* record) {
      *record = {1, 36, 3, 4, 6, 6, 7, {8, adapter}};
      return statuses["GetChannelInfo"];
    };
    api.onSetIbssPreferences = [this](auto adapter,
                                      const adapterapi::IbssPreferencesRecord* record) {
      std::string text = std::to_string(adapter);
      const auto* words = reinterpret_cast<const std::uint32_t*>(record);
      for (std::size_t index = 0; index < sizeof(*record) / sizeof(*words); ++index) {
        text += " " + std::to_string(words[index]);
      }
      changes.push_back(text);
      return statuses["SetIbssPreferences"];
    };
  }
  platform::ComPtr<FakeObject> Channel(Variant channelA, Variant channelB) {
    auto object = Submitted("WiFi_AdapterChannel", "SettingID", "12");
    object->values["ChannelA"] = std::move(channelA);
    object->values["ChannelB"] = std::move(channelB);
    return object;
  }
};

TEST_F(ChannelUpdate, WritesTheTwoChannelsOfItsAdapterAlone) {
  EXPECT_EQ(Put(Channel(Variant::Integer(149), Variant::AnsiText("11"))), S_OK);
  // A ChannelA that holds no number leaves the library's.
  EXPECT_EQ(Put(Channel(Variant::AnsiText("x"), Variant::Integer(-1))), S_OK);
  EXPECT_EQ(Put(Channel(Raw(VT_NULL, 5), Variant::Integer(1))), S_OK);
  auto without = Channel(Variant(), Variant::Integer(1));
  without->values.erase("ChannelA");
  EXPECT_EQ(Put(without), S_OK);
  EXPECT_EQ(changes, (Strings{"112 1 149 3 4 11 6 7 8 112", "112 1 36 3 4 4294967295 6 7 8 112",
                              "112 1 36 3 4 1 6 7 8 112", "112 1 36 3 4 1 6 7 8 112"}));
}

TEST_F(ChannelUpdate, FailuresAreTracedAndStopIt) {
  const HRESULT failure = static_cast<HRESULT>(WBEM_E_PROVIDER_FAILURE);
  const std::string type = "UpdateAdapterChannel: failed to change channel type!";
  auto without = Channel(Variant::Integer(1), Variant());
  without->values.erase("ChannelB");
  EXPECT_EQ(Put(without), failure);
  EXPECT_EQ(Put(Channel(Variant::Integer(1), Variant::AnsiText("x"))), failure);
  EXPECT_EQ(journal.calls(), Strings{});
  statuses["GetChannelInfo"] = -1;
  EXPECT_EQ(Put(Channel(Variant::Integer(1), Variant::Integer(1))), failure);
  EXPECT_EQ(changes, Strings{});
  statuses = {{"GetChannelInfo", 1}, {"SetIbssPreferences", -1}};
  EXPECT_EQ(Put(Channel(Variant::Integer(1), Variant::Integer(1))), failure);
  statuses = {{"SetIbssPreferences", 7}};
  EXPECT_EQ(Put(Channel(Variant::Integer(1), Variant::Integer(1))), 7);
  EXPECT_EQ(journal.traces(),
            (Strings{type, type, "UpdateAdapterChannel:GetIbssPreferences() failed!",
                     "UpdateAdapterChannel:SetIbssPreferences() failed!"}));
}

class SystemPolicies : public OtherUpdates {};

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
  EXPECT_EQ(Put(object), static_cast<HRESULT>(WBEM_E_NOT_FOUND));
  EXPECT_EQ(changes, Strings{"SetPolicyValue 201 1"});
  object->values.erase("AutoConnect");
  object->values["SingleBSSMode"] = Variant::Boolean(true);
  statuses["SetBoosSeteing"] = 1;
  EXPECT_EQ(Put(object), static_cast<HRESULT>(WBEM_E_PROVIDER_FAILURE));
  EXPECT_EQ(changes.back(), "SetBoosSeteing 406 1");
  EXPECT_EQ(journal.traces(), Strings{"UpdatesysPolicies: SetBoosSeteing() failed!"});
}

class Configuration : public OtherUpdates {};

TEST_F(Configuration, OnePerAdapterAndNothingToUpdate) {
  EXPECT_EQ(Enumerate("WiFi_NetworkAdapterConfiguration"), S_OK);
  ASSERT_EQ(sink->objects.size(), 3u);
  EXPECT_EQ(sink->objects[1]->ShownPuts(),
            (Strings{"SettingID=text:12", "Caption=text:Caption", "Description=text:Description"}));
  EXPECT_EQ(sink->objects[2]->Last("SettingID"), "text:7");
  EXPECT_EQ(Get("WiFi_NetworkAdapterConfiguration.SettingID=\"12\""), S_OK);
  EXPECT_EQ(sink->objects.size(), 1u);
  EXPECT_EQ(Get("WiFi_NetworkAdapterConfiguration.SettingID=\"13\""),
            static_cast<HRESULT>(WBEM_E_NOT_FOUND));
  EXPECT_EQ(Get("WiFi_NetworkAdapterConfiguration.settingid=\"12\""),
            static_cast<HRESULT>(WBEM_E_NOT_FOUND));
  EXPECT_TRUE(sink->objects.empty());
  EXPECT_EQ(Put(Submitted("WiFi_NetworkAdapterConfiguration", "SettingID", "12")), S_OK);
  EXPECT_EQ(journal.calls(), Strings{});
  script.putResults["Caption"] = E_ACCESSDENIED;
  EXPECT_EQ(Enumerate("WiFi_NetworkAdapterConfiguration"), E_ACCESSDENIED);
  EXPECT_TRUE(sink->objects.empty());
}

TEST_F(Configuration, AssociationIsReadUnderOneKeyAndAnsweredUnderAnother) {
  EXPECT_EQ(Enumerate("WiFi_NetworkAdapterSetting"), S_OK);
  ASSERT_EQ(sink->objects.size(), 3u);
  EXPECT_EQ(sink->objects[2]->ShownPuts(),
            (Strings{"Element=text:WiFi_NetworkAdapter.DeviceID=\"7\"",
                     "Setting=text:WiFi_NetworkAdapterConfiguration.Setting=\"7\""}));
  EXPECT_EQ(Get("WiFi_NetworkAdapterSetting.Element=\"WiFi_NetworkAdapter.DeviceID=\\\"7\\\"\","
                "Setting=\"WiFi_NetworkAdapterConfiguration.Setting=\\\"7\\\"\""),
            S_OK);
  ASSERT_EQ(sink->objects.size(), 1u);
  EXPECT_EQ(sink->objects[0]->ShownPuts(),
            (Strings{"Element=text:WiFi_NetworkAdapter.DeviceID=\"7\"",
                     "Setting=text:WiFi_NetworkAdapterConfiguration.DeviceID=\"7\""}));
}

TEST_F(Configuration, AssociationNeedsAServedElementAndASetting) {
  for (const char* keys : {
           "Element=\"WiFi_NetworkAdapter.DeviceID=\\\"8\\\"\",Setting=\"C.Setting=\\\"7\\\"\"",
           "Element=\"WiFi_NetworkAdapter.DeviceID=7\",Setting=\"C.Setting=\\\"7\\\"\"",
           "Element=\"no path \",Setting=\"C.Setting=\\\"7\\\"\"",
           "Element=5,Setting=\"C.Setting=\\\"7\\\"\"",
           "Setting=\"C.Setting=\\\"7\\\"\"",
           "Element=\"WiFi_NetworkAdapter.DeviceID=\\\"7\\\"\"",
           "Element=\"WiFi_NetworkAdapter.DeviceID=\\\"7\\\"\",Setting=\"C.SettingID=\\\"7\\\"\"",
       }) {
    EXPECT_EQ(Get((std::string("WiFi_NetworkAdapterSetting.") + keys).c_str()),
              static_cast<HRESULT>(WBEM_E_NOT_FOUND))
        << keys;
  }
  EXPECT_TRUE(sink->objects.empty());
  EXPECT_EQ(Put(Submitted("WiFi_NetworkAdapterSetting", nullptr, nullptr)),
            static_cast<HRESULT>(WBEM_E_NOT_SUPPORTED));
}

}  // namespace
}  // namespace wifi
