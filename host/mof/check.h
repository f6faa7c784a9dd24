#pragma once
// What a schema must hold beyond the grammar to be served and to be understood by its users.

#include <string>
#include <vector>

#include "host/mof/schema.h"

namespace host {

/// Every finding as "LINE: WHERE: what is wrong": first a registration that does not fit the
/// classes, then, in the order of the declarations, names that stand twice, classes of another
/// provider or without a key, missing or ragged descriptions, types that the
/// provider does not put, accesses, parameter directions and numbers, uneven value maps.
std::vector<std::string> CheckSchema(const Schema& schema);

}  // namespace host
