#pragma once

#include <new>
#include <string_view>
#include <utility>

#include "platform/bstr.h"
#include "platform/safe_array.h"
#include "platform/structured_exception.h"

namespace platform {

/// Owns a VARIANT and its value. A client's value may hold an object, so it is cleared and
/// converted inside the fence.
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

  /// A VT_BSTR. Out of memory: VT_ERROR with E_OUTOFMEMORY.
  static Variant Text(OleStringView text);
  /// Takes over the text. A null text (a failed allocation) gives VT_ERROR with E_OUTOFMEMORY.
  static Variant Owning(Bstr text) noexcept {
    Variant variant;  // built in place: copying members just written stalls the CPU
    if (text) {
      variant.value_.vt = VT_BSTR;
      variant.value_.bstrVal = text.release();
    } else {
      variant.value_.vt = VT_ERROR;
      variant.value_.scode = E_OUTOFMEMORY;
    }
    return variant;
  }
  /// A VT_BSTR from an ANSI text. Out of memory: VT_ERROR with E_OUTOFMEMORY.
  static Variant AnsiText(std::string_view text);
  /// A VT_BSTR whose text is null.
  static Variant NoText() noexcept;
  /// The result of `make`. If it throws std::bad_alloc: VT_ERROR with E_OUTOFMEMORY.
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
  /// A VT_ARRAY of `elementType`. Takes over the array.
  static Variant Array(SafeArray array, VARTYPE elementType) noexcept;
  /// A copy. If VariantCopy fails: VT_ERROR with its result code.
  static Variant CopyOf(const VARIANT& value) noexcept;

  VARTYPE type() const noexcept { return value_.vt; }
  /// The text of a VT_BSTR, null for every other type.
  BSTR text() const noexcept { return value_.vt == VT_BSTR ? value_.bstrVal : nullptr; }
  const VARIANT& get() const noexcept { return value_; }
  /// For platform calls that take a VARIANT*. This object remains the owner.
  VARIANT* in_place() noexcept { return &value_; }
  /// The address to pass as an out-parameter. Clears the old value first.
  VARIANT* put() noexcept {
    Clear();
    return &value_;
  }
  /// Converts in place, as VariantChangeType does. After a failure the old value is kept.
  HRESULT ChangeType(VARTYPE type) noexcept {
    HRESULT result = DISP_E_TYPEMISMATCH;  // for an object that raises an exception when asked
    Survives([&] { result = VariantChangeType(&value_, &value_, 0, type); });
    return result;
  }

 private:
  /// Calls the platform only if there is something to free, because values are made and moved
  /// often.
  void Clear() noexcept {
    if (value_.vt == VT_BSTR) {
      Survives([this] { SysFreeString(value_.bstrVal); });
    } else if (value_.vt != VT_EMPTY && value_.vt != VT_I4 && value_.vt != VT_BOOL) {
      // An object that raises an exception in Release counts as released.
      Survives([this] { VariantClear(&value_); });
    }
    value_.vt = VT_EMPTY;
  }

  VARIANT value_ = {};
};

}  // namespace platform
