#pragma once

#include "platform/structured_exception.h"
#include "provider/core/impersonation.h"

namespace wifi {

/// The frame of every request: impersonates the client, runs `steps` (to HRESULT) inside the fence,
/// sends the sink exactly one final status, and reverts. Returns that status.
template <class Steps>
HRESULT RunRequest(IWbemObjectSink* sink, Steps&& steps) {
  if (sink == nullptr) return WBEM_E_INVALID_PARAMETER;
  const ClientImpersonation impersonation;
  HRESULT status = WBEM_E_PROVIDER_FAILURE;  // if the steps throw an exception
  platform::Survives([&] { status = steps(); });
  // A sink that throws has received its only status; it is not called again.
  return platform::Survives(
             [&] { sink->SetStatus(WBEM_STATUS_COMPLETE, status, nullptr, nullptr); })
             ? status
             : WBEM_E_PROVIDER_FAILURE;
}

}  // namespace wifi
