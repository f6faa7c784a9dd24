// Arbitrary bytes in every record, list and text of both libraries, and any status of their
// operations.

#include "fuzz/provider_world.h"

namespace {

constexpr struct {
  const OLECHAR* className;
  const OLECHAR* keys;
} kClasses[] = {
    {OLESTR("WiFi_NetworkAdapter"), OLESTR(R"(.DeviceID="7")")},
    {OLESTR("WiFi_AdapterAssociationInfo"), OLESTR(R"(.SettingID="7")")},
    {OLESTR("WiFi_AdapterVersion"), OLESTR(R"(.SettingID="7")")},
    {OLESTR("WiFi_AdapterDevice"), OLESTR(R"(.SettingID="7")")},
    {OLESTR("WiFi_AdapterConfigSettings"), OLESTR(R"(.SettingID="7")")},
    {OLESTR("WiFi_AvailableNetwork"), OLESTR(R"(.SettingID="7",MacAddress="00:00:00:00:00:00")")},
    {OLESTR("WiFi_PreferredProfile"), OLESTR(R"(.Name="")")},
    {OLESTR("WiFi_AdapterSignalParameters"), OLESTR(R"(.SettingID="7")")},
    {OLESTR("WiFi_AdapterChannel"), OLESTR(R"(.SettingID="7")")},
    {OLESTR("WiFi_AdapterFeatures"), OLESTR(R"(.SettingID="7")")},
    {OLESTR("WiFi_SystemPolicies"), OLESTR("")},
    {OLESTR("WiFi_AdapterTcpIpSettings"), OLESTR(R"(.SettingID="7")")},
    {OLESTR("WiFi_AdapterTcpIpv6Settings"), OLESTR(R"(.SettingID="7")")},
    {OLESTR("WiFi_AdapterCachedScanList"),
     OLESTR(R"(.SettingID="7",MacAddress="00:00:00:00:00:00")")},
    {OLESTR("WiFi_NetworkExcludeList"), OLESTR(R"(.SettingID="7",NetworkName="")")},
    {OLESTR("WiFi_AdapterTxRxStats"), OLESTR(R"(.SettingID="7")")},
    {OLESTR("WiFi_AdapterAssocStats"), OLESTR(R"(.SettingID="7")")},
};

}  // namespace

void Fuzz_library(FuzzInput bytes) {
  ByteSource source(bytes);
  ProviderWorld world(source);
  const auto& row = kClasses[source.Below(std::size(kClasses))];
  const bool discovered = source.Take<std::uint8_t>() % 4 == 0;
  world.LibrariesFromInput();
  if (discovered) world.Initialize();
  world.Enumerate(row.className);
  world.Get(platform::OleString(row.className) + row.keys);
}
