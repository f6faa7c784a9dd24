#pragma once

#include <new>
#include <string_view>
#include <utility>

#include "platform/bstr.h"
#include "platform/safe_array.h"
#include "platform/structured_exception.h"

namespace platform {

/// Owns a VARIANT and what it holds. Objects that a client's value holds are called behind the
/// fence.
class Variant {
 public:
  Variant() noexcept = default;
  Variant(const Variant&) = delete;
  Variant(Variant&& other) noexcept : Variant() { std::swap(value_, other.value_); }
  ~Variant() { Clear(); }
  Variant& operator=(Variant other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }

  /// A text. One that cannot be allocated gives VT_ERROR with E_OUTOFMEMORY.
  static Variant Text(OleStringView text);
  /// Takes over the text; VT_ERROR with E_OUTOFMEMORY if it holds none.
  static Variant Owning(Bstr text) noexcept;
  /// An ANSI text as VT_BSTR; VT_ERROR with E_OUTOFMEMORY if it cannot be allocated.
  static Variant AnsiText(std::string_view text);
  /// A VT_BSTR that holds no text.
  static Variant NoText() noexcept;
  /// What `make` gives; VT_ERROR with E_OUTOFMEMORY if it finds no memory.
  template <class Make>
  static Variant OrOutOfMemory(Make&& make) {
    try {
      return make();
    } catch (const std::bad_alloc&) {
      return Error(E_OUTOFMEMORY);
    }
  }
  static Variant Boolean(bool value) noexcept;
  static Variant Integer(LONG value) noexcept;
  static Variant Error(HRESULT code) noexcept;
  /// Takes over the array; VT_ARRAY of its element type.
  static Variant Array(SafeArray array, VARTYPE elementType) noexcept;
  /// A copy; one that fails gives VT_ERROR with the failure's code.
  static Variant CopyOf(const VARIANT& value) noexcept;

  VARTYPE type() const noexcept { return value_.vt; }
  /// The text of a VT_BSTR, none for every other type.
  BSTR text() const noexcept { return value_.vt == VT_BSTR ? value_.bstrVal : nullptr; }
  const VARIANT& get() const noexcept { return value_; }
  /// For platform calls that take a VARIANT in place; the owner stays this object.
  VARIANT* in_place() noexcept { return &value_; }
  /// The place for an out-parameter; clears what was held.
  VARIANT* put() noexcept {
    Clear();
    return &value_;
  }
  /// Converts in place, as VariantChangeType does; after a failure the old value stays.
  HRESULT ChangeType(VARTYPE type) noexcept {
    HRESULT result = DISP_E_TYPEMISMATCH;  // of an object that raises when it is asked
    Survives([&] { result = VariantChangeType(&value_, &value_, 0, type); });
    return result;
  }

 private:
  /// The platform is asked only where there is something to free: values are made and moved often.
  void Clear() noexcept {
    if (value_.vt != VT_EMPTY && value_.vt != VT_I4 && value_.vt != VT_BOOL) {
      // An object that raises when it is released is gone all the same.
      Survives([this] { VariantClear(&value_); });
    }
    value_.vt = VT_EMPTY;
  }

  VARIANT value_ = {};
};

}  // namespace platform
