#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/service/repository.h"

namespace host {

/// An object path as it was probably meant, where texts have lost their quotes to a shell, or the
/// class or the key is missing: WiFi_NetworkAdapter.DeviceID="7" for DeviceID=7. None for a path
/// that may stand as it is, or that says too little.
std::optional<std::string> MeantPath(std::string_view path, const Repository& repository);

}  // namespace host
