#pragma once
// The data types that a declaration may name.

#include <string_view>

#include "host/mof/schema.h"

namespace host {

/// The type of a MOF type word, such as sint32; CIM_ILLEGAL when it is none.
CIMTYPE CimTypeNamed(std::string_view word);

/// Whether a value of a MOF text may stand in an element of this type: its kind and its range.
bool FitsCimType(const MofScalar& value, CIMTYPE type);

}  // namespace host
