#pragma once

#include <utility>

#include "platform/structured_exception.h"

namespace platform {

/// Owns one reference to a COM object. Exceptions from AddRef and Release are swallowed, because
/// the caller could do nothing about them.
///
///     ComPtr<IWbemClassObject> instance;
///     IWbemClassObject** place = instance.put();  // outside the fence, as it may call Release
///     const HRESULT result = CallFenced([&] { return definition.SpawnInstance(0, place); });
template <class Interface>
class ComPtr {
 public:
  ComPtr() noexcept = default;
  ComPtr(std::nullptr_t) noexcept {}
  /// Shares `object`: adds a reference.
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

  /// Takes over the caller's reference: adds none.
  static ComPtr Adopt(Interface* object) noexcept {
    ComPtr owner;
    owner.object_ = object;
    return owner;
  }

  Interface* get() const noexcept { return object_; }
  Interface* operator->() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  /// The address to pass as an out-parameter. Releases the old object first.
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
