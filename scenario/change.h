#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "scenario/scenario.h"

namespace simulator {

/// The simulated libraries.
enum class Player { kAdapterLibrary, kProfileLibrary };
/// Whether a library plays the member at a path.
bool Plays(Player player, std::string_view path);

/// The adapter at an index of the scenario's array, null past the end.
using AdapterAt = std::function<Adapter*(std::size_t)>;

/// Changes one member of a running machine, named by its path in the scenario file:
/// adapters/0/association/ssid, settings/406, profiles/user/0/ssid, faults/0/status, or a new fault
/// after the last. `adapterAt` is empty where the adapters are not known. The value is JSON, or
/// else a text without quotes. Members that a machine reads only when it starts are refused. Throws
/// ScenarioError and then has changed nothing. Returns whether the faults have changed.
bool ChangeMember(const std::string& path, const std::string& value, const AdapterAt& adapterAt,
                  Scenario& scenario);

}  // namespace simulator
