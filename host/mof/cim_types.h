#pragma once
// The data types that a declaration may name.

#include <string_view>

#include "host/mof/schema.h"

namespace host {

struct CimType {
  std::string_view word;  ///< in MOF
  CIMTYPE type;           ///< without CIM_FLAG_ARRAY
  VARTYPE variantType;    ///< what carries a value; VT_EMPTY for a type without values
  std::int64_t least = 0;
  std::int64_t most = 0;  ///< 0 for what is no integer
};

/// The row of a type, or of the elements of an array type; none for a type that no MOF word names.
const CimType* FindCimType(CIMTYPE type);

/// The type of a MOF type word, such as sint32; CIM_ILLEGAL when it is none.
CIMTYPE CimTypeNamed(std::string_view word);

/// Whether a value of a MOF text may stand in an element of this type: its kind and its range.
bool FitsCimType(const MofScalar& value, CIMTYPE type);

}  // namespace host
