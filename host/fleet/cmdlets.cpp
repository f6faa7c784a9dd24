#include "host/fleet/cmdlets.h"

#include <algorithm>
#include <iterator>

#include "schema/contract.h"

namespace host {
namespace {

constexpr CmdletColumn kAdapterColumns[] = {
    {"Adapter", "DeviceID"},           {"Type", "WiFiAdapterType"},
    {"State", "AssociationStatus"},    {"Radio", "RadioState"},
    {"Switch", "HardwareRadioState"},  {"Band", "Band"},
    {"Profile", "LastAppliedProfile"},
};
constexpr CmdletColumn kAssociationColumns[] = {
    {"Adapter", "SettingID"}, {"Associated", "Associated"}, {"Network", "SSID"},
    {"Rate", "Rate"},         {"Channel", "Channel"},       {"Security", "AuthenMode"},
    {"Profile", "Profile"},
};
constexpr CmdletColumn kCachedColumns[] = {
    {"Network", "NetworkName"}, {"dBm", "SignalDbm"},           {"Channel", "ChannelID"},
    {"Security", "AuthLevel"},  {"Access point", "MacAddress"}, {"Adapter", "SettingID"},
};
constexpr CmdletColumn kAvailableColumns[] = {
    {"Network", "NetworkName"},     {"dBm", "SignalDbm"},     {"Channel", "Encrypted"},
    {"Access point", "MacAddress"}, {"Adapter", "SettingID"},
};
constexpr CmdletColumn kExcludedColumns[] = {
    {"Network", "NetworkName"},
    {"Access point", "MacAddress"},
    {"Reason", "Reason"},
    {"Adapter", "SettingID"},
};
constexpr CmdletColumn kProfileColumns[] = {
    {"Profile", "Name"},       {"Network", "SSID"},
    {"Mode", "OperationMode"}, {"Security", "Authentication"},
    {"Cipher", "Encryption"},  {"Store", "Type"},
};

constexpr const char* kEmptyList =
    "If an adapter's list is empty, the provider reports the error Not found.";
constexpr const char* kExcludeList =
    "If an adapter's list is empty, the provider reports the error Not found. The methods of the "
    "whole list need one of its entries too.";

constexpr ClassCmdlets kClasses[] = {
    {"WiFi_NetworkAdapter", "WiFiAdapter",
     "Read an adapter just before you change it: the provider compares a new value with the values "
     "that it read last, of whichever adapter.",
     true, kAdapterColumns},
    {"WiFi_NetworkAdapterConfiguration", "WiFiAdapterConfiguration", nullptr, true, {}},
    {"WiFi_NetworkAdapterSetting",
     nullptr,
     "its keys are references alone, by which no cmdlet can select",
     false,
     {}},
    {"WiFi_SystemPolicies", "WiFiSystemPolicy", nullptr, false, {}},
    {"WiFi_AdapterChannel", "WiFiAdapterChannel", nullptr, true, {}},
    {"WiFi_AdapterSignalParameters", "WiFiAdapterSignal", nullptr, true, {}},
    {"WiFi_AdapterAssociationInfo", "WiFiAdapterAssociation", nullptr, true, kAssociationColumns},
    {"WiFi_AdapterAssocStats", "WiFiAdapterRoamingStatistics", nullptr, true, {}},
    {"WiFi_AdapterTxRxStats", "WiFiAdapterTrafficStatistics", nullptr, true, {}},
    {"WiFi_AdapterCachedScanList", "WiFiScannedNetwork", kEmptyList, true, kCachedColumns},
    {"WiFi_AvailableNetwork", "WiFiNetwork", kEmptyList, true, kAvailableColumns},
    {"WiFi_NetworkExcludeList", "WiFiExcludedNetwork", kExcludeList, true, kExcludedColumns},
    {"WiFi_AdapterDevice", "WiFiAdapterDevice", nullptr, true, {}},
    {"WiFi_AdapterConfigSettings", "WiFiAdapterResource", nullptr, true, {}},
    {"WiFi_AdapterVersion", "WiFiAdapterVersion", nullptr, true, {}},
    {"WiFi_AdapterFeatures", "WiFiAdapterFeature", nullptr, true, {}},
    {"WiFi_AdapterTcpIpSettings", "WiFiAdapterTcpIp", nullptr, true, {}},
    {"WiFi_AdapterTcpIpv6Settings", "WiFiAdapterTcpIpv6", nullptr, true, {}},
    {"WiFi_PreferredProfile", "WiFiProfile", nullptr, true, kProfileColumns},
};

constexpr MethodCmdlet kMethods[] = {
    {"WiFi_NetworkAdapter", "RegisterProfileService", "Set", "WiFiProfileService", "Medium"},
    {"WiFi_NetworkAdapter", "SetRadioState", nullptr, nullptr, nullptr},
    {"WiFi_NetworkAdapter", "SetIBSSTxPower", nullptr, nullptr, nullptr},
    {"WiFi_NetworkAdapter", "SetPspMode", nullptr, nullptr, nullptr},
    {"WiFi_NetworkAdapter", "SetReadyForProfileState", nullptr, nullptr, nullptr},
    {"WiFi_NetworkAdapter", "ResetStatistics", "Reset", "WiFiAdapterStatistics", "Medium"},
    {"WiFi_NetworkAdapter", "SetProtocolPreference", nullptr, nullptr, nullptr},
    {"WiFi_NetworkAdapter", "SetConnectionPreference", nullptr, nullptr, nullptr},
    {"WiFi_NetworkAdapter", "EnableXpZeroConfig", "Set", "WiFiZeroConfiguration", "Medium"},
    {"WiFi_NetworkAdapter", "ResetExcludeList", "Clear", "WiFiExcludeList", "Medium"},
    {"WiFi_NetworkAdapter", "AddExcludeListEntry", "Add", "WiFiExcludedNetwork", "Medium"},
    {"WiFi_NetworkAdapter", "RemoveExcludeListEntry", "Remove", "WiFiExcludedNetwork", "Medium"},
    {"WiFi_NetworkAdapter", "IsAdapterSupported", "Test", "WiFiAdapterSupport", nullptr},
    {"WiFi_NetworkAdapter", "StopAuthentication", "Stop", "WiFiAuthentication", "Medium"},
    {"WiFi_NetworkAdapter", "IsTcpIpInstalledAndBound", "Test", "WiFiTcpIpBinding", nullptr},
    {"WiFi_NetworkAdapter", "Release1xConfig", "Clear", "WiFi8021xConfiguration", "High"},
    {"WiFi_NetworkAdapterConfiguration", "GetAPIVersion", "Get", "WiFiLibraryVersion", nullptr},
    {"WiFi_NetworkAdapterConfiguration", "IsCurrentProfile", "Test", "WiFiCurrentProfile", nullptr},
    {"WiFi_NetworkAdapterConfiguration", "Disassociate", "Disconnect", "WiFiAdapter", "High"},
    {"WiFi_AdapterAssociationInfo", "IsAssociated", nullptr, nullptr, nullptr},
    {"WiFi_NetworkExcludeList", "IsExcludeListEnabled", "Test", "WiFiExcludeList", nullptr},
    {"WiFi_NetworkExcludeList", "EnableExcludeList", "Set", "WiFiExcludeList", "Medium"},
    {"WiFi_NetworkExcludeList", "GetRogueApCount", "Get", "WiFiRogueAccessPointCount", nullptr},
    {"WiFi_NetworkExcludeList", "ExcludeThisAP", "Block", "WiFiAccessPoint", "Medium"},
    {"WiFi_PreferredProfile", "ApplyProfile", "Use", "WiFiProfile", "Medium"},
    {"WiFi_PreferredProfile", "ReenterAndReapplyProfile", "Restart", "WiFiProfile", "Medium"},
    {"WiFi_PreferredProfile", "ApplyProfileFromMacAddress", "Use", "WiFiProfileByAddress",
     "Medium"},
};

constexpr bool HasMethod(const contract::Name& className, const contract::Name& method) {
  for (const MethodCmdlet& row : kMethods) {
    if (contract::Name(row.className) == className && contract::Name(row.method) == method) {
      return true;
    }
  }
  return false;
}
#define CONTRACT_CLASS(name, keys, isWritten)      \
  static_assert(contract::HasRow(kClasses, #name), \
                "the schema's class " #name        \
                " has no row: add it to kClasses in host/fleet/cmdlets.cpp");
#define CONTRACT_METHOD(className, name, returnType)        \
  static_assert(HasMethod(#className, #name),               \
                "the schema's method " #className "." #name \
                " has no row: add it to kMethods in host/fleet/cmdlets.cpp");
#include "schema/contract.inc"

/// The first CLASS.METHOD of the table that the schema does not have.
constexpr contract::Name UnknownMethod() {
  for (const MethodCmdlet& row : kMethods) {
    if (contract::FindMethod(row.className, row.method).name.empty()) {
      return {row.className, row.method};
    }
  }
  return {};
}
static_assert(contract::IsKnown<contract::UnknownClass(kClasses)>());
static_assert(contract::IsKnown<UnknownMethod()>());

}  // namespace

const std::span<const ClassCmdlets> kClassCmdlets = kClasses;
const std::span<const MethodCmdlet> kMethodCmdlets = kMethods;

const ClassCmdlets& CmdletsOf(const ClassDeclaration& declaration) {
  return *std::ranges::find(kClasses, declaration.name, &ClassCmdlets::className);
}

const MethodCmdlet& CmdletOf(const ClassDeclaration& declaration, const MethodDeclaration& method) {
  return *std::ranges::find_if(kMethods, [&](const MethodCmdlet& row) {
    return declaration.name == row.className && method.name == row.method;
  });
}

bool IsWritten(const ClassDeclaration& declaration) {
  return std::ranges::any_of(declaration.properties, [](const PropertyDeclaration& property) {
    return property.qualifiers.Flag("write");
  });
}

}  // namespace host
