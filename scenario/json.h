#pragma once
// The JSON library, compiled once: a source that includes this does not instantiate it again.

#include <nlohmann/json.hpp>

extern template class nlohmann::basic_json<nlohmann::ordered_map>;
