#pragma once

#include <cstdint>

#include "adapterapi/adapter_api.h"

namespace wifi {

/// The feature switches of this machine, from HKEY_LOCAL_MACHINE
/// SOFTWARE\ORVEL\Wireless\GUIConfiguration. A value that is missing or not of 4 bytes is read as
/// 0.
struct FeatureSet {
  std::uint32_t first = 0;   ///< FeatureSet1
  std::uint32_t second = 0;  ///< FeatureSet2: 0x8 switches the persistent store off, 0x10 prelogon
};
FeatureSet ReadFeatureSet();

/// Whether the two optional profile stores are open.
struct StoreGates {
  bool persistent = false;
  bool prelogon = false;
};

/// A store is open if the lowest bit of its setting is set and its feature is not switched off. The
/// settings are read only if at least one of the two features is on.
StoreGates ReadStoreGates(adapterapi::AdapterApi& api);

}  // namespace wifi
