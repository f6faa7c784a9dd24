#pragma once
// WiFi_AdapterTcpIpSettings, from GetTcpipConfigInfo, and WiFi_AdapterTcpIpv6Settings, from
// GetTcpipv6ConfigInfo, with the same properties. The results of putting DHCP_IP and DNS are
// ignored. After these, a fill stops at the first put that fails and returns its result.

#include "provider/core/provider_state.h"

namespace wifi {

/// If the library refuses, returns its non-zero status.
HRESULT FillTcpIpSettings(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

/// If the library refuses, returns WBEM_E_NOT_FOUND, whatever its status.
HRESULT FillTcpIpv6Settings(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
