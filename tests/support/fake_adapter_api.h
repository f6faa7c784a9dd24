#pragma once

#include <functional>
#include <stdexcept>

#include "adapterapi/adapter_api.h"
#include "tests/support/journal.h"

namespace testing_support {

using namespace adapterapi;  // the operation list names its records without a namespace

/// An adapter control library whose operations succeed without changing their outputs, unless a
/// test sets `onNAME`. Every call is in the journal.
class FakeAdapterApi final : public AdapterApi {
 public:
  explicit FakeAdapterApi(Journal& journal) : journal_(journal) {}

#define QUARN_OPERATION(ordinal, name, parameters, arguments) \
  std::function<ApiStatus parameters> on##name;               \
  ApiStatus name parameters override {                        \
    const Outgoing call(Step::kAdapterLibrary);               \
    journal_.Add("call " #name);                              \
    if (call.struck()) return call.code();                    \
    return on##name ? on##name arguments : 0;                 \
  }
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION

 private:
  Journal& journal_;
};

/// An operation that returns a status without changing its output.
inline auto Answers(ApiStatus status) {
  return [status](auto...) { return status; };
}

/// An operation that throws.
inline auto Raises() {
  return [](auto...) -> ApiStatus { throw std::runtime_error("library fault"); };
}

/// A getter that writes `value` to the argument after the first and returns `status`.
template <class Value>
auto Gives(Value value, ApiStatus status = 0) {
  return [value, status](auto, auto* output) {
    *output = value;
    return status;
  };
}

}  // namespace testing_support
