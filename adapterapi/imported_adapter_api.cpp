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

}  // namespace

AdapterApi& ImportedAdapterApi() {
  static ImportedApi api;
  return api;
}

}  // namespace adapterapi
