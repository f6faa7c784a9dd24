#pragma once
// Each operation of operations.inc as a value: its name and how to call it.
//
//     (api.*operation::GetBand.call)(adapter, &band);  // the same as api.GetBand(adapter, &band)

#include "adapterapi/adapter_api.h"

namespace adapterapi {

template <class... Parameters>
struct Operation {
  const char* name;
  const char* raisedLine;  ///< the trace line if the call raises an exception
  ApiStatus (AdapterApi::*call)(Parameters...);
};

template <class... Parameters>
Operation(const char*, const char*, ApiStatus (AdapterApi::*)(Parameters...))
    -> Operation<Parameters...>;

namespace operation {
#define QUARN_OPERATION(ordinal, name, parameters, arguments) \
  inline constexpr Operation name{#name, "Exception from Quarn API " #name, &AdapterApi::name};
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
}  // namespace operation

}  // namespace adapterapi
