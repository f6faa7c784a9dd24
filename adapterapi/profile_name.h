#pragma once

#include <cstring>
#include <string_view>

#include "adapterapi/bounded_text.h"
#include "adapterapi/records.h"

namespace wifi {

/// The profile's name; a record may hold one without a terminator.
inline std::string_view ProfileName(const ORVEL_WLAN_PROFILE& profile) {
  return adapterapi::BoundedText(profile.bytes + adapterapi::kProfileNameOffset,
                                 adapterapi::kProfileSize - adapterapi::kProfileNameOffset);
}

}  // namespace wifi
