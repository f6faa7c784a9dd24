#include "tests/classes/update_fixture.h"

namespace wifi {
namespace {

using Strings = std::vector<std::string>;

class Configuration : public testing_support::UpdateFixture {};

TEST_F(Configuration, OnePerAdapterAndNothingToUpdate) {
  EXPECT_EQ(Enumerate("WiFi_NetworkAdapterConfiguration"), S_OK);
  ASSERT_EQ(sink->objects.size(), 3u);
  EXPECT_EQ(sink->objects[1]->ShownPuts(),
            (Strings{"SettingID=text:12", "Caption=text:Caption", "Description=text:Description"}));
  EXPECT_EQ(sink->objects[2]->Last("SettingID"), "text:7");
  EXPECT_EQ(Get("WiFi_NetworkAdapterConfiguration.SettingID=\"12\""), S_OK);
  EXPECT_EQ(sink->objects.size(), 1u);
  EXPECT_EQ(Get("WiFi_NetworkAdapterConfiguration.SettingID=\"13\""), WBEM_E_NOT_FOUND);
  EXPECT_EQ(Get("WiFi_NetworkAdapterConfiguration.settingid=\"12\""), WBEM_E_NOT_FOUND);
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
    EXPECT_EQ(Get((std::string("WiFi_NetworkAdapterSetting.") + keys).c_str()), WBEM_E_NOT_FOUND)
        << keys;
  }
  EXPECT_TRUE(sink->objects.empty());
  EXPECT_EQ(Put(Submitted("WiFi_NetworkAdapterSetting", nullptr, nullptr)), WBEM_E_NOT_SUPPORTED);
}

}  // namespace
}  // namespace wifi
