#pragma once

#include <utility>

#include "platform/structured_exception.h"

namespace platform {

/// Owns one reference to a COM object. What the object raises while it is counted stays here: there
/// is nothing left to do with it.
template <class Interface>
class ComPtr {
 public:
  ComPtr() noexcept = default;
  ComPtr(std::nullptr_t) noexcept {}
  /// Shares `object`: takes a reference of its own.
  explicit ComPtr(Interface* object) noexcept : object_(object) {
    if (object_ != nullptr) Survives([this] { object_->AddRef(); });
  }
  ComPtr(const ComPtr& other) noexcept : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ~ComPtr() { reset(); }
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  /// Takes over the reference that comes with `object`.
  static ComPtr Adopt(Interface* object) noexcept {
    ComPtr owner;
    owner.object_ = object;
    return owner;
  }

  Interface* get() const noexcept { return object_; }
  Interface* operator->() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  /// The place for an out-parameter; releases what was held.
  Interface** put() noexcept {
    reset();
    return &object_;
  }
  void** put_void() noexcept { return reinterpret_cast<void**>(put()); }
  [[nodiscard]] Interface* release() noexcept { return std::exchange(object_, nullptr); }
  void reset() noexcept {
    if (Interface* held = std::exchange(object_, nullptr)) Survives([held] { held->Release(); });
  }

 private:
  Interface* object_ = nullptr;
};

}  // namespace platform
