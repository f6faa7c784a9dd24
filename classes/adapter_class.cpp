#include "classes/adapter_class.h"

#include "classes/adapter_channel.h"
#include "classes/adapter_description.h"
#include "classes/association.h"
#include "classes/network_adapter.h"
#include "classes/signal_parameters.h"
#include "classes/tcpip_settings.h"
#include "schema/contract.h"

namespace wifi {
namespace {

struct AdapterClass {
  ClassSelector selector;
  const OLECHAR* className;
  const OLECHAR* key;
  HRESULT (*fill)(ProviderState&, IWbemClassObject*, AdapterEntry&);
};

constexpr AdapterClass kAdapterClasses[] = {
    {ClassSelector::kNetworkAdapter, OLESTR("WiFi_NetworkAdapter"), OLESTR("DeviceID"),
     FillNetworkAdapter},
    {ClassSelector::kAssociationInfo, OLESTR("WiFi_AdapterAssociationInfo"), kSettingId,
     FillAssociationInfo},
    {ClassSelector::kVersion, OLESTR("WiFi_AdapterVersion"), kSettingId, FillAdapterVersion},
    {ClassSelector::kDevice, OLESTR("WiFi_AdapterDevice"), kSettingId, FillAdapterDevice},
    {ClassSelector::kConfigSettings, OLESTR("WiFi_AdapterConfigSettings"), kSettingId,
     FillConfigSettings},
    {ClassSelector::kSignalParameters, OLESTR("WiFi_AdapterSignalParameters"), kSettingId,
     FillSignalParameters},
    {ClassSelector::kChannel, OLESTR("WiFi_AdapterChannel"), kSettingId, FillAdapterChannel},
    {ClassSelector::kFeatures, OLESTR("WiFi_AdapterFeatures"), kSettingId, FillAdapterFeatures},
    {ClassSelector::kTcpIpSettings, OLESTR("WiFi_AdapterTcpIpSettings"), kSettingId,
     FillTcpIpSettings},
    {ClassSelector::kTcpIpv6Settings, OLESTR("WiFi_AdapterTcpIpv6Settings"), kSettingId,
     FillTcpIpv6Settings},
};

/// The first selector whose row is not at its place; kEnd if there is none.
constexpr ClassSelector Misplaced() {
  std::size_t index = 0;
  while (index < std::size(kAdapterClasses) &&
         kAdapterClasses[index].selector == static_cast<ClassSelector>(index)) {
    ++index;
  }
  return static_cast<ClassSelector>(index);
}
/// The compiler's message shows the selector.
template <ClassSelector Selector>
constexpr bool AllHaveRows() {
  static_assert(
      Selector == ClassSelector::kEnd,
      "this ClassSelector of classes/adapter_class.h has no row at its place in "
      "kAdapterClasses: add it in classes/adapter_class.cpp, in the order of ClassSelector");
  return true;
}
static_assert(AllHaveRows<Misplaced()>());
static_assert(contract::IsKnown<contract::UnknownClass(kAdapterClasses)>());

constexpr bool HasOtherKey(const contract::Name& className, const contract::Name& keys) {
  for (const AdapterClass& row : kAdapterClasses) {
    if (contract::Name(row.className) == className) return contract::Name(row.key) != keys;
  }
  return false;
}
#define CONTRACT_CLASS(name, keys, isWritten)                         \
  static_assert(!HasOtherKey(#name, keys),                            \
                "kAdapterClasses in classes/adapter_class.cpp names " \
                "another key of " #name " than the schema");
#include "schema/contract.inc"

const AdapterClass* Selected(ClassSelector selector) {
  const auto index = static_cast<std::size_t>(selector);
  return index < std::size(kAdapterClasses) ? &kAdapterClasses[index] : nullptr;
}

/// Makes the instance and passes it to the sink. Returns the result of the sink.
HRESULT DeliverAdapterInstance(ProviderState& state, const Delivery& delivery,
                               ClassSelector selector, AdapterEntry& entry) {
  platform::ComPtr<IWbemClassObject> instance;
  const HRESULT result = MakeAdapterInstance(state, delivery.context, selector, &entry, instance);
  return FAILED(result) ? result : Indicate(delivery, instance.get(), result);
}

}  // namespace

HRESULT MakeAdapterInstance(ProviderState& state, IWbemContext* context, ClassSelector selector,
                            AdapterEntry* entry, platform::ComPtr<IWbemClassObject>& instance) {
  if (entry == nullptr) return E_FAIL;
  const AdapterClass* selected = Selected(selector);
  if (selected == nullptr) return WBEM_E_INVALID_CLASS;
  const HRESULT result = SpawnClassInstance(state, selected->className, instance, context);
  return FAILED(result) ? result : selected->fill(state, instance.get(), *entry);
}

HRESULT EnumerateAdapterClass(ProviderState& state, const Delivery& delivery,
                              ClassSelector selector) {
  return VisitAdapters(state, [&](AdapterEntry& entry) {
    return DeliverAdapterInstance(state, delivery, selector, entry);
  });
}

HRESULT GetAdapterClassObject(ProviderState& state, const Delivery& delivery,
                              const ParsedPath& path, ClassSelector selector) {
  const AdapterClass* selected = Selected(selector);
  if (selected == nullptr) return WBEM_E_INVALID_CLASS;
  AdapterEntry* entry = FindAdapterByPath(state, path, selected->key);
  return entry == nullptr ? WBEM_E_NOT_FOUND
                          : DeliverAdapterInstance(state, delivery, selector, *entry);
}

}  // namespace wifi
