#include "provider/server/routing.h"

#include "classes/adapter_channel.h"
#include "classes/adapter_class.h"
#include "classes/adapter_configuration.h"
#include "classes/association.h"
#include "classes/exclude_list.h"
#include "classes/network_adapter_update.h"
#include "classes/scan_lists.h"
#include "classes/statistics.h"
#include "classes/system_policies.h"
#include "profiles/preferred_profiles.h"
#include "provider/core/same_name.h"
#include "schema/contract.h"

namespace wifi {
namespace {

template <ClassSelector Selector>
HRESULT EnumerateSelected(ProviderState& state, const Delivery& delivery) {
  return EnumerateAdapterClass(state, delivery, Selector);
}

template <ClassSelector Selector>
HRESULT GetSelected(ProviderState& state, const Delivery& delivery, const ParsedPath& path) {
  return GetAdapterClassObject(state, delivery, path, Selector);
}

template <ClassSelector Selector>
constexpr ClassRoute AdapterRoute(const OLECHAR* className) {
  return {className, EnumerateSelected<Selector>, GetSelected<Selector>};
}

/// Associations follow from the adapters, so they cannot be updated.
HRESULT UpdateNotSupported(ProviderState&, IWbemClassObject*, AdapterEntry&) {
  return WBEM_E_NOT_SUPPORTED;
}

constexpr ClassRoute kRoutes[] = {
    AdapterRoute<ClassSelector::kNetworkAdapter>(OLESTR("WiFi_NetworkAdapter")),
    {OLESTR("WiFi_NetworkAdapterConfiguration"), EnumerateConfigurationInstances,
     GetConfigurationInstance},
    AdapterRoute<ClassSelector::kAssociationInfo>(OLESTR("WiFi_AdapterAssociationInfo")),
    {OLESTR("WiFi_NetworkAdapterSetting"), EnumerateSettingAssociations, GetSettingAssociation},
    AdapterRoute<ClassSelector::kVersion>(OLESTR("WiFi_AdapterVersion")),
    AdapterRoute<ClassSelector::kDevice>(OLESTR("WiFi_AdapterDevice")),
    AdapterRoute<ClassSelector::kConfigSettings>(OLESTR("WiFi_AdapterConfigSettings")),
    {OLESTR("WiFi_AvailableNetwork"), EnumerateAvailableNetworks, GetAvailableNetworkObject},
    {OLESTR("WiFi_PreferredProfile"), EnumeratePreferredProfiles, GetPreferredProfile},
    AdapterRoute<ClassSelector::kSignalParameters>(OLESTR("WiFi_AdapterSignalParameters")),
    AdapterRoute<ClassSelector::kChannel>(OLESTR("WiFi_AdapterChannel")),
    AdapterRoute<ClassSelector::kFeatures>(OLESTR("WiFi_AdapterFeatures")),
    {OLESTR("WiFi_SystemPolicies"), EnumerateSystemPolicies, GetSystemPolicies},
    AdapterRoute<ClassSelector::kTcpIpSettings>(OLESTR("WiFi_AdapterTcpIpSettings")),
    AdapterRoute<ClassSelector::kTcpIpv6Settings>(OLESTR("WiFi_AdapterTcpIpv6Settings")),
    {OLESTR("WiFi_AdapterCachedScanList"), EnumerateCachedScanList, GetCachedScanListObject},
    {OLESTR("WiFi_NetworkExcludeList"), EnumerateExcludeList, GetExcludeListObject},
    {OLESTR("WiFi_AdapterTxRxStats"), EnumerateStatistics, GetStatisticsObject},
    {OLESTR("WiFi_AdapterAssocStats"), EnumerateAssociationStats, GetAssociationStatsObject},
};

constexpr UpdateRoute kUpdates[] = {
    {OLESTR("WiFi_NetworkAdapter"), UpdateNetworkAdapter},
    {OLESTR("WiFi_NetworkAdapterConfiguration"), UpdateConfigurationInstance},
    {OLESTR("WiFi_AdapterChannel"), UpdateAdapterChannel},
    {OLESTR("WiFi_SystemPolicies"), UpdateSystemPolicies},
    {OLESTR("WiFi_NetworkAdapterSetting"), UpdateNotSupported},
};

struct Undeletable {
  const OLECHAR* className;
};
constexpr Undeletable kNeverDeleted[] = {
    {OLESTR("WiFi_NetworkAdapter")},
    {OLESTR("WiFi_NetworkAdapterConfiguration")},
    {OLESTR("WiFi_NetworkAdapterSetting")},
};

#define CONTRACT_CLASS(name, keys, isWritten)                                                 \
  static_assert(contract::HasRow(kRoutes, #name),                                             \
                "the schema's class " #name                                                   \
                " has no route: add its row to kRoutes in provider/server/routing.cpp");      \
  static_assert(!isWritten || contract::HasRow(kUpdates, #name),                              \
                "the schema's class " #name                                                   \
                " has properties that are written and no update: add its row to kUpdates in " \
                "provider/server/routing.cpp");
#include "schema/contract.inc"
static_assert(contract::IsKnown<contract::UnknownClass(kRoutes)>());
static_assert(contract::IsKnown<contract::UnknownClass(kUpdates)>());
static_assert(contract::IsKnown<contract::UnknownClass(kNeverDeleted)>());

/// Compares exactly first, because names are nearly always spelled as in the schema and equal names
/// are equal in every locale. A comparison by the rules of the locale costs a hundred times as
/// much.
template <class Row, std::size_t Count>
const Row* RowByName(const Row (&rows)[Count], const OLECHAR* className) {
  const platform::OleStringView name = platform::ViewOf(className);
  for (const Row& row : rows) {
    if (name == row.className) return &row;
  }
  for (const Row& row : rows) {
    if (SameNameIgnoringCase(row.className, className)) return &row;
  }
  return nullptr;
}

}  // namespace

const ClassRoute* RouteByName(const OLECHAR* className) {
  return RowByName(kRoutes, className);
}

const UpdateRoute* UpdateRouteByName(const OLECHAR* className) {
  return RowByName(kUpdates, className);
}

const ClassRoute* RouteByQuery(const OLECHAR* query) {
  const platform::OleStringView text = platform::ViewOf(query);
  for (const ClassRoute& route : kRoutes) {
    if (text.find(route.className) != platform::OleStringView::npos) return &route;
  }
  return nullptr;
}

HRESULT DeleteAnswer(const OLECHAR* className) {
  for (const Undeletable& row : kNeverDeleted) {
    if (SameNameIgnoringCase(row.className, className)) return WBEM_E_NOT_SUPPORTED;
  }
  return WBEM_E_INVALID_CLASS;
}

}  // namespace wifi
