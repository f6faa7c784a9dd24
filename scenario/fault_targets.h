#pragma once
// The operations of both libraries by name, as faults name them.

#include <string_view>

namespace simulator {

struct FaultTarget {
  std::string_view name;
  bool ofAdapter;  ///< its first argument is an adapter number
};

/// `arguments` is the argument list as operations.inc writes it.
constexpr bool TakesAdapter(std::string_view arguments) {
  return arguments.starts_with("(adapter");
}

inline constexpr FaultTarget kFaultTargets[] = {
#define QUARN_OPERATION(ordinal, name, parameters, arguments) {#name, TakesAdapter(#arguments)},
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
