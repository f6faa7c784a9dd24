#include "profiles/feature_set.h"

#include <memory>
#include <type_traits>

#include "platform/platform.h"

namespace wifi {
namespace {

constexpr std::uint32_t kPersistentOff = 0x8;
constexpr std::uint32_t kPrelogonOff = 0x10;
constexpr std::uint32_t kPersistentSetting = 415;
constexpr std::uint32_t kPrelogonSetting = 416;

struct CloseKey {
  void operator()(HKEY key) const { RegCloseKey(key); }
};
using RegistryKey = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;

std::uint32_t ReadValue(HKEY key, const char* name) {
  BYTE data[sizeof(std::uint32_t)];
  DWORD size = sizeof(data);
  DWORD type = 0;
  const LSTATUS status = RegQueryValueExA(key, name, nullptr, &type, data, &size);
  const bool isNumber = type == REG_DWORD || type == REG_BINARY;
  if (status != ERROR_SUCCESS || !isNumber || size != sizeof(data)) return 0;
  return data[0] | data[1] << 8 | data[2] << 16 | static_cast<std::uint32_t>(data[3]) << 24;
}

/// Only the lowest bit of the setting counts; its status does not.
bool IsSettingOn(adapterapi::AdapterApi& api, std::uint32_t setting) {
  std::uint32_t value = 0;
  api.GetSettingValue(setting, &value);
  return (value & 1) != 0;
}

}  // namespace

FeatureSet ReadFeatureSet() {
  HKEY opened = nullptr;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, "SOFTWARE\\ORVEL\\Wireless\\GUIConfiguration", 0, KEY_READ,
                    &opened) != ERROR_SUCCESS) {
    return {};
  }
  const RegistryKey key(opened);
  const std::uint32_t first = ReadValue(key.get(), "FeatureSet1");
  return {first, ReadValue(key.get(), "FeatureSet2")};
}

StoreGates ReadStoreGates(adapterapi::AdapterApi& api) {
  const std::uint32_t features = ReadFeatureSet().second;
  const bool persistentOff = (features & kPersistentOff) != 0;
  const bool prelogonOff = (features & kPrelogonOff) != 0;
  if (persistentOff && prelogonOff) return {};
  const bool persistent = IsSettingOn(api, kPersistentSetting);
  const bool prelogon = IsSettingOn(api, kPrelogonSetting);
  return {persistent && !persistentOff, prelogon && !prelogonOff};
}

}  // namespace wifi
