#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/platform.h"

namespace platform {

using OleString = std::basic_string<OLECHAR>;
using OleStringView = std::basic_string_view<OLECHAR>;

/// The characters of `text`; empty if it is null.
inline OleStringView ViewOf(const OLECHAR* text) {
  return text == nullptr ? OleStringView() : OleStringView(text);
}

/// Owns a BSTR. Is null after a failed allocation; check with `if (text)`.
///
///     Bstr path;
///     if (FAILED(QueryPathOfRegTypeLib(kTypeLibrary, 1, 0, locale, path.put()))) return S_OK;
///     Print(path.view());  // freed at the end of the scope
class Bstr {
 public:
  Bstr() noexcept = default;
  explicit Bstr(OleStringView text) noexcept
      : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  /// Allocates `length` characters, which the caller must then write.
  static Bstr OfLength(UINT length) noexcept {
    Bstr text;
    text.text_ = SysAllocStringLen(nullptr, length);
    return text;
  }
  explicit Bstr(const OLECHAR* text) noexcept : text_(SysAllocString(text)) {}
  Bstr(const Bstr&) = delete;
  Bstr(Bstr&& other) noexcept : text_(other.release()) {}
  ~Bstr() {
    if (text_ != nullptr) SysFreeString(text_);
  }
  Bstr& operator=(Bstr other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }

  BSTR get() const noexcept { return text_; }
  OleStringView view() const noexcept {
    return text_ == nullptr ? OleStringView() : OleStringView(text_, SysStringLen(text_));
  }
  explicit operator bool() const noexcept { return text_ != nullptr; }
  /// The address to pass as an out-parameter. Frees the old text first.
  BSTR* put() noexcept {
    SysFreeString(release());
    return &text_;
  }
  [[nodiscard]] BSTR release() noexcept { return std::exchange(text_, nullptr); }

 private:
  BSTR text_ = nullptr;
};

}  // namespace platform
