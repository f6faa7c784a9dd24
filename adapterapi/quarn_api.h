#pragma once
// The adapter control library QuarnApi as a client links it. It exports by ordinal only; the import
// library, made from operations.inc, ties these names to the ordinals.

#include "adapterapi/records.h"

namespace adapterapi::quarn {
extern "C" {
#define QUARN_OPERATION(ordinal, name, parameters, arguments) ApiStatus name parameters;
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
}
}  // namespace adapterapi::quarn
