#pragma once

#include "provider/core/instance.h"

namespace wifi {

// WiFi_NetworkAdapterConfiguration: each adapter's caption and description under its SettingID.

HRESULT EnumerateConfigurationInstances(ProviderState& state, const Delivery& delivery);

/// WBEM_E_NOT_FOUND if the path names no adapter.
HRESULT GetConfigurationInstance(ProviderState& state, const Delivery& delivery,
                                 const ParsedPath& path);

/// Accepts every instance and changes nothing.
HRESULT UpdateConfigurationInstance(ProviderState& state, IWbemClassObject* instance,
                                    AdapterEntry& entry);

// WiFi_NetworkAdapterSetting: ties each adapter (the path in Element) to its configuration (the
// path in Setting).

/// The Setting paths name the adapter under the key Setting.
HRESULT EnumerateSettingAssociations(ProviderState& state, const Delivery& delivery);

/// The association whose Element path names an adapter by DeviceID and whose Setting path holds a
/// key Setting; WBEM_E_NOT_FOUND otherwise. Its own Setting path carries that value under the key
/// DeviceID.
HRESULT GetSettingAssociation(ProviderState& state, const Delivery& delivery,
                              const ParsedPath& path);

}  // namespace wifi
