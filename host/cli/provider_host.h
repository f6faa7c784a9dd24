#pragma once

#include <memory>
#include <optional>
#include <ostream>

#include "host/cli/command.h"
#include "host/cli/exit_status.h"
#include "host/cli/progress.h"
#include "host/os/os.h"
#include "host/service/provider_module.h"
#include "host/service/provider_session.h"
#include "platform/control/control.h"

namespace host {

/// Loads the closed libraries of --libraries, if they are named. Throws ModuleError.
void LoadNamedLibraries(const Command& options);
/// The module in the file of --module, else beside the program. Throws ModuleError.
ProviderModule ModuleByFile(const Command& options);

/// The provider that the commands of one process ask, from the loading of its module to the
/// unloading.
class ProviderHost {
 public:
  /// Loads the module as the options say. Throws ModuleError.
  ProviderHost(const Repository& repository, const Command& options, std::ostream& errors);

  /// Has the simulator play the scenario, makes a provider that sees its platform objects, and
  /// reports a failure. One that was made serves requests, as far as it can, even if it reports a
  /// failed start. Throws ModuleError.
  ExitStatus Start(const simulator::LoadedScenario& scenario);
  /// The same anew. Throws ModuleError without a simulator.
  ExitStatus Restart(const simulator::LoadedScenario& scenario);
  /// Changes a member of the simulated machine, by its path in the scenario. Throws ScenarioError,
  /// and ModuleError without a simulator.
  void SetMember(const std::string& path, const std::string& value);
  /// From here on the time of a command counts for the line that says what is under way.
  void BeginCommand() {
    if (progress_) progress_->BeginCommand();
  }
  /// What the provider's version query answers.
  simulator::OsVersion os_version() const { return osVersion_.value_or(ownVersion_); }
  /// The provider that was made, null if there is none.
  ProviderSession* session() { return session_ ? &*session_ : nullptr; }
  /// Releases everything; gives kDefective if the provider ever broke the contract.
  ExitStatus Finish();

 private:
  const Repository& repository_;
  std::ostream& errors_;
  Defects defects_;
  platform::Apartment apartment_;
  std::optional<os::DebugOutputToStderr> debugOutput_;
  std::unique_ptr<const ProviderModule> module_;
  platform::ComPtr<IClassFactory> factory_;
  // Made after the factory: the registration is the machine's own.
  std::optional<platform::PrivateLocalMachine> localMachine_;
  std::optional<simulator::OsVersion> namedVersion_;  ///< by the command line
  std::optional<simulator::OsVersion> osVersion_;     ///< other than the system's own
  simulator::OsVersion ownVersion_;
  std::optional<Progress> progress_;  ///< only at a terminal
  std::optional<ProviderSession> session_;
};

}  // namespace host
