#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "adapterapi/adapter_api.h"
#include "platform/com_ptr.h"
#include "platform/safe_array.h"
#include "provider/core/adapter_map.h"

namespace wifi {

/// The last known raw values of the writable adapter properties. There is one set for the provider:
/// the values of the adapter that was filled or updated last.
struct LastKnownValues {
  std::uint32_t radioState = 0;
  std::uint32_t readyForProfileState = 0;
  std::uint32_t ibssTxPower = 0;
  std::uint32_t pspMode = 0;
  std::uint32_t adapterState = 0;
  std::uint32_t protocolPreference = 0;
  std::uint32_t connectionPreference = 0;
  std::uint32_t xpZeroConfigEnabled = 0;
  std::uint32_t disableRfControl = 0;
};

/// The last array that was put into one array property, and the array before it.
struct ArraySlots {
  platform::SafeArray current;
  platform::SafeArray previous;
};

/// State that outlives a request. The arrays are declared last so that they are destroyed first.
struct ProviderMemory {
  LastKnownValues lastKnown;
  std::uint32_t discoveryState = 0;
  std::uint32_t reserved[2] = {0, 0};
  std::string encodedDomain;  ///< of the interactive user, see EncodeIdentity
  std::string encodedUser;
  std::array<ArraySlots, 5> statisticsArrays;  ///< of WiFi_AdapterTxRxStats
};

/// The part of the provider that class code uses, on the apartment thread of the provider. Each
/// request works on a copy, because Initialize may run while a request calls out: it replaces the
/// namespace and the adapters of the provider, but not those of the copy.
struct ProviderState {
  ProviderState(adapterapi::AdapterApi& adapterApi, ProviderMemory& shared)
      : api(adapterApi), memory(shared) {}

  adapterapi::AdapterApi& api;
  ProviderMemory& memory;
  platform::ComPtr<IWbemServices> services;  ///< the namespace; null before Initialize
  std::shared_ptr<AdapterMap> adapters;      ///< null before Initialize
  std::uint32_t initialized = 0;             ///< 1 after Initialize
};

/// Where the instances of a request are delivered.
struct Delivery {
  IWbemObjectSink* sink;
  IWbemContext* context;  ///< passed to every call back into the service; may be null
};

}  // namespace wifi
