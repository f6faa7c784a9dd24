#pragma once
// Every operation as a value: its name and how to call it, from the one list.

#include "adapterapi/adapter_api.h"

namespace adapterapi {

template <class... Parameters>
struct Operation {
  const char* name;
  const char* raisedLine;  ///< what is traced when it raises
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
