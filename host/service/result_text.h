#pragma once

#include <string>

#include "platform/platform.h"

namespace host {

/// A result code as text: "WBEM_E_NOT_FOUND (0x80041002): not found".
std::string DescribeResult(HRESULT result);

/// Whether a result says that the named class or instance does not exist.
bool MeansNotFound(HRESULT result);

}  // namespace host
