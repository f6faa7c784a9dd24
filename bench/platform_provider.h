#pragma once

#include <functional>

namespace bench {

/// How often `request` asks for memory, for texts, arrays and objects alike, the service's
/// included; 0 where that cannot be counted.
long AllocationsOf(const std::function<void()>& request);

/// Where the platform has a management service of its own: benchmarks of an enumeration through it,
/// to set the provider's figures beside.
void RegisterPlatformProvider();

}  // namespace bench
