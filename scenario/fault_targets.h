#pragma once
// The operations of both libraries, by the names that faults use.

#include <string_view>

#include "adapterapi/adapter_api.h"

namespace simulator {

struct FaultTarget {
  std::string_view name;
  bool ofAdapter;  ///< whether its first argument is an adapter number
};

/// Whether the first parameter is an adapter number.
template <class... Parameters>
constexpr bool TakesAdapter(adapterapi::ApiStatus (adapterapi::AdapterApi::*)(Parameters...)) {
  return false;
}
template <class... Others>
constexpr bool TakesAdapter(
    adapterapi::ApiStatus (adapterapi::AdapterApi::*)(adapterapi::AdapterNumber, Others...)) {
  return true;
}

inline constexpr FaultTarget kFaultTargets[] = {
#define QUARN_OPERATION(ordinal, name, parameters, arguments) \
  {#name, TakesAdapter(&adapterapi::AdapterApi::name)},
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
    {"CProfileMgr::SetWiFiProvider", false},
    {"CProfileMgr::Open", false},
    {"CProfileMgr::Close", false},
    {"CProfileMgr::GetFirstPreferredProfile", false},
    {"CProfileMgr::GetNextPreferredProfile", false},
    {"CProfileMgr::GetProfileToApply", false},
};

}  // namespace simulator
