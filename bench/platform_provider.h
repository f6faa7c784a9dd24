#pragma once

#include <functional>

namespace bench {

struct Memory {
  long allocations = 0;
  long bytes = 0;
};

/// How many allocations `request` makes and of how many bytes, for texts, arrays and objects,
/// including the service's; zero where that cannot be counted.
Memory MemoryOf(const std::function<void()>& request);

/// On platforms with a management service of their own: registers benchmarks of an enumeration
/// through it, for comparison with the provider's figures.
void RegisterPlatformProvider();

}  // namespace bench
