#include "bench/platform_provider.h"

namespace bench {

void RegisterPlatformProvider() {}

}  // namespace bench
