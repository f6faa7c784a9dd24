#pragma once

#include <functional>
#include <string>

#include "scenario/scenario.h"

namespace simulator {

/// The adapter at a place in the scenario's array, null behind the last.
using AdapterAt = std::function<Adapter*(std::size_t)>;

/// Changes one member of a machine that plays already, named by its path in the scenario file:
/// adapters/0/association/ssid, settings/406, profiles/user/0/ssid. The value is JSON, or else a
/// text as it stands. What a machine takes over only when it starts is refused. Throws
/// ScenarioError; then nothing has changed.
void ChangeMember(const std::string& path, const std::string& value, const AdapterAt& adapterAt,
                  Scenario& scenario);

}  // namespace simulator
