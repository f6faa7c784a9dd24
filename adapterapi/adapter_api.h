#pragma once

#include "adapterapi/records.h"

namespace adapterapi {

/// The adapter control library as the provider sees it: one operation for each row of
/// operations.inc. An interface, so that the provider runs with any implementation.
/// A call may throw an exception of the library or platform::StructuredException.
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
