#pragma once

#include "provider/core/instance.h"

namespace wifi {

/// Fills an empty WiFi_AdapterAssociationInfo instance from GetAssociationInfo and keeps the value
/// of Associated in the entry. When the library refuses, the instance keeps only its key and the
/// result is success. Stops at the first put from Associated on that fails and answers with it.
HRESULT FillAssociationInfo(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

/// Indicates the WiFi_AdapterAssocStats instance of every adapter, from GetAssociationStats and
/// GetAssociationInfo. All properties are put whatever the puts before them answered; the last one
/// decides whether the instance is shown. WBEM_E_NOT_FOUND when the library refuses.
HRESULT EnumerateAssociationStats(ProviderState& state, const Delivery& delivery);

/// The same for the adapter that the path names; WBEM_E_NOT_FOUND without one.
HRESULT GetAssociationStatsObject(ProviderState& state, const Delivery& delivery,
                                  const ParsedPath& path);

}  // namespace wifi
