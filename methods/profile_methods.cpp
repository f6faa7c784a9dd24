#include "methods/profile_methods.h"

#include <cstring>

#include "profiles/profile_library.h"

namespace wifi {
namespace {

constexpr std::uint32_t kEveryScope = 0xFFFFFFFF;

/// Sets bits of one 32-bit word of the record, at an offset in bytes.
void SetBits(ORVEL_WLAN_PROFILE& profile, std::size_t offset, std::uint32_t kept,
             std::uint32_t set) {
  std::uint32_t word = 0;
  std::memcpy(&word, profile.bytes + offset, sizeof(word));
  word = (word & kept) | set;
  std::memcpy(profile.bytes + offset, &word, sizeof(word));
}

/// The record of the profile that the path names, marked for application; none if the library does
/// not open or does not know it.
std::optional<ORVEL_WLAN_PROFILE> LoadProfile(ProfileLibrary& library, const std::string& name) {
  if (!library.Open()) return std::nullopt;
  // Cleared, so that a library that fills only part of it hands on none of our memory.
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
