#include <atomic>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include "platform/native/allocation.h"
#include "platform/native/automation.h"
#include "platform/native/observe.h"

namespace native {
namespace {

std::atomic<int> live{0};
std::atomic<int> untilFailure{0};
std::atomic<bool (*)()> allocationFault{nullptr};

// True for the one allocation that brings the count down to zero.
bool MustFail() {
  if (const auto fault = allocationFault.load(); fault != nullptr && fault()) return true;
  int left = untilFailure.load();
  while (left > 0 && !untilFailure.compare_exchange_weak(left, left - 1)) {
  }
  return left == 1;
}

}  // namespace

void* AllocateBlock(std::size_t size) {
  void* block = MustFail() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (block != nullptr) ++live;
  return block;
}

void FreeBlock(void* block) {
  if (block == nullptr) return;
  --live;
  std::free(block);
}

void FailAllocation(int nth) {
  untilFailure = nth;
}
void SetAllocationFault(bool (*mustFail)()) {
  allocationFault = mustFail;
}
int LiveAllocations() {
  return live;
}

}  // namespace native

namespace {

// The 4 bytes before the text hold its length in bytes. The prefix is 16 bytes long so that the
// text keeps the alignment of malloc.
constexpr std::size_t kPrefix = 16;
constexpr UINT kMaxLength =
    (std::numeric_limits<UINT>::max() - kPrefix - sizeof(OLECHAR)) / sizeof(OLECHAR);

}  // namespace

BSTR SysAllocStringLen(const OLECHAR* text, UINT length) {
  if (length > kMaxLength) return nullptr;
  const UINT bytes = length * static_cast<UINT>(sizeof(OLECHAR));
  auto* block = static_cast<char*>(native::AllocateBlock(kPrefix + bytes + sizeof(OLECHAR)));
  if (block == nullptr) return nullptr;
  std::memcpy(block + kPrefix - sizeof bytes, &bytes, sizeof bytes);
  if (text != nullptr) std::memcpy(block + kPrefix, text, bytes);
  std::memset(block + kPrefix + bytes, 0, sizeof(OLECHAR));
  return reinterpret_cast<BSTR>(block + kPrefix);
}

BSTR SysAllocString(const OLECHAR* text) {
  if (text == nullptr) return nullptr;
  const std::size_t length = std::char_traits<OLECHAR>::length(text);
  return length > kMaxLength ? nullptr : SysAllocStringLen(text, static_cast<UINT>(length));
}

void SysFreeString(BSTR text) {
  if (text != nullptr) native::FreeBlock(reinterpret_cast<char*>(text) - kPrefix);
}

UINT SysStringLen(BSTR text) {
  if (text == nullptr) return 0;
  UINT bytes;
  std::memcpy(&bytes, reinterpret_cast<const char*>(text) - sizeof bytes, sizeof bytes);
  return bytes / static_cast<UINT>(sizeof(OLECHAR));
}
