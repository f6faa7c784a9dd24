#pragma once

#include <cstddef>
#include <vector>

#include "host/service/value.h"

namespace host {

/// The places of values in their order: numbers, among them those that texts begin with ("-58
/// dBm"), then texts, without regard to the case of letters. Equal ones stay as they are, and what
/// has no value comes last, also where the order is turned around.
std::vector<std::size_t> SortedOrder(const std::vector<Json>& values, bool descending);

}  // namespace host
