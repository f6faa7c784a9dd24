#pragma once

#include <cstddef>
#include <vector>

#include "host/service/value.h"

namespace host {

/// The indexes of values in ascending order: numbers, including numbers at the beginning of a text
/// ("-58 dBm"), then texts, without regard to letter case. Equal values keep their order, and
/// missing values come last, even in descending order.
std::vector<std::size_t> SortedOrder(const std::vector<Json>& values, bool descending);

}  // namespace host
