#pragma once

#include "adapterapi/operations.h"
#include "provider/core/trace.h"

namespace wifi {

/// What a guarded library call did.
struct GuardedResult {
  bool raised = false;  ///< it threw; the line is traced, `status` says nothing
  adapterapi::ApiStatus status = 0;

  bool succeeded() const { return !raised && status == 0; }
};

/// Runs one getter of the library so that no exception of it leaves: one that it raises is traced
/// as "Exception from Quarn API NAME", and `output` is then what it was before the call.
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
