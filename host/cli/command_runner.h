#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "host/cli/command_line.h"
#include "host/cli/exit_status.h"
#include "host/service/provider_session.h"

namespace host {

/// Runs commands against one provider and writes what they give.
class CommandRunner {
 public:
  /// `session` may be null for the commands that only read the schema. `width` is the width of a
  /// table. All outlive the runner.
  CommandRunner(const Repository& repository, ProviderSession* session, std::ostream& output,
                std::ostream& errors, int width);

  ExitStatus Run(const Command& command);
  /// Whether a command needs a provider.
  static bool NeedsProvider(CommandName name);

 private:
  ExitStatus RunEnum(const Command& command);
  ExitStatus RunGet(const Command& command);
  ExitStatus RunQuery(const Command& command);
  ExitStatus RunClasses(const Command& command);
  ExitStatus RunDescribe(const Command& command);
  ExitStatus RunDump(const Command& command);
  ExitStatus RunPut(const Command& command);
  ExitStatus RunCall(const Command& command);
  ExitStatus RunDelete(const Command& command);

  /// Writes the outcome's objects and reports a failure of `what`.
  ExitStatus Show(const std::string& what, const Outcome& outcome, const Command& command,
                  const std::vector<std::string>& fields);
  ExitStatus Report(const std::string& what, HRESULT status);
  ExitStatus Fail(ExitStatus status, const std::string& message);

  const Repository& repository_;
  ProviderSession* session_;
  std::ostream& output_;
  std::ostream& errors_;
  int width_;
};

/// Reads `Name=value` texts into the properties of an instance; `writable` says which of them a
/// person may set. Throws ValueError, which says what is accepted.
void Assign(const std::vector<std::string>& assignments, CimObject* instance,
            const std::function<bool(const PropertyDeclaration&)>& writable);

}  // namespace host
