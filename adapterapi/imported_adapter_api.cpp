#include <tuple>

#include "adapterapi/adapter_api.h"
#include "adapterapi/call_trace.h"
#include "adapterapi/quarn_api.h"
#include "platform/structured_exception.h"

namespace adapterapi {
namespace {

class ImportedApi final : public AdapterApi {
 public:
#define QUARN_OPERATION(ordinal, name, parameters, arguments)                                      \
  ApiStatus name parameters override {                                                             \
    const auto call = [&] { return platform::CallFenced([&] { return quarn::name arguments; }); }; \
    return std::apply(                                                                             \
        [&](const auto&... each) { return TracedCall(#name, #arguments, call, each...); },         \
        std::make_tuple arguments);                                                                \
  }
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
};

// Initialized at compile time: the entry point of the module uses it, and it needs no guard.
constinit ImportedApi api;

}  // namespace

AdapterApi& ImportedAdapterApi() {
  return api;
}

}  // namespace adapterapi
