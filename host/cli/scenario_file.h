#pragma once

#include <optional>
#include <string>

#include "host/cli/command.h"
#include "scenario/platform_objects.h"

namespace host {

/// The scenario file of this process, which the host reads for the simulator's libraries too. What
/// can be read once only, a pipe or standard input ("-"), is kept as it was read.
class ScenarioFile {
 public:
  /// The file of --scenario, else of WIFI_SCENARIO.
  explicit ScenarioFile(const Command& options);

  /// Reads and checks the file. Another file takes its place from now on, unless there is something
  /// wrong in it. Throws ScenarioError.
  simulator::LoadedScenario Load(const std::optional<std::string>& other = std::nullopt);

 private:
  std::string path_;                               ///< empty for the scenario that is compiled in
  std::optional<simulator::LoadedScenario> kept_;  ///< of what cannot be read again
};

}  // namespace host
