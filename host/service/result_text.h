#pragma once

#include <string>

#include "platform/platform.h"

namespace host {

/// A result code as text: "WBEM_E_NOT_FOUND (0x80041002): not found".
std::string DescribeResult(HRESULT result);

/// No answer came in time: RPC_E_TIMEOUT.
inline constexpr HRESULT kLate = static_cast<HRESULT>(0x8001011F);

/// Whether a result says that the named class or instance does not exist.
bool MeansNotFound(HRESULT result);
/// Whether a result says that nobody waits for the answer any more.
bool MeansUnanswered(HRESULT result);

}  // namespace host
