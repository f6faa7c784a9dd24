#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>

using FuzzInput = std::span<const std::uint8_t>;

/// Tries one input. Anything but returning is a finding.
#define FUZZ_TARGET(name) void Fuzz_##name(FuzzInput bytes);
#include "fuzz/targets.inc"
#undef FUZZ_TARGET

inline std::string_view TextOf(FuzzInput bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Ends the process with the promise that an input broke.
inline void Require(bool kept, const char* promise) {
  if (kept) return;
  std::fprintf(stderr, "broken: %s\n", promise);
  std::abort();
}
