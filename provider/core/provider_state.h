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

/// Last known raw values of the writable adapter properties, one set for the provider: whichever
/// adapter was filled or updated last.
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

/// The array put last for one array property, and the one before it.
struct ArraySlots {
  platform::SafeArray current;
  platform::SafeArray previous;
};

/// What all requests of a provider share. Members go in the reverse of their order: arrays first.
struct ProviderMemory {
  LastKnownValues lastKnown;
  std::uint32_t discoveryState = 0;
  std::uint32_t reserved[2] = {0, 0};
  std::string encodedDomain;  ///< of the interactive user, see EncodeIdentity
  std::string encodedUser;
  std::array<ArraySlots, 5> statisticsArrays;  ///< of WiFi_AdapterTxRxStats
};

/// What class code may see of the provider, used on the thread of its apartment. Each request works
/// on a copy: Initialize, which may come while a request calls out, replaces the namespace and the
/// adapters of the provider, not those that a request started with.
struct ProviderState {
  ProviderState(adapterapi::AdapterApi& adapterApi, ProviderMemory& shared)
      : api(adapterApi), memory(shared) {}

  adapterapi::AdapterApi& api;
  ProviderMemory& memory;
  platform::ComPtr<IWbemServices> services;  ///< the namespace; none before Initialize
  std::shared_ptr<AdapterMap> adapters;      ///< none before Initialize
  std::uint32_t initialized = 0;             ///< 1 once Initialize ran
};

/// Where a request's instances go.
struct Delivery {
  IWbemObjectSink* sink;
  IWbemContext* context;  ///< passed on with every call back into the service; may be none
};

}  // namespace wifi
