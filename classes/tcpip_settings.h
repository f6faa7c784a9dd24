#pragma once
// WiFi_AdapterTcpIpSettings and WiFi_AdapterTcpIpv6Settings, from GetTcpipConfigInfo and
// GetTcpipv6ConfigInfo: the same properties over two records. A fill stops at the first put from
// DHCP_WINS on that fails and answers with it; what becomes of DHCP_IP and DNS decides nothing.

#include "provider/core/provider_state.h"

namespace wifi {

/// Answers with the library's own non-zero status when it refuses.
HRESULT FillTcpIpSettings(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

/// Answers WBEM_E_NOT_FOUND when the library refuses, whatever its status.
HRESULT FillTcpIpv6Settings(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
