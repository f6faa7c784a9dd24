#include "adapterapi/quarn_api.h"

#include "simulator/library.h"

namespace adapterapi::quarn {
namespace {

simulator::Library& Instance() {
  static simulator::Library library;
  return library;
}

}  // namespace

#define QUARN_OPERATION(ordinal, name, parameters, arguments) \
  ApiStatus name parameters {                                 \
    return Instance().name arguments;                         \
  }
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION

}  // namespace adapterapi::quarn
