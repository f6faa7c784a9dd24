#include "profiles/feature_set.h"

#include "adapterapi/codes.h"
#include "platform/registry_key.h"

namespace wifi {
namespace {

namespace setting = adapterapi::setting;

constexpr std::uint32_t kPersistentOff = 0x8;
constexpr std::uint32_t kPrelogonOff = 0x10;

/// Whether the lowest bit of the setting is set. The status of the library is ignored.
bool IsSettingOn(adapterapi::AdapterApi& api, adapterapi::SettingNumber setting) {
  std::uint32_t value = 0;
  api.GetSettingValue(setting, &value);
  return (value & 1) != 0;
}

}  // namespace

FeatureSet ReadFeatureSet() {
  platform::RegistryKey key;
  if (key.Open(HKEY_LOCAL_MACHINE, "SOFTWARE\\ORVEL\\Wireless\\GUIConfiguration", KEY_READ) != 0) {
    return {};
  }
  const std::uint32_t first = key.Number("FeatureSet1").value_or(0);
  return {first, key.Number("FeatureSet2").value_or(0)};
}

StoreGates ReadStoreGates(adapterapi::AdapterApi& api) {
  const std::uint32_t features = ReadFeatureSet().second;
  const bool persistentOff = (features & kPersistentOff) != 0;
  const bool prelogonOff = (features & kPrelogonOff) != 0;
  if (persistentOff && prelogonOff) return {};
  const bool persistent = IsSettingOn(api, setting::kPersistentProfiles);
  const bool prelogon = IsSettingOn(api, setting::kPrelogonProfiles);
  return {persistent && !persistentOff, prelogon && !prelogonOff};
}

}  // namespace wifi
