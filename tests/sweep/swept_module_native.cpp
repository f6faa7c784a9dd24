// The module's sources, linked into the test with the test's operator new.

#include <atomic>
#include <cstdlib>
#include <new>

#include "platform/native/observe.h"
#include "tests/support/fault_plan.h"
#include "tests/sweep/swept_module.h"

using testing_support::FaultPlan;
using testing_support::Step;

extern "C" {
HRESULT DllGetClassObject(REFCLSID classId, REFIID iid, void** object);
HRESULT DllCanUnloadNow();
HRESULT DllRegisterServer();
HRESULT DllUnregisterServer();
}

namespace {

std::atomic<long> liveBlocks{0};

// Precedes each block; its size keeps the block aligned as malloc's blocks are.
struct alignas(16) Header {
  bool ofProvider;
};

void* Allocate(std::size_t size) noexcept {
  if (FaultPlan::Hit(Step::kHeap)) return nullptr;
  auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + size));
  if (header == nullptr) return nullptr;
  header->ofProvider = FaultPlan::inside;
  if (header->ofProvider) ++liveBlocks;
  return header + 1;
}

void Free(void* block) noexcept {
  if (block == nullptr) return;
  auto* header = static_cast<Header*>(block) - 1;
  if (header->ofProvider) --liveBlocks;
  std::free(header);
}

}  // namespace

void* operator new(std::size_t size) {
  void* block = Allocate(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
void* operator new[](std::size_t size) {
  return operator new(size);
}
void operator delete(void* block) noexcept {
  Free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  Free(block);
}
void operator delete[](void* block) noexcept {
  Free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  Free(block);
}

adapterapi::AdapterApi& adapterapi::ImportedAdapterApi() {
  return *sweep::currentLibrary;
}

namespace sweep {

const bool kStructuredOnly = false;

const SweptModule& Module() {
  static const SweptModule module = {nullptr, DllGetClassObject, DllCanUnloadNow, DllRegisterServer,
                                     DllUnregisterServer};
  native::SetAllocationFault([] { return FaultPlan::Hit(Step::kText); });
  return module;
}

long LiveBlocks() {
  return liveBlocks;
}
int LiveTexts() {
  return native::LiveAllocations();
}
int ImpersonationDepth() {
  const native::ImpersonationCounts counts = native::ImpersonationCountsOfThread();
  return counts.impersonated - counts.reverted;
}

}  // namespace sweep
