#pragma once

#include "adapterapi/operations.h"
#include "provider/core/trace.h"

namespace wifi {

/// The result of a guarded library call.
struct GuardedResult {
  bool raised = false;  ///< the call threw an exception, which is traced; `status` is then 0
  adapterapi::ApiStatus status = 0;

  bool succeeded() const { return !raised && status == 0; }
};

/// Calls a getter of the library and catches its exceptions. An exception is traced as "Exception
/// from Quarn API NAME", and `output` is restored to its value before the call.
///
///     adapterapi::PspInfoRecord record = {};
///     const auto result = GuardedCall(state.api, operation::GetPspInfo, entry.number, record);
///     const std::uint32_t mode = result.succeeded() ? record.mode : 0;
template <class Output>
GuardedResult GuardedCall(adapterapi::AdapterApi& api,
                          const adapterapi::Operation<adapterapi::AdapterNumber, Output*>& getter,
                          adapterapi::AdapterNumber adapter, Output& output) {
  const Output before = output;
  try {
    return {false, (api.*getter.call)(adapter, &output)};
  } catch (...) {
    TraceException(getter.raisedLine);
    output = before;
    return {true, 0};
  }
}

}  // namespace wifi
