#include "platform/variant.h"

#include "platform/text.h"

namespace platform {

Variant Variant::Text(OleStringView text) {
  return Owning(Bstr(text.data() == nullptr ? OleStringView(OLESTR("")) : text));
}

Variant Variant::NoText() noexcept {
  Variant variant;
  variant.value_.vt = VT_BSTR;
  variant.value_.bstrVal = nullptr;
  return variant;
}

Variant Variant::AnsiText(std::string_view text) {
  return Owning(AnsiBstr(text));
}

Variant Variant::Boolean(bool value) noexcept {
  Variant variant;
  variant.value_.vt = VT_BOOL;
  variant.value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  return variant;
}

Variant Variant::Integer(LONG value) noexcept {
  Variant variant;
  variant.value_.vt = VT_I4;
  variant.value_.lVal = value;
  return variant;
}

Variant Variant::Error(HRESULT code) noexcept {
  Variant variant;
  variant.value_.vt = VT_ERROR;
  variant.value_.scode = code;
  return variant;
}

Variant Variant::Array(SafeArray array, VARTYPE elementType) noexcept {
  Variant variant;
  variant.value_.vt = static_cast<VARTYPE>(VT_ARRAY | elementType);
  variant.value_.parray = array.release();
  return variant;
}

Variant Variant::CopyOf(const VARIANT& value) noexcept {
  Variant variant;
  const HRESULT result = VariantCopy(&variant.value_, const_cast<VARIANT*>(&value));
  return FAILED(result) ? Error(result) : std::move(variant);
}

}  // namespace platform
