#include "methods/profile_methods.h"

#include <cstring>

#include "profiles/profile_library.h"

namespace wifi {
namespace {

constexpr std::uint32_t kEveryScope = 0xFFFFFFFF;

/// Changes the 32-bit word at an offset in bytes: keeps the bits `kept` and sets the bits `set`.
void SetBits(ORVEL_WLAN_PROFILE& profile, std::size_t offset, std::uint32_t kept,
             std::uint32_t set) {
  std::uint32_t word = 0;
  std::memcpy(&word, profile.bytes + offset, sizeof(word));
  word = (word & kept) | set;
  std::memcpy(profile.bytes + offset, &word, sizeof(word));
}

/// The record of the profile with this name, with the applied flag set; nullopt if the library
/// cannot be opened or does not have the profile.
std::optional<ORVEL_WLAN_PROFILE> LoadProfile(ProfileLibrary& library, const std::string& name) {
  if (!library.Open()) return std::nullopt;
  // Cleared, because the library may fill only a part of it, and the rest must not leak our memory.
  ORVEL_WLAN_PROFILE profile = {};
  const LONG status = library.GetProfileToApply(name, profile);
  library.Close();
  if (status < 0) return std::nullopt;
  SetBits(profile, adapterapi::kProfileFlagsOffset, ~0u, adapterapi::kProfileAppliedFlag);
  return profile;
}

MethodResult Apply(const MethodCall& call, bool reenter) {
  if (call.state.initialized == 0) return {};
  ProfileLibrary library;
  const auto adapterId = call.AnsiText(OLESTR("AdapterID"));
  if (!adapterId) return {};
  const AdapterEntry* entry = FindAdapterEntry(call.state.adapters.get(), *adapterId);
  if (entry == nullptr) return {};
  auto profile = LoadProfile(library, PathKeyText(call.path, OLESTR("Name")));
  if (!profile) return {};
  if (reenter) SetBits(*profile, adapterapi::kProfileReenterOffset, 0, 1);
  return Answer(call.state.api.ApplyProfile(entry->number, &*profile, kEveryScope, 0, 0) == 0);
}

}  // namespace

MethodResult ApplyProfile(const MethodCall& call) {
  return Apply(call, false);
}
MethodResult ReenterAndReapplyProfile(const MethodCall& call) {
  return Apply(call, true);
}

MethodResult ApplyProfileFromMacAddress(const MethodCall& call) {
  if (call.state.initialized == 0) return {};
  ProfileLibrary library;
  const auto macAddress = call.AnsiText(OLESTR("MacAddress"));
  if (!macAddress) return {};
  const auto profile = LoadProfile(library, PathKeyText(call.path, OLESTR("Name")));
  return Answer(profile &&
                call.state.api.ApplyProfileFromMacAddress(macAddress->c_str(), &*profile) == 0);
}

}  // namespace wifi
