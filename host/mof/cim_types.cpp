#include "host/mof/cim_types.h"

#include <algorithm>
#include <iterator>

namespace host {
namespace {

// Unsigned types wider than a byte are passed as VT_I4, as in the service.
constexpr CimType kTypes[] = {
    {.word = "string", .type = CIM_STRING, .variantType = VT_BSTR},
    {.word = "boolean", .type = CIM_BOOLEAN, .variantType = VT_BOOL},
    {.word = "sint16",
     .type = CIM_SINT16,
     .variantType = VT_I2,
     .least = INT16_MIN,
     .most = INT16_MAX},
    {.word = "sint32",
     .type = CIM_SINT32,
     .variantType = VT_I4,
     .least = INT32_MIN,
     .most = INT32_MAX},
    {.word = "uint8", .type = CIM_UINT8, .variantType = VT_UI1, .most = UINT8_MAX},
    {.word = "uint16", .type = CIM_UINT16, .variantType = VT_I4, .most = UINT16_MAX},
    {.word = "uint32", .type = CIM_UINT32, .variantType = VT_I4, .most = UINT32_MAX},
    {.word = "ref", .type = CIM_REFERENCE, .variantType = VT_BSTR},
    {.word = "void", .type = CIM_EMPTY, .variantType = VT_EMPTY},
};

}  // namespace

const CimType* FindCimType(CIMTYPE type) {
  const auto* row = std::ranges::find(kTypes, type & ~CIM_FLAG_ARRAY, &CimType::type);
  return row == std::end(kTypes) ? nullptr : row;
}

CIMTYPE CimTypeNamed(std::string_view word) {
  const auto* row = std::ranges::find_if(kTypes, [word](const CimType& candidate) {
    return SameIgnoringAsciiCase(candidate.word, word);
  });
  return row == std::end(kTypes) ? static_cast<CIMTYPE>(CIM_ILLEGAL) : row->type;
}

bool FitsCimType(const MofScalar& value, CIMTYPE type) {
  const CimType* row = FindCimType(type);
  if (row == nullptr) return false;
  if (const auto* number = std::get_if<std::int64_t>(&value)) {
    return row->most != 0 && *number >= row->least && *number <= row->most;
  }
  return row->variantType == (std::holds_alternative<bool>(value) ? VT_BOOL : VT_BSTR);
}

std::string CimTypeName(CIMTYPE type) {
  const CimType* row = FindCimType(type);
  std::string name(row == nullptr ? "unknown" : row->word);
  return (type & CIM_FLAG_ARRAY) != 0 ? name + "[]" : name;
}

}  // namespace host
