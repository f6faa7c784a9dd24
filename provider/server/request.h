#pragma once

#include "platform/structured_exception.h"
#include "provider/core/impersonation.h"

namespace wifi {

/// The frame of every served request: impersonates the client, runs `steps` (to HRESULT) behind the
/// one fence, sends the sink its one final status, and reverts. Answers with that status.
template <class Steps>
HRESULT RunRequest(IWbemObjectSink* sink, Steps&& steps) {
  if (sink == nullptr) return WBEM_E_INVALID_PARAMETER;
  const ClientImpersonation impersonation;
  HRESULT status = WBEM_E_PROVIDER_FAILURE;  // unless the steps come to their end
  platform::Survives([&] { status = steps(); });
  // A sink that throws has had its one status; there is nobody else to tell.
  return platform::Survives(
             [&] { sink->SetStatus(WBEM_STATUS_COMPLETE, status, nullptr, nullptr); })
             ? status
             : WBEM_E_PROVIDER_FAILURE;
}

}  // namespace wifi
