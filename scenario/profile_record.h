#pragma once
// The simulated libraries' own layout of ORVEL_WLAN_PROFILE: the published offsets, and between
// them the network data that the profile library passes to the adapter library.

#include <cstring>

#include "adapterapi/records.h"

namespace simulator {

#pragma pack(push, 1)
struct ProfileRecord {
  std::uint32_t version;
  char name[64];
  char ssid[33];
  char mandatoryAp[33];
  std::uint8_t reserved134[2];
  std::uint32_t opMode;          ///< 1 infrastructure, 2 ad hoc
  std::uint32_t stealth;         ///< non-zero: hidden network
  std::uint32_t encryption;      ///< encryption code, 1 to 6
  std::uint32_t authentication;  ///< authentication mode code, 1 to 7
  std::uint8_t reserved152[56];
  std::uint32_t reenter;
  std::uint8_t reserved212[2428];
  std::uint32_t flags;
  std::uint8_t reserved2644[1004];
};
#pragma pack(pop)

static_assert(sizeof(ProfileRecord) == adapterapi::kProfileSize);
static_assert(offsetof(ProfileRecord, name) == adapterapi::kProfileNameOffset);
static_assert(offsetof(ProfileRecord, reenter) == adapterapi::kProfileReenterOffset);
static_assert(offsetof(ProfileRecord, flags) == adapterapi::kProfileFlagsOffset);
static_assert(sizeof(ORVEL_WLAN_PROFILE) == sizeof(ProfileRecord));

}  // namespace simulator
