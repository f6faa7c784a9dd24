#include "classes/setting_association.h"

#include "platform/text.h"
#include "provider/core/property_writer.h"

namespace wifi {
namespace {

using platform::Variant;

constexpr const OLECHAR* kDeviceId = OLESTR("DeviceID");
// Names the property that holds the configuration's path and, in enumerated paths, that path's key.
constexpr const OLECHAR* kSetting = OLESTR("Setting");

/// CLASS.KEY=VALUE; it passes through the ANSI code page.
Variant PathTo(const OLECHAR* className, const OLECHAR* keyName, const VARIANT& key) {
  ParsedPath path;
  path.className = className;
  path.AddKey(keyName, key);
  return Variant::AnsiText(platform::AnsiText(path.Text().c_str()));
}

HRESULT Deliver(ProviderState& state, const Delivery& delivery, const VARIANT& element,
                const OLECHAR* settingKey, const VARIANT& setting) {
  return DeliverInstance(
      state, delivery, OLESTR("WiFi_NetworkAdapterSetting"), [&](IWbemClassObject* instance) {
        PropertyWriter writer(instance, PutRule::kStopAtFailure);
        writer.Put(OLESTR("Element"), PathTo(OLESTR("WiFi_NetworkAdapter"), kDeviceId, element));
        writer.Put(kSetting,
                   PathTo(OLESTR("WiFi_NetworkAdapterConfiguration"), settingKey, setting));
        return writer.result();
      });
}

/// One key of the object path that stands in a key of `path`; empty if either is missing or the
/// text is no path.
Variant KeyOfReference(const ParsedPath& path, const OLECHAR* referenceName,
                       const OLECHAR* keyName) {
  const Variant reference = Variant::CopyOf(GetPathKeyValue(path, referenceName));
  std::unique_ptr<ParsedPath> referred;
  const PathResult result =
      PathParser(PathFlag::kAbsoluteNamespace).Parse(reference.text(), &referred);
  return result == PathResult::kParsed ? Variant::CopyOf(GetPathKeyValue(*referred, keyName))
                                       : Variant();
}

}  // namespace

HRESULT EnumerateSettingAssociations(ProviderState& state, const Delivery& delivery) {
  return VisitAdapters(state, [&](const AdapterEntry& entry) {
    const Variant key = Variant::Text(entry.deviceId);
    return Deliver(state, delivery, key.get(), kSetting, key.get());
  });
}

HRESULT GetSettingAssociation(ProviderState& state, const Delivery& delivery,
                              const ParsedPath& path) {
  const Variant element = KeyOfReference(path, OLESTR("Element"), kDeviceId);
  if (FindAdapterEntry(state.adapters, platform::AnsiText(element.text())) == nullptr) {
    return WBEM_E_NOT_FOUND;
  }
  const Variant setting = KeyOfReference(path, kSetting, kSetting);
  if (setting.type() == VT_EMPTY) return WBEM_E_NOT_FOUND;
  // Read under one key name and answered under another: that is what clients of this class know.
  return Deliver(state, delivery, element.get(), kDeviceId, setting.get());
}

}  // namespace wifi
