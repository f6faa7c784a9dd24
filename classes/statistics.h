#pragma once

#include <span>

#include "provider/core/instance.h"

namespace wifi {

/// The number of transmit rates. The per-rate arrays have a counter for each.
inline constexpr std::size_t kRateCount = 16;

/// Puts the values as an array of signed decimal texts. The state keeps the array until the second
/// fill of this property after this one. E_OUTOFMEMORY if the array cannot be created or `property`
/// is not one of the five array properties; WBEM_E_NOT_FOUND if an element cannot be stored;
/// otherwise the result of the put. An exception of the instance passes through.
HRESULT FillSafeArray(ProviderState& state, IWbemClassObject* instance, const OLECHAR* property,
                      std::span<const std::int32_t, kRateCount> values);

/// Indicates the WiFi_AdapterTxRxStats instance of every adapter, from GetTxRxStats. The instance
/// is delivered only if the last array is put. WBEM_E_NOT_FOUND if the library refuses.
HRESULT EnumerateStatistics(ProviderState& state, const Delivery& delivery);

/// The same for the adapter that the path names; WBEM_E_NOT_FOUND if there is no such adapter.
HRESULT GetStatisticsObject(ProviderState& state, const Delivery& delivery, const ParsedPath& path);

}  // namespace wifi
