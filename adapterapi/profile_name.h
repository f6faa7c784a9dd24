#pragma once

#include <cstring>
#include <string_view>

#include "adapterapi/bounded_text.h"
#include "adapterapi/records.h"

namespace wifi {

/// The name of the profile. It may have no terminator.
inline std::string_view ProfileName(const ORVEL_WLAN_PROFILE& profile) {
  return adapterapi::BoundedText(profile.bytes + adapterapi::kProfileNameOffset,
                                 adapterapi::kProfileSize - adapterapi::kProfileNameOffset);
}

}  // namespace wifi
