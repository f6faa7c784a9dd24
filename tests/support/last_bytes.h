#pragma once

#include <cstring>

#include "platform/platform.h"

namespace testing_support {

/// Bytes at the end of readable memory: reading one further is an access violation.
class LastBytes {
 public:
  LastBytes(const void* bytes, std::size_t size) {
    DWORD before = 0;
    auto* page = static_cast<char*>(memory_);
    VirtualProtect(page + kPage, kPage, PAGE_NOACCESS, &before);
    bytes_ = page + kPage - size;
    std::memcpy(bytes_, bytes, size);
  }
  LastBytes(const LastBytes&) = delete;
  LastBytes& operator=(const LastBytes&) = delete;
  ~LastBytes() { VirtualFree(memory_, 0, MEM_RELEASE); }

  const void* get() const { return bytes_; }

 private:
  static constexpr std::size_t kPage = 4096;
  void* memory_ = VirtualAlloc(nullptr, 2 * kPage, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
  char* bytes_;
};

}  // namespace testing_support
