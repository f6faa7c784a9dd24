#include "host/mof/cim_types.h"

#include <algorithm>
#include <iterator>

namespace host {
namespace {

/// `kind` is the index of the alternative of MofScalar that holds a value.
struct CimTypeRow {
  std::string_view word;
  CIMTYPE type;
  std::size_t kind;
  std::int64_t minimum;
  std::int64_t maximum;
};

constexpr std::size_t kBoolean = 0;
constexpr std::size_t kNumber = 1;
constexpr std::size_t kText = 2;

constexpr CimTypeRow kRows[] = {
    {"string", CIM_STRING, kText, 0, 0},
    {"boolean", CIM_BOOLEAN, kBoolean, 0, 0},
    {"sint16", CIM_SINT16, kNumber, INT16_MIN, INT16_MAX},
    {"sint32", CIM_SINT32, kNumber, INT32_MIN, INT32_MAX},
    {"uint8", CIM_UINT8, kNumber, 0, UINT8_MAX},
    {"uint16", CIM_UINT16, kNumber, 0, UINT16_MAX},
    {"uint32", CIM_UINT32, kNumber, 0, UINT32_MAX},
    {"ref", CIM_REFERENCE, kText, 0, 0},
    {"void", CIM_EMPTY, std::variant_npos, 0, 0},
};

const CimTypeRow* FindRow(CIMTYPE type) {
  const auto* row = std::ranges::find(kRows, type & ~CIM_FLAG_ARRAY, &CimTypeRow::type);
  return row == std::end(kRows) ? nullptr : row;
}

}  // namespace

CIMTYPE CimTypeNamed(std::string_view word) {
  const auto* row = std::ranges::find_if(
      kRows, [word](const CimTypeRow& candidate) { return SameName(candidate.word, word); });
  return row == std::end(kRows) ? static_cast<CIMTYPE>(CIM_ILLEGAL) : row->type;
}

bool FitsCimType(const MofScalar& value, CIMTYPE type) {
  const CimTypeRow* row = FindRow(type);
  if (row == nullptr || row->kind != value.index()) return false;
  const auto* number = std::get_if<std::int64_t>(&value);
  return number == nullptr || (*number >= row->minimum && *number <= row->maximum);
}

std::string CimTypeName(CIMTYPE type) {
  const CimTypeRow* row = FindRow(type);
  std::string name(row == nullptr ? "unknown" : row->word);
  return (type & CIM_FLAG_ARRAY) != 0 ? name + "[]" : name;
}

}  // namespace host
