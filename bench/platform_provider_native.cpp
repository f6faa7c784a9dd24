// There is no management service here, but every malloc can be seen, operator new's and those of
// texts too: the C library's own function stands behind this one, which all libraries of the
// process find first.

#include <cstdlib>

#include "bench/platform_provider.h"

namespace {

bench::Memory asked;

}  // namespace

extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* malloc(std::size_t size) {
  ++asked.allocations;
  asked.bytes += static_cast<long>(size);
  return __libc_malloc(size);
}

namespace bench {

void RegisterPlatformProvider() {}

Memory MemoryOf(const std::function<void()>& request) {
  const Memory before = asked;
  request();
  return {asked.allocations - before.allocations, asked.bytes - before.bytes};
}

}  // namespace bench
