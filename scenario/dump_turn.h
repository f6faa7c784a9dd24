#pragma once

#include <string>

#include "scenario/dump_classes.h"
#include "scenario/json.h"

namespace simulator {

/// Whether a scenario has the source of a property: a member of `table`, or something else by its
/// row.
bool HasProducer(std::string_view property, std::span<const PropertyRow> rows, const Table& table);

/// Converts one property of an instance into members of the object `target`, whose rows are
/// `table`'s. Returns the remark to print, empty if there is none.
std::string TurnBack(std::string_view property, const nlohmann::json& value,
                     std::span<const PropertyRow> rows, const Table& table,
                     nlohmann::ordered_json& target);

}  // namespace simulator
