#pragma once
// The declarations of the adapter control library QuarnApi for its client. The library exports by
// ordinal only; the import library, made from operations.inc, maps these names to the ordinals.

#include "adapterapi/records.h"

namespace adapterapi::quarn {
extern "C" {
#define QUARN_OPERATION(ordinal, name, parameters, arguments) ApiStatus name parameters;
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
}
}  // namespace adapterapi::quarn
