#pragma once

#include <optional>
#include <string>

#include "host/cli/command.h"
#include "scenario/platform_objects.h"

namespace host {

/// The scenario file of this process, which the simulator's libraries open by themselves. What can
/// be read once only, a pipe or standard input ("-"), is kept in a file while this lives.
class ScenarioFile {
 public:
  /// The file of --scenario, else of WIFI_SCENARIO. Throws FileError.
  explicit ScenarioFile(const Command& options);
  ScenarioFile(const ScenarioFile&) = delete;
  ScenarioFile& operator=(const ScenarioFile&) = delete;
  ~ScenarioFile();

  /// Checks the whole file and gives the platform's part of it. Another file takes its place from
  /// now on, unless there is something wrong in it. Throws ScenarioError and FileError.
  simulator::PlatformObjects Load(const std::optional<std::string>& other = std::nullopt);

 private:
  /// The file that a person names, copied if it can be read once only.
  void Use(const std::string& named);

  std::string name_;       ///< in errors; empty for the path
  std::string path_;       ///< empty for the scenario that is compiled in
  std::string temporary_;  ///< to be deleted, empty for none
};

}  // namespace host
