#include "host/cli/class_view.h"

#include <algorithm>

#include "host/mof/schema.h"

namespace host {

const ClassView* ViewOf(std::string_view className) {
  static const std::vector<ClassView> views = {
      {"WiFi_NetworkAdapter",
       {"DeviceID", "WiFiAdapterType", "Band", "RadioState", "AssociationStatus", "TxRate"},
       ""},
      {"WiFi_AdapterAssociationInfo",
       {"SettingID", "Associated", "SSID", "Channel", "Rate", "AuthenMode", "Encryption"},
       ""},
      {"WiFi_AdapterCachedScanList",
       {"SettingID", "NetworkName", "MacAddress", "Band", "ChannelID", "RSSI", "AuthLevel"},
       "-RSSI"},
      {"WiFi_AvailableNetwork",
       {"SettingID", "NetworkName", "MacAddress", "Band", "OperationMode", "RSSI"},
       "-RSSI"},
      {"WiFi_NetworkExcludeList", {"SettingID", "NetworkName", "MacAddress", "Reason"}, ""},
      {"WiFi_AdapterTcpIpSettings",
       {"SettingID", "IPAddress", "DhcpSubnetMask", "DefaultGateway", "DNSPrim", "DHCP_IP"},
       ""},
      {"WiFi_PreferredProfile",
       {"Name", "SSID", "OperationMode", "Encryption", "Authentication", "Type"},
       ""},
  };
  const auto found = std::ranges::find_if(views, [className](const ClassView& view) {
    return SameIgnoringAsciiCase(view.className, className);
  });
  return found == views.end() ? nullptr : &*found;
}

std::vector<std::string> ColumnsOfView(const ClassView& view, const Json& rows) {
  std::vector<std::string> columns;
  for (const std::string& column : view.columns) {
    const bool isThere =
        std::ranges::any_of(rows, [&column](const Json& row) { return row.contains(column); });
    if (isThere) columns.push_back(column);
  }
  return columns;
}

}  // namespace host
