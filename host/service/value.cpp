#include "host/service/value.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

#include "host/mof/cim_types.h"
#include "platform/text.h"

namespace host {
namespace {

using platform::Variant;

constexpr HRESULT kTypeMismatch = WBEM_E_TYPE_MISMATCH;
constexpr HRESULT kOutOfRange = WBEM_E_VALUE_OUT_OF_RANGE;

/// The row of a type that has values.
const CimType* FindType(CIMTYPE type) {
  const CimType* row = FindCimType(type);
  return row == nullptr || row->variantType == VT_EMPTY ? nullptr : row;
}

bool IsArray(CIMTYPE type) {
  return (type & CIM_FLAG_ARRAY) != 0;
}

std::optional<std::int64_t> IntegerOf(const VARIANT& value) {
  switch (value.vt) {
    case VT_UI1:
      return value.bVal;
    case VT_I2:
      return value.iVal;
    case VT_UI2:
      return value.uiVal;
    case VT_I4:
      return value.lVal;
    case VT_UI4:
      return value.ulVal;
    default:
      return std::nullopt;
  }
}

Variant Integer(VARTYPE variantType, std::int64_t number) {
  Variant value = Variant::Integer(static_cast<LONG>(static_cast<std::uint32_t>(number)));
  VARIANT* place = value.in_place();
  place->vt = variantType;
  if (variantType == VT_UI1) place->bVal = static_cast<BYTE>(number);
  if (variantType == VT_I2) place->iVal = static_cast<SHORT>(number);
  return value;
}

HRESULT ConvertScalar(const CimType& row, const VARIANT& value, Variant* converted) {
  const std::optional<std::int64_t> number = IntegerOf(value);
  if (row.most != 0) {
    if (!number) return kTypeMismatch;
    // A full unsigned number may be in the signed VARIANT of the same width.
    const std::int64_t fitted = row.type == CIM_UINT32 && value.vt == VT_I4
                                    ? static_cast<std::uint32_t>(value.lVal)
                                    : *number;
    if (fitted < row.least || fitted > row.most) return kOutOfRange;
    *converted = Integer(row.variantType, fitted);
    return S_OK;
  }
  if (number && row.type == CIM_STRING) {
    *converted = Variant::Text(platform::WideFromUtf8(std::to_string(*number)));
  } else if (value.vt == row.variantType) {
    *converted =
        value.vt == VT_BSTR
            ? Variant::Text(platform::OleStringView(value.bstrVal, SysStringLen(value.bstrVal)))
            : Variant::Boolean(value.boolVal != VARIANT_FALSE);
  } else {
    return kTypeMismatch;
  }
  return converted->type() == VT_ERROR ? converted->get().scode : S_OK;
}

/// One element of an array whose elements have the given type.
Variant ElementOf(SAFEARRAY* array, VARTYPE elementType, LONG index) {
  Variant element;
  if (SUCCEEDED(SafeArrayGetElement(array, &index, &element.in_place()->lVal))) {
    element.in_place()->vt = elementType;
  }
  return element;
}

std::vector<Variant> ElementsOf(const VARIANT& value) {
  std::vector<Variant> elements;
  LONG first = 0;
  LONG last = -1;
  if (value.parray == nullptr || FAILED(SafeArrayGetLBound(value.parray, 1, &first)) ||
      FAILED(SafeArrayGetUBound(value.parray, 1, &last))) {
    return elements;
  }
  const VARTYPE elementType = static_cast<VARTYPE>(value.vt & ~VT_ARRAY);
  for (LONG index = first; index <= last; ++index) {
    elements.push_back(ElementOf(value.parray, elementType, index));
  }
  return elements;
}

Variant ArrayOf(VARTYPE elementType, const std::vector<Variant>& elements) {
  SAFEARRAYBOUND bound = {static_cast<ULONG>(elements.size()), 0};
  platform::SafeArray array(SafeArrayCreate(elementType, 1, &bound));
  if (!array) return Variant::Error(E_OUTOFMEMORY);
  for (LONG index = 0; index < static_cast<LONG>(elements.size()); ++index) {
    VARIANT element = elements[static_cast<std::size_t>(index)].get();  // not owned
    void* place = elementType == VT_BSTR ? static_cast<void*>(element.bstrVal) : &element.lVal;
    const HRESULT result = SafeArrayPutElement(array.get(), &index, place);
    if (FAILED(result)) return Variant::Error(result);
  }
  return Variant::Array(std::move(array), elementType);
}

Variant NullValue() {
  Variant value;
  value.in_place()->vt = VT_NULL;
  return value;
}

std::string Accepted(const CimType& row) {
  if (row.variantType == VT_BSTR) return "text";
  if (row.type == CIM_BOOLEAN) return "true or false";
  return "a whole number from " + std::to_string(row.least) + " to " + std::to_string(row.most);
}

[[noreturn]] void Refuse(CIMTYPE type, const CimType& row, std::string_view text) {
  throw ValueError("'" + std::string(text) + "' is no value of type " + CimTypeName(type) +
                   ", which takes " + Accepted(row));
}

Variant ScalarFromText(CIMTYPE type, const CimType& row, std::string_view text) {
  if (row.variantType == VT_BSTR) return Variant::Text(platform::WideFromUtf8(text));
  if (row.type == CIM_BOOLEAN) {
    if (SameIgnoringAsciiCase(text, "true")) return Variant::Boolean(true);
    if (SameIgnoringAsciiCase(text, "false")) return Variant::Boolean(false);
    Refuse(type, row, text);
  }
  std::int64_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || number < row.least || number > row.most) {
    Refuse(type, row, text);
  }
  return Integer(row.variantType, number);
}

const CimType& TypeOrThrow(CIMTYPE type) {
  const CimType* row = FindType(type);
  if (row == nullptr) throw ValueError("type " + CimTypeName(type) + " cannot be held");
  return *row;
}

Json ScalarToJson(CIMTYPE type, const VARIANT& value) {
  if (value.vt == VT_BSTR) {
    return platform::Utf8Text(platform::OleStringView(value.bstrVal, SysStringLen(value.bstrVal)));
  }
  if (value.vt == VT_BOOL) return value.boolVal != VARIANT_FALSE;
  const std::optional<std::int64_t> number = IntegerOf(value);
  if (!number) return nullptr;
  if ((type & ~CIM_FLAG_ARRAY) == CIM_UINT32) return static_cast<std::uint32_t>(*number);
  return *number;
}

}  // namespace

