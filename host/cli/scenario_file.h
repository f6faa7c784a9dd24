#pragma once

#include <optional>
#include <string>

#include "host/cli/command.h"
#include "scenario/platform_objects.h"

namespace host {

/// The scenario file of this process, which the host also reads for the simulator's libraries. The
/// text of a file that can be read only once, a pipe or standard input ("-"), is kept.
class ScenarioFile {
 public:
  /// The file of --scenario, else of WIFI_SCENARIO.
  explicit ScenarioFile(const Command& options);

  /// Reads and checks the file. `other` replaces it from now on, unless it has an error. Throws
  /// ScenarioError.
  simulator::LoadedScenario Load(const std::optional<std::string>& other = std::nullopt);

  /// The name of the scenario for messages.
  std::string Name() const {
    return path_.empty()  ? "the scenario that is compiled in"
           : path_ == "-" ? "standard input"
                          : path_;
  }
  /// The file's name without folders; empty for the scenario that is compiled in.
  std::string FileName() const;

 private:
  std::string path_;                               ///< empty for the scenario that is compiled in
  std::optional<simulator::LoadedScenario> kept_;  ///< of a file that cannot be read again
};

}  // namespace host
