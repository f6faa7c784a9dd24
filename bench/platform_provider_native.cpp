// There is no management service here, but every malloc can be counted, including those of operator
// new and of texts: all libraries of the process find this function first, which calls the C
// library's own.

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
