#include "adapterapi/adapter_api.h"
#include "adapterapi/quarn_api.h"
#include "platform/structured_exception.h"

namespace adapterapi {
namespace {

class ImportedApi final : public AdapterApi {
 public:
#define QUARN_OPERATION(ordinal, name, parameters, arguments)           \
  ApiStatus name parameters override {                                  \
    return platform::CallFenced([&] { return quarn::name arguments; }); \
  }
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
};

// Ready before anything runs, as the module's entry point needs it, and without a guard.
constinit ImportedApi api;

}  // namespace

AdapterApi& ImportedAdapterApi() {
  return api;
}

}  // namespace adapterapi
