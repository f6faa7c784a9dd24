#pragma once
// The data types that a declaration may have.

#include <string_view>

#include "host/mof/schema.h"

namespace host {

struct CimType {
  std::string_view word;  ///< the type's word in MOF
  CIMTYPE type;           ///< without CIM_FLAG_ARRAY
  VARTYPE variantType;    ///< type of a value's VARIANT; VT_EMPTY for a type without values
  std::int64_t least = 0;
  std::int64_t most = 0;  ///< 0 for types that are not integers
};

/// The row of a type, or of the element type of an array; null for a type without a MOF word.
const CimType* FindCimType(CIMTYPE type);

/// The type of a MOF type word, such as sint32; CIM_ILLEGAL for any other word.
CIMTYPE CimTypeNamed(std::string_view word);

/// Whether a value of a MOF text fits an element of this type, by its kind and its range.
bool FitsCimType(const MofScalar& value, CIMTYPE type);

}  // namespace host
