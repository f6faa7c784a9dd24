#pragma once

#include "adapterapi/records.h"

namespace adapterapi {

/// The adapter control library as the provider sees it: one operation a row of operations.inc.
/// Replaceable, so that the provider runs against any implementation of those operations.
/// A call may throw: what the library throws, or platform::StructuredException.
class AdapterApi {
 public:
  virtual ~AdapterApi() = default;
#define QUARN_OPERATION(ordinal, name, parameters, arguments) virtual ApiStatus name parameters = 0;
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
};

/// The library that the module imports.
AdapterApi& ImportedAdapterApi();

}  // namespace adapterapi
