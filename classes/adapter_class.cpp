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
  const OLECHAR* className;
  const OLECHAR* key;
  HRESULT (*fill)(ProviderState&, IWbemClassObject*, AdapterEntry&);
};

// In the order of ClassSelector.
constexpr AdapterClass kAdapterClasses[] = {
    {OLESTR("WiFi_NetworkAdapter"), OLESTR("DeviceID"), FillNetworkAdapter},
    {OLESTR("WiFi_AdapterAssociationInfo"), kSettingId, FillAssociationInfo},
    {OLESTR("WiFi_AdapterVersion"), kSettingId, FillAdapterVersion},
    {OLESTR("WiFi_AdapterDevice"), kSettingId, FillAdapterDevice},
    {OLESTR("WiFi_AdapterConfigSettings"), kSettingId, FillConfigSettings},
    {OLESTR("WiFi_AdapterSignalParameters"), kSettingId, FillSignalParameters},
    {OLESTR("WiFi_AdapterChannel"), kSettingId, FillAdapterChannel},
    {OLESTR("WiFi_AdapterFeatures"), kSettingId, FillAdapterFeatures},
    {OLESTR("WiFi_AdapterTcpIpSettings"), kSettingId, FillTcpIpSettings},
    {OLESTR("WiFi_AdapterTcpIpv6Settings"), kSettingId, FillTcpIpv6Settings},
};
static_assert(std::size(kAdapterClasses) == static_cast<std::size_t>(ClassSelector::kEnd),
              "each ClassSelector of classes/adapter_class.h has its row in kAdapterClasses, "
              "classes/adapter_class.cpp");
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
