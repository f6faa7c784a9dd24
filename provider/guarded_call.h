#pragma once

#include <string>

#include "adapterapi/operations.h"
#include "provider/trace.h"

namespace wifi {

/// What a guarded library call did.
struct GuardedResult {
  bool raised = false;  ///< it threw; the line is traced, `status` says nothing
  adapterapi::ApiStatus status = 0;

  bool succeeded() const { return !raised && status == 0; }
};

/// Runs one library operation so that no exception of it leaves: one that it raises is traced as
/// "Exception from Quarn API NAME".
template <class... Parameters, class... Arguments>
GuardedResult GuardedCall(adapterapi::AdapterApi& api,
                          const adapterapi::Operation<Parameters...>& operation,
                          Arguments... arguments) {
  try {
    return {false, (api.*operation.call)(arguments...)};
  } catch (...) {
    TraceException(("Exception from Quarn API " + std::string(operation.name)).c_str());
    return {true, 0};
  }
}

}  // namespace wifi
