#pragma once

#include <span>

#include "provider/core/instance.h"

namespace wifi {

/// Transmit rates of the adapters, each with a counter of its own in the per-rate arrays.
inline constexpr std::size_t kRateCount = 16;

/// Puts the values as an array of signed decimal texts, without a fence. The array stays in the
/// state's slots for the property until the second fill after this one. E_OUTOFMEMORY for a name
/// that is none of the five array properties or an array that cannot be made, WBEM_E_NOT_FOUND for
/// an element that cannot be stored; otherwise the put's result.
HRESULT FillSafeArray(ProviderState& state, IWbemClassObject* instance, const OLECHAR* property,
                      std::span<const std::int32_t, kRateCount> values);

/// Indicates the WiFi_AdapterTxRxStats instance of every adapter, from GetTxRxStats. The last array
/// alone decides whether an instance is shown. WBEM_E_NOT_FOUND when the library refuses.
HRESULT EnumerateStatistics(ProviderState& state, const Delivery& delivery);

/// The same for the adapter that the path names; WBEM_E_NOT_FOUND without one.
HRESULT GetStatisticsObject(ProviderState& state, const Delivery& delivery, const ParsedPath& path);

}  // namespace wifi
