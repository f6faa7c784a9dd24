#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/service/repository.h"

namespace host {

/// The object path that was probably meant if texts have lost their quotes to a shell, or the class
/// or the key is missing: WiFi_NetworkAdapter.DeviceID="7" for DeviceID=7. nullopt for a path that
/// is correct, or that says too little.
std::optional<std::string> MeantPath(std::string_view path, const Repository& repository);

}  // namespace host
