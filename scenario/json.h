#pragma once
// The JSON library, compiled once: a source that includes this makes none of its members anew.

#include <nlohmann/json.hpp>

extern template class nlohmann::basic_json<nlohmann::ordered_map>;
