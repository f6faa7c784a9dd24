#include "classes/adapter_configuration.h"

#include "provider/core/property_writer.h"

namespace wifi {
namespace {

HRESULT Deliver(ProviderState& state, const Delivery& delivery, const AdapterEntry& entry) {
  return DeliverInstance(state, delivery, OLESTR("WiFi_NetworkAdapterConfiguration"),
                         [&](IWbemClassObject* instance) {
                           PropertyWriter writer(instance, PutRule::kStopAtFailure);
                           writer.PutText(OLESTR("SettingID"), entry.deviceId);
                           writer.PutText(OLESTR("Caption"), entry.caption);
                           writer.PutText(OLESTR("Description"), entry.description);
                           return writer.result();
                         });
}

}  // namespace

HRESULT EnumerateConfigurations(ProviderState& state, const Delivery& delivery) {
  return VisitAdapters(state,
                       [&](const AdapterEntry& entry) { return Deliver(state, delivery, entry); });
}

HRESULT GetConfiguration(ProviderState& state, const Delivery& delivery, const ParsedPath& path) {
  const AdapterEntry* entry = FindAdapterByPath(state, path, OLESTR("SettingID"));
  return entry == nullptr ? WBEM_E_NOT_FOUND : Deliver(state, delivery, *entry);
}

HRESULT UpdateConfiguration(ProviderState&, IWbemClassObject*, AdapterEntry&) {
  return S_OK;
}

}  // namespace wifi
