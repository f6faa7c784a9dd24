#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/service/cim_object.h"

namespace host {

/// Applies `Name=value` texts to the properties of an instance; `writable` says which of them a
/// user may set. Returns the named properties. Throws ValueError, which says what is accepted.
std::vector<std::size_t> Assign(const std::vector<std::string>& assignments, CimObject* instance,
                                const std::function<bool(const PropertyDeclaration&)>& writable);

}  // namespace host