HRESULT Convert(CIMTYPE type, const VARIANT& value, Variant* converted) {
  const CimType* row = FindType(type);
  if (row == nullptr) return kTypeMismatch;
  if (value.vt == VT_NULL) {
    *converted = NullValue();
    return S_OK;
  }
  if (!IsArray(type)) return ConvertScalar(*row, value, converted);
  if (value.vt != (VT_ARRAY | row->variantType)) return kTypeMismatch;
  Variant copy = Variant::CopyOf(value);
  if (copy.type() == VT_ERROR) return copy.get().scode;
  *converted = std::move(copy);
  return S_OK;
}

Variant FromMof(CIMTYPE type, const std::vector<MofScalar>& values) {
  const CimType& row = TypeOrThrow(type);
  std::vector<Variant> elements;
  for (const MofScalar& scalar : values) {
    if (const bool* flag = std::get_if<bool>(&scalar)) {
      elements.push_back(ScalarFromText(type, row, *flag ? "true" : "false"));
    } else if (const std::int64_t* number = std::get_if<std::int64_t>(&scalar)) {
      elements.push_back(ScalarFromText(type, row, std::to_string(*number)));
    } else {
      elements.push_back(ScalarFromText(type, row, std::get<std::string>(scalar)));
    }
  }
  if (IsArray(type)) return ArrayOf(row.variantType, elements);
  return elements.empty() ? NullValue() : std::move(elements.front());
}

Variant FromTypedText(CIMTYPE type, std::string_view text) {
  const CimType& row = TypeOrThrow(type);
  if (SameIgnoringAsciiCase(text, "null")) return NullValue();
  if (!IsArray(type)) return ScalarFromText(type, row, text);
  std::vector<Variant> elements;
  while (!text.empty()) {
    const std::size_t comma = text.find(',');
    elements.push_back(ScalarFromText(type, row, text.substr(0, comma)));
    text = comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
  }
  return ArrayOf(row.variantType, elements);
}

Json ToJson(CIMTYPE type, const VARIANT& value) {
  if ((value.vt & VT_ARRAY) == 0) return ScalarToJson(type, value);
  Json array = Json::array();
  for (const Variant& element : ElementsOf(value))
    array.push_back(ScalarToJson(type, element.get()));
  return array;
}

}  // namespace host
