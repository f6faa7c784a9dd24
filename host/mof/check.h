#pragma once
// What a schema must contain, besides correct grammar, to be served and to be understood by its
// users.

#include <string>
#include <vector>

#include "host/mof/schema.h"

namespace host {

/// Every finding as "LINE: WHERE: what is wrong". First a registration that does not fit the
/// classes. Then, in the order of the declarations: duplicate names, classes of another provider or
/// without a key, missing or malformed descriptions, types that the provider does not put,
/// accesses, parameter directions and numbers, value maps of unequal length.
std::vector<std::string> CheckSchema(const Schema& schema);

}  // namespace host
