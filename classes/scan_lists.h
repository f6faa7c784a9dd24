#pragma once
// The networks that an adapter has seen: WiFi_AdapterCachedScanList and WiFi_AvailableNetwork, an
// instance for each entry of GetCachedScanList and of GetAvailableNetworks. A fill stops at the
// first put that fails. WBEM_E_NOT_FOUND when a list is empty or refused, or no entry has the
// path's keys.

#include "provider/core/instance.h"

namespace wifi {

HRESULT EnumerateCachedScanList(ProviderState& state, const Delivery& delivery);
HRESULT GetCachedScanListObject(ProviderState& state, const Delivery& delivery,
                                const ParsedPath& path);

HRESULT EnumerateAvailableNetworks(ProviderState& state, const Delivery& delivery);
HRESULT GetAvailableNetworkObject(ProviderState& state, const Delivery& delivery,
                                  const ParsedPath& path);

}  // namespace wifi
