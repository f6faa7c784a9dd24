#pragma once

#include <functional>

namespace bench {

struct Memory {
  long allocations = 0;
  long bytes = 0;
};

/// How often `request` asks for memory and for how much, for texts, arrays and objects alike, the
/// service's included; nothing where that cannot be counted.
Memory MemoryOf(const std::function<void()>& request);

/// Where the platform has a management service of its own: benchmarks of an enumeration through it,
/// to set the provider's figures beside.
void RegisterPlatformProvider();

}  // namespace bench
