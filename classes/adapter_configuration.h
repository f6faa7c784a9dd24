#pragma once

#include "provider/core/instance.h"

namespace wifi {

// WiFi_NetworkAdapterConfiguration: the caption and description of each adapter, with key
// SettingID.

HRESULT EnumerateConfigurationInstances(ProviderState& state, const Delivery& delivery);

/// WBEM_E_NOT_FOUND if the path does not name an adapter.
HRESULT GetConfigurationInstance(ProviderState& state, const Delivery& delivery,
                                 const ParsedPath& path);

/// Accepts every instance and changes nothing.
HRESULT UpdateConfigurationInstance(ProviderState& state, IWbemClassObject* instance,
                                    AdapterEntry& entry);

// WiFi_NetworkAdapterSetting: associates each adapter (the path in Element) with its configuration
// (the path in Setting).

/// The path in Setting has the device id in the key Setting.
HRESULT EnumerateSettingAssociations(ProviderState& state, const Delivery& delivery);

/// Returns the association for a path whose Element names an adapter by DeviceID and whose Setting
/// has a key Setting; otherwise WBEM_E_NOT_FOUND. In the returned Setting, the value of that key is
/// in the key DeviceID.
HRESULT GetSettingAssociation(ProviderState& state, const Delivery& delivery,
                              const ParsedPath& path);

}  // namespace wifi
