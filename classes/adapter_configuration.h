#pragma once

#include "provider/core/instance.h"

namespace wifi {

// WiFi_NetworkAdapterConfiguration: each adapter's caption and description under its SettingID.

HRESULT EnumerateConfigurations(ProviderState& state, const Delivery& delivery);

/// WBEM_E_NOT_FOUND if the path names no adapter.
HRESULT GetConfiguration(ProviderState& state, const Delivery& delivery, const ParsedPath& path);

/// Accepts every instance and changes nothing.
HRESULT UpdateConfiguration(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
