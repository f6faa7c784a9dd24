#include "scenario/dump_classes.h"

#include "schema/contract.h"

namespace simulator {
namespace {

using enum Turn;

constexpr PropertyRow kAdapterProperties[] = {
    {"WiFiAdapterType", kPlain, "type"},          {"HardwareRadioState", kPlain, "hwRadioState"},
    {"CcxVersion", kDottedVersion, "ccxVersion"}, {"CcxPowerLevels", kMilliwatts, "ccxPowerLevels"},
    {"DisableRfControl", kNone, nullptr},
};
constexpr PropertyRow kSignalProperties[] = {{"SignalQuality", kPlain, "quality"}};
constexpr PropertyRow kAssociationProperties[] = {
    {"Profile", kProfileName, "profileName"},
    {"Rate", kMbps, "rate"},
};
constexpr PropertyRow kStatisticsProperties[] = {
    {"ApMacAddr", kApAddress, nullptr},
    {"Rssi", kDbm, "rssi"},
};
constexpr PropertyRow kDeviceProperties[] = {
    {"MacAddress", kNone, nullptr},     {"VendorID", kHex, "vendorId"},
    {"DeviceID", kHex, "deviceId"},     {"SubsystemID", kHex, "subsystemId"},
    {"HardwareID", kHex, "hardwareId"}, {"SubSystemVendorID", kHex, "subsystemVendorId"},
};
constexpr PropertyRow kConfigurationProperties[] = {
    {"IOAddress", kHex, "ioAddress"},
    {"MemoryAddress", kHex, "memoryAddress"},
    {"AttributeMemoryAddress", kHex, "attributeMemoryAddress"},
    {"AttriuteMemorySize", kPlain, "attributeMemorySize"},
    {"ControllerIOAddress", kHex, "controllerIoAddress"},
    {"PacketFilterMask", kHex, "packetFilterMask"},
};
constexpr PropertyRow kTcpipProperties[] = {
    {"DHCP_IP", kPlain, "dhcpEnabled"},    {"DNS", kPlain, "dnsFromDhcp"},
    {"DHCP_WINS", kPlain, "winsFromDhcp"}, {"DNSPrim", kPlain, "dnsPrimary"},
    {"DNSSec", kPlain, "dnsSecondary"},    {"WINSPrim", kPlain, "winsPrimary"},
    {"WINSSec", kPlain, "winsSecondary"},
};
constexpr PropertyRow kTcpipv6Properties[] = {
    {"DHCP_IP", kPlain, "dhcpEnabled"},      {"DNS", kPlain, "dnsFromDhcp"},
    {"DHCP_WINS", kPlain, "winsFromDhcp"},   {"DNSPrim", kPlain, "dnsPrimary"},
    {"DNSSec", kPlain, "dnsSecondary"},      {"WINSPrim", kPlain, "winsPrimary"},
    {"WINSSec", kPlain, "winsSecondary"},    {"IPAddress", kJoined, "ipAddresses"},
    {"DefaultGateway", kJoined, "gateways"},
};

constexpr RecordRow kRecords[] = {
    {"WiFi_NetworkAdapter", "DeviceID", nullptr, "GetConnectionPreference", true,
     kAdapterProperties},
    {"WiFi_AdapterChannel", "SettingID", "channels", "GetChannelInfo", false, {}},
    {"WiFi_AdapterSignalParameters", "SettingID", "signal", "GetSignalParameters", false,
     kSignalProperties},
    {"WiFi_AdapterAssociationInfo", "SettingID", "association", "GetAssociationInfo", false,
     kAssociationProperties},
    {"WiFi_AdapterAssocStats", "SettingID", "associationStats", "GetAssociationStats", false,
     kStatisticsProperties},
    {"WiFi_AdapterTxRxStats", "SettingID", "traffic", "GetTxRxStats", false, {}},
    {"WiFi_AdapterDevice", "SettingID", "device", "GetDeviceInfo", false, kDeviceProperties},
    {"WiFi_AdapterConfigSettings", "SettingID", "configuration", "GetAdapterConfiguration", false,
     kConfigurationProperties},
    {"WiFi_AdapterVersion", "SettingID", "versions", "GetVersionInfo", false, {}},
    {"WiFi_AdapterFeatures", "SettingID", "features", "GetAdapterFeatures", false, {}},
    {"WiFi_AdapterTcpIpSettings", "SettingID", "tcpip", "GetTcpipConfigInfo", false,
     kTcpipProperties},
    {"WiFi_AdapterTcpIpv6Settings", "SettingID", "tcpipv6", "GetTcpipv6ConfigInfo", false,
     kTcpipv6Properties},
};

constexpr PropertyRow kCachedProperties[] = {
    {"Caption", kNone, nullptr},
    {"Description", kNone, nullptr},
    {"NetworkName", kPlain, "ssid"},
    {"MacAddress", kPlain, "mac"},
    {"OperationMode", kPlain, "opMode"},
    {"ChannelID", kPlain, "channel"},
    {"UnicastEncryptionLevel", kPlain, "unicast"},
    {"MulticastEncryptionLevel", kPlain, "multicast"},
    {"AuthLevel", kPlain, "auth"},
};
constexpr PropertyRow kAvailableProperties[] = {
    {"Caption", kNone, nullptr},         {"Description", kNone, nullptr},
    {"NetworkName", kPlain, "ssid"},     {"MacAddress", kPlain, "mac"},
    {"OperationMode", kPlain, "opMode"}, {"Encrypted", kPlain, "channel"},
};
constexpr PropertyRow kExcludeProperties[] = {
    {"Caption", kNone, nullptr},   {"Description", kNone, nullptr}, {"NetworkName", kPlain, "ssid"},
    {"MacAddress", kPlain, "mac"}, {"Reason", kReason, "reason"},
};
constexpr PropertyRow kProfileProperties[] = {
    {"Caption", kNone, nullptr},
    {"Description", kNone, nullptr},
    {"Type", kNone, nullptr},
    {"OperationMode", kProfileMode, "opMode"},
};

constexpr ListRow kLists[] = {
    {"WiFi_AdapterCachedScanList", "cachedNetworks", "GetCachedScanList", kNetworkTable,
     kCachedProperties},
    {"WiFi_AvailableNetwork", "availableNetworks", "GetAvailableNetworks", kNetworkTable,
     kAvailableProperties},
    {"WiFi_NetworkExcludeList", "excludeList", "GetExcludeList", kExcludeEntryTable,
     kExcludeProperties},
};
constexpr ListRow kProfiles[] = {
    {"WiFi_PreferredProfile", nullptr, nullptr, kProfileTable, kProfileProperties}};

// The platform's object of the adapter; the policies and settings; nothing but the adapter.
constexpr PropertyRow kDescriptionProperties[] = {
    {"Caption", kNone, nullptr},
    {"Description", kNone, nullptr},
};
constexpr PropertyRow kPolicyProperties[] = {
    {"Caption", kNone, nullptr},
    {"Description", kNone, nullptr},
    {"AutoConnect", kNone, nullptr},
    {"SingleBSSMode", kNone, nullptr},
};
constexpr OtherRow kOthers[] = {
    {"WiFi_NetworkAdapterConfiguration", kDescriptionProperties},
    {"WiFi_SystemPolicies", kPolicyProperties},
    {"WiFi_NetworkAdapterSetting", {}},
};

#define CONTRACT_CLASS(name, keys, isWritten)                                               \
  static_assert(contract::HasRow(kRecords, #name) || contract::HasRow(kLists, #name) ||     \
                    contract::HasRow(kProfiles, #name) || contract::HasRow(kOthers, #name), \
                "the schema's class " #name                                                 \
                " has no row: add it to kRecords, kLists or kOthers in "                    \
                "scenario/dump_classes.cpp");
#include "schema/contract.inc"

/// The first class of a table, or the first property of one, that is not in the schema.
template <class Row, std::size_t Count>
constexpr contract::Name Unknown(const Row (&rows)[Count]) {
  for (const Row& row : rows) {
    for (const PropertyRow& property : row.properties) {
      if (contract::FindProperty(row.className, property.property).name.empty()) {
        return {row.className, property.property};
      }
    }
  }
  return contract::UnknownClass(rows);
}
static_assert(contract::IsKnown<Unknown(kRecords)>());
static_assert(contract::IsKnown<Unknown(kLists)>());
static_assert(contract::IsKnown<Unknown(kProfiles)>());
static_assert(contract::IsKnown<Unknown(kOthers)>());

}  // namespace

const std::span<const RecordRow> kRecordClasses = kRecords;
const std::span<const ListRow> kListClasses = kLists;
const ListRow& kProfileClass = kProfiles[0];
const std::span<const OtherRow> kOtherClasses = kOthers;

}  // namespace simulator
