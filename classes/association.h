#pragma once

#include "provider/core/instance.h"

namespace wifi {

/// Fills an empty WiFi_AdapterAssociationInfo instance from GetAssociationInfo, and stores the
/// value of Associated in the entry. If the library refuses, the instance has only its key and the
/// result is success. Stops at the first put after the key that fails and returns its result.
HRESULT FillAssociationInfo(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

/// Indicates the WiFi_AdapterAssocStats instance of every adapter, from GetAssociationStats and
/// GetAssociationInfo. Puts all properties, even after a failed put; the instance is delivered only
/// if the last put succeeds. WBEM_E_NOT_FOUND if the library refuses.
HRESULT EnumerateAssociationStats(ProviderState& state, const Delivery& delivery);

/// The same for the adapter that the path names; WBEM_E_NOT_FOUND if there is no such adapter.
HRESULT GetAssociationStatsObject(ProviderState& state, const Delivery& delivery,
                                  const ParsedPath& path);

}  // namespace wifi
