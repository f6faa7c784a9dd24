#pragma once
// The networks that an adapter has seen. WiFi_AdapterCachedScanList has an instance for each entry
// of GetCachedScanList, WiFi_AvailableNetwork for each entry of GetAvailableNetworks. A fill stops
// at the first put that fails. WBEM_E_NOT_FOUND if the list is empty, the library refuses, or no
// entry has the keys of the path.

#include "provider/core/instance.h"

namespace wifi {

HRESULT EnumerateCachedScanList(ProviderState& state, const Delivery& delivery);
HRESULT GetCachedScanListObject(ProviderState& state, const Delivery& delivery,
                                const ParsedPath& path);

HRESULT EnumerateAvailableNetworks(ProviderState& state, const Delivery& delivery);
HRESULT GetAvailableNetworkObject(ProviderState& state, const Delivery& delivery,
                                  const ParsedPath& path);

}  // namespace wifi
