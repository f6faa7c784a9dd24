// Every class reaches its own routines: by enumeration, by query and by key.

#include <cstring>

#include "tests/support/fake_profile_library.h"
#include "tests/support/provider_fixture.h"

namespace wifi {
namespace {

using platform::Bstr;
using platform::WideText;
using Strings = std::vector<std::string>;

/// One adapter with one of everything.
class Routing : public testing_support::ProviderFixture {
 protected:
  Routing() {
    Initialize({{107, "7", 1}});
    std::memcpy(networks_.entries[0].macAddress, "\x02\0\0\0\0\x01", 6);
    std::memcpy(excluded_.entries[0].ssid, "Guest", 5);
    library_.stores[1] = {{.name = "Home"}};
    api.onGetCachedScanList = api.onGetAvailableNetworks = testing_support::Gives(&networks_);
    api.onGetExcludeList = testing_support::Gives(&excluded_);
  }
  /// "CLASS FIRST-PUT" of each instance that the operation delivered, or its failing code.
  Strings Brought(HRESULT result) {
    Strings brought;
    if (FAILED(result)) brought.push_back(std::to_string(result));
    for (const auto& object : sink->objects) {
      brought.push_back(object->className + " " + object->ShownPuts().front());
    }
    sink->objects.clear();
    return brought;
  }
  Strings Get(const std::string& path) {
    const Bstr text(WideText(path));
    return Brought(provider->GetObjectAsync(text.get(), 0, nullptr, sink.get()));
  }

 private:
  adapterapi::ScanList networks_ = {.count = 1, .entries = {}};
  adapterapi::ExcludeList excluded_ = {.count = 1, .entries = {}};
  testing_support::FakeProfileLibrary library_{journal};
};

TEST_F(Routing, EveryClassByItsOwnRoutines) {
  const struct {
    std::string name;
    std::string keys;
    const char* firstPut = "SettingID=text:7";
    const char* queried = nullptr;  ///< the class that is found first in the name, if it is another
  } kClasses[] = {
      {"WiFi_NetworkAdapter", "DeviceID=\"7\"", "DeviceID=text:7"},
      {"WiFi_AdapterAssociationInfo", "SettingID=\"7\""},
      {"WiFi_AdapterVersion", "SettingID=\"7\""},
      {"WiFi_AdapterDevice", "SettingID=\"7\""},
      {"WiFi_AdapterConfigSettings", "SettingID=\"7\""},
      {"WiFi_AdapterSignalParameters", "SettingID=\"7\""},
      {"WiFi_AdapterChannel", "SettingID=\"7\""},
      {"WiFi_AdapterFeatures", "SettingID=\"7\""},
      {"WiFi_AdapterTcpIpSettings", "SettingID=\"7\""},
      {"WiFi_AdapterTcpIpv6Settings", "SettingID=\"7\""},
      {"WiFi_AdapterAssocStats", "SettingID=\"7\""},
      {"WiFi_AdapterTxRxStats", "SettingID=\"7\""},
      {"WiFi_NetworkAdapterConfiguration", "SettingID=\"7\"", "SettingID=text:7",
       "WiFi_NetworkAdapter"},
      {"WiFi_NetworkAdapterSetting",
       "Element=\"WiFi_NetworkAdapter.DeviceID=\\\"7\\\"\",Setting=\"C.Setting=\\\"7\\\"\"",
       "Element=text:WiFi_NetworkAdapter.DeviceID=\"7\"", "WiFi_NetworkAdapter"},
      {"WiFi_SystemPolicies", "SettingID=\"any\"",
       "SettingID=text:9B22596F-DFD9-4948-817C-43794FEA9472"},
      {"WiFi_AdapterCachedScanList", "MacAddress=\"02:00:00:00:00:01\",SettingID=\"7\""},
      {"WiFi_AvailableNetwork", "MacAddress=\"02:00:00:00:00:01\",SettingID=\"7\""},
      {"WiFi_NetworkExcludeList", "NetworkName=\"Guest\",SettingID=\"7\""},
      {"WiFi_PreferredProfile", "Name=\"Home\"", "Name=text:Home"},
  };
  for (const auto& row : kClasses) {
    SCOPED_TRACE(row.name);
    const Strings one = {row.name + " " + row.firstPut};
    EXPECT_EQ(Get(row.name + "." + row.keys), one);
    // Under any other name there is no key.
    if (row.name != "WiFi_SystemPolicies") {
      EXPECT_EQ(Get(row.name + ".X" + row.keys),
                Strings{std::to_string(static_cast<HRESULT>(WBEM_E_NOT_FOUND))});
    }
    const Bstr name(WideText(row.name));
    EXPECT_EQ(Brought(provider->CreateInstanceEnumAsync(name.get(), 0, nullptr, sink.get())), one);
    const Bstr query(WideText("SELECT * FROM " + row.name));
    const Strings queried =
        Brought(provider->ExecQueryAsync(nullptr, query.get(), 0, nullptr, sink.get()));
    ASSERT_EQ(queried.size(), 1u);
    EXPECT_EQ(queried[0].substr(0, queried[0].find(' ')),
              row.queried != nullptr ? row.queried : row.name);
  }
}

}  // namespace
}  // namespace wifi
