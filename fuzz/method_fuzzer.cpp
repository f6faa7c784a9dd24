// Every method with in-parameters of any type.

#include "fuzz/provider_world.h"

namespace {

constexpr struct {
  const OLECHAR* path;
  const OLECHAR* method;
} kMethods[] = {
    {OLESTR(R"(WiFi_NetworkAdapter.DeviceID="7")"), OLESTR("RegisterProfileService")},
    {OLESTR(R"(WiFi_NetworkAdapter.DeviceID="7")"), OLESTR("EnableXpZeroConfig")},
    {OLESTR(R"(WiFi_NetworkAdapter.DeviceID="7")"), OLESTR("ResetExcludeList")},
    {OLESTR(R"(WiFi_NetworkAdapter.DeviceID="7")"), OLESTR("AddExcludeListEntry")},
    {OLESTR(R"(WiFi_NetworkAdapter.DeviceID="7")"), OLESTR("RemoveExcludeListEntry")},
    {OLESTR(R"(WiFi_NetworkAdapter.DeviceID="7")"), OLESTR("IsAdapterSupported")},
    {OLESTR(R"(WiFi_NetworkAdapter.DeviceID="7")"), OLESTR("IsTcpIpInstalledAndBound")},
    {OLESTR(R"(WiFi_NetworkAdapterConfiguration.SettingID="7")"), OLESTR("GetAPIVersion")},
    {OLESTR(R"(WiFi_NetworkAdapterConfiguration.SettingID="7")"), OLESTR("IsCurrentProfile")},
    {OLESTR(R"(WiFi_NetworkAdapterConfiguration.SettingID="7")"), OLESTR("Disassociate")},
    {OLESTR(R"(WiFi_AdapterAssociationInfo.SettingID="7")"), OLESTR("IsAssociated")},
    {OLESTR(R"(WiFi_PreferredProfile.Name="Office")"), OLESTR("ApplyProfile")},
    {OLESTR(R"(WiFi_PreferredProfile.Name="Office")"), OLESTR("ReenterAndReapplyProfile")},
    {OLESTR(R"(WiFi_PreferredProfile.Name="Office")"), OLESTR("ApplyProfileFromMacAddress")},
    {OLESTR(R"(WiFi_NetworkExcludeList.SettingID="7")"), OLESTR("IsExcludeListEnabled")},
    {OLESTR(R"(WiFi_NetworkExcludeList.SettingID="7")"), OLESTR("EnableExcludeList")},
    {OLESTR(R"(WiFi_NetworkExcludeList.SettingID="7")"), OLESTR("GetRogueApCount")},
    {OLESTR(R"(WiFi_NetworkExcludeList.SettingID="7")"), OLESTR("ExcludeThisAP")},
};

}  // namespace

void Fuzz_method(FuzzInput bytes) {
  ByteSource source(bytes);
  ProviderWorld world(source);
  if (source.Take<std::uint8_t>() % 2 != 0) world.LibrariesFromInput();
  do {
    const auto& row = kMethods[source.Below(std::size(kMethods))];
    world.Method(row.path, row.method);
  } while (!source.empty());
}
