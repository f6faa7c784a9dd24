#pragma once

#include <utility>

#include "platform/platform.h"

namespace platform {

/// Owns a SAFEARRAY and its elements.
class SafeArray {
 public:
  SafeArray() noexcept = default;
  explicit SafeArray(SAFEARRAY* array) noexcept : array_(array) {}
  SafeArray(const SafeArray&) = delete;
  SafeArray(SafeArray&& other) noexcept : array_(other.release()) {}
  ~SafeArray() {
    if (array_ != nullptr) SafeArrayDestroy(array_);
  }
  SafeArray& operator=(SafeArray other) noexcept {
    std::swap(array_, other.array_);
    return *this;
  }

  SAFEARRAY* get() const noexcept { return array_; }
  explicit operator bool() const noexcept { return array_ != nullptr; }
  [[nodiscard]] SAFEARRAY* release() noexcept { return std::exchange(array_, nullptr); }

 private:
  SAFEARRAY* array_ = nullptr;
};

}  // namespace platform
