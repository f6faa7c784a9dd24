// There is no management service here, but every allocation can be seen.

#include <atomic>
#include <cstdlib>
#include <new>

#include "bench/platform_provider.h"
#include "platform/native/observe.h"

namespace {

std::atomic<long> allocations{0};

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* block = std::malloc(size)) return block;
  throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}

namespace bench {

void RegisterPlatformProvider() {}

long AllocationsOf(const std::function<void()>& request) {
  native::SetAllocationFault([] {
    ++allocations;
    return false;
  });
  const long before = allocations;
  request();
  native::SetAllocationFault(nullptr);
  return allocations - before;
}

}  // namespace bench
