#pragma once

#include <memory>
#include <optional>
#include <ostream>

#include "host/cli/command.h"
#include "host/cli/exit_status.h"
#include "host/cli/machine_clock.h"
#include "host/cli/progress.h"
#include "host/os/os.h"
#include "host/service/provider_module.h"
#include "host/service/provider_session.h"
#include "platform/control/control.h"

namespace host {

/// Loads the closed libraries from the folder of --libraries, if it is given. Throws ModuleError.
void LoadNamedLibraries(const Command& options);
/// The module in the file of --module, else in the program's folder. Throws ModuleError.
ProviderModule ModuleByFile(const Command& options);
/// The path of --module, else of the module in the program's folder.
std::string ModulePath(const Command& options);
/// Whether one of the loaded closed libraries is the simulator's.
bool UsesSimulator();

/// The provider that the commands of one process use, from loading its module to unloading it.
class ProviderHost {
 public:
  /// Loads the module according to the options. Throws ModuleError.
  ProviderHost(const Repository& repository, const Command& options, std::ostream& errors);

  /// Makes the simulator play the scenario, creates a provider that sees the scenario's platform
  /// objects, and reports a failure. A provider that was created serves requests as far as it can,
  /// even if it reports a failed start. Throws ModuleError.
  ExitStatus Start(const simulator::LoadedScenario& scenario);
  /// The same again with another scenario. Throws ModuleError without a simulator.
  ExitStatus Restart(const simulator::LoadedScenario& scenario);
  /// Changes a member of the simulated machine, by its path in the scenario. Throws ScenarioError,
  /// and ModuleError without a simulator.
  void SetMember(const std::string& path, const std::string& value);
  /// Moves the time of the simulated machine forward. Throws ModuleError without a simulator.
  void Advance(std::int64_t milliseconds);
  /// The present moment of the machine, in milliseconds since 1970, UTC. A simulated machine has
  /// its own clock.
  std::int64_t Time() const;
  /// Lets time pass on the machine's clock; a clock that is stopped is moved, without a wait.
  void Wait(std::int64_t milliseconds);
  /// Whether the libraries are those of the simulator.
  bool IsSimulated() const;
  /// The members of the simulated machine that can complete the typed text.
  std::vector<std::string> MembersFor(const std::string& typed) const;
  /// Starts the time after which the running command is shown. During a command the time of the
  /// simulated machine stands still.
  void BeginCommand();
  /// The answer to the provider's version query.
  simulator::OsVersion os_version() const { return osVersion_.value_or(ownVersion_); }
  /// Whether the simulated machine was changed since it started.
  bool IsChanged() const { return isChanged_; }
  /// What the scenario that plays was made of.
  const simulator::Provenance& made_of() const { return madeOf_; }
  /// The provider that was created, or null.
  ProviderSession* session() { return session_ ? &*session_ : nullptr; }
  /// Releases everything; returns kDefective if the provider ever violated the contract.
  ExitStatus Finish();

 private:
  const Repository& repository_;
  std::ostream& errors_;
  Defects defects_;
  platform::Apartment apartment_;
  std::optional<os::DebugOutputToStderr> debugOutput_;
  std::unique_ptr<const ProviderModule> module_;
  platform::ComPtr<IClassFactory> factory_;
  // Created after the factory: the registration is the machine's own.
  std::optional<platform::PrivateLocalMachine> localMachine_;
  std::optional<simulator::OsVersion> namedVersion_;  ///< by the command line
  std::optional<simulator::OsVersion> osVersion_;     ///< if not the system's own
  simulator::OsVersion ownVersion_;
  std::string scenarioText_;  ///< the current scenario as it was when the machine started
  simulator::Provenance madeOf_;
  bool isChanged_ = false;
  MachineClock clock_;
  std::int64_t clockStart_ = 0;       ///< when it showed 0, in milliseconds since 1970, UTC
  std::optional<Progress> progress_;  ///< only at a terminal
  std::optional<ProviderSession> session_;
};

}  // namespace host
