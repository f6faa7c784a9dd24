#include "classes/adapter_configuration.h"

#include "platform/text.h"
#include "provider/core/property_writer.h"

namespace wifi {
namespace {

using platform::Variant;

constexpr const OLECHAR* kAdapterClass = OLESTR("WiFi_NetworkAdapter");
constexpr const OLECHAR* kConfigurationClass = OLESTR("WiFi_NetworkAdapterConfiguration");
constexpr const OLECHAR* kDeviceId = OLESTR("DeviceID");
// The property that holds the path of the configuration. In enumerated instances, it is also the
// name of the key in that path.
constexpr const OLECHAR* kSetting = OLESTR("Setting");

HRESULT FillConfigurationInstance(IWbemClassObject* instance, const AdapterEntry& entry) {
  PropertyWriter writer(instance, PutRule::kStopAtFailure);
  writer.PutText(kSettingId, entry.deviceId);
  writer.PutText(OLESTR("Caption"), entry.caption);
  writer.PutText(OLESTR("Description"), entry.description);
  return writer.result();
}

HRESULT Deliver(ProviderState& state, const Delivery& delivery, const AdapterEntry& entry) {
  return DeliverInstance(state, delivery, kConfigurationClass, [&](IWbemClassObject* instance) {
    return FillConfigurationInstance(instance, entry);
  });
}

/// An object path, after conversion to the ANSI code page and back.
Variant PathValue(const OLECHAR* className, const OLECHAR* keyName, const VARIANT& key) {
  return Variant::OrOutOfMemory([&] {
    return Variant::Owning(platform::ThroughAnsi(ObjectPathText(className, keyName, key)));
  });
}

HRESULT Deliver(ProviderState& state, const Delivery& delivery, const VARIANT& element,
                const OLECHAR* settingKey, const VARIANT& setting) {
  return DeliverInstance(
      state, delivery, OLESTR("WiFi_NetworkAdapterSetting"), [&](IWbemClassObject* instance) {
        PropertyWriter writer(instance, PutRule::kStopAtFailure);
        writer.Put(OLESTR("Element"), PathValue(kAdapterClass, kDeviceId, element));
        writer.Put(kSetting, PathValue(kConfigurationClass, settingKey, setting));
        return writer.result();
      });
}

/// The object path in a key of `path`; empty if the key is missing or its text is not an object
/// path.
ParsedPath ReferredPath(const ParsedPath& path, const OLECHAR* referenceName) {
  std::unique_ptr<ParsedPath> referred;
  PathParser(PathFlag::kAbsoluteNamespace)
      .Parse(TextOf(GetPathKeyValue(path, referenceName)), &referred);
  return referred ? std::move(*referred) : ParsedPath();
}

}  // namespace

HRESULT EnumerateConfigurationInstances(ProviderState& state, const Delivery& delivery) {
  return VisitAdapters(state,
                       [&](const AdapterEntry& entry) { return Deliver(state, delivery, entry); });
}

HRESULT GetConfigurationInstance(ProviderState& state, const Delivery& delivery,
                                 const ParsedPath& path) {
  const AdapterEntry* entry = FindAdapterByPath(state, path, kSettingId);
  return entry == nullptr ? WBEM_E_NOT_FOUND : Deliver(state, delivery, *entry);
}

HRESULT UpdateConfigurationInstance(ProviderState&, IWbemClassObject*, AdapterEntry&) {
  return S_OK;
}

HRESULT EnumerateSettingAssociations(ProviderState& state, const Delivery& delivery) {
  return VisitAdapters(state, [&](const AdapterEntry& entry) {
    const Variant key = Variant::Text(entry.deviceId);
    return Deliver(state, delivery, key.get(), kSetting, key.get());
  });
}

HRESULT GetSettingAssociation(ProviderState& state, const Delivery& delivery,
                              const ParsedPath& path) {
  const ParsedPath element = ReferredPath(path, OLESTR("Element"));
  if (FindAdapterByPath(state, element, kDeviceId) == nullptr) return WBEM_E_NOT_FOUND;
  const ParsedPath setting = ReferredPath(path, kSetting);
  const VARIANT& settingKey = GetPathKeyValue(setting, kSetting);
  if (settingKey.vt == VT_EMPTY) return WBEM_E_NOT_FOUND;
  // Compatibility: the key is read under one name and returned under another.
  return Deliver(state, delivery, GetPathKeyValue(element, kDeviceId), kDeviceId, settingKey);
}

}  // namespace wifi
