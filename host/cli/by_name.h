#pragma once
// What an enumeration that ended early left unread, asked for by name.

#include <functional>
#include <string>

#include "host/service/repository.h"
#include "host/service/value.h"

namespace host {

/// Adds to a dump the instances that requests by name give of adapters that an enumeration did not
/// reach: the keys are those that other classes of the dump name. `get` gives the instance of a
/// path, or null. Returns what was done, class to numbers, as the dump's origin says it.
Json AddByName(const Repository& repository,
               const std::function<Json(const std::string& path)>& get, Json* dump);

}  // namespace host
