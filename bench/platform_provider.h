#pragma once

namespace bench {

/// Where the platform has a management service of its own: benchmarks of an enumeration through it,
/// to set the provider's figures beside.
void RegisterPlatformProvider();

}  // namespace bench
