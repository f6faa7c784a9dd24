#include "host/cli/command_table.h"
#include "host/cli/commands.h"
#include "host/cli/provider_host.h"
#include "host/cli/scenario_file.h"
#include "scenario/time_text.h"

namespace host {

ExitStatus RunSet(const Command& command, CommandContext& context) {
  const std::vector<std::string> assignments = command.All("MEMBER=VALUE");
  if (assignments.empty()) throw CommandLineError("set: MEMBER=VALUE is expected; see help set");
  for (const std::string& assignment : assignments) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos) {
      throw CommandLineError("'" + assignment +
                             "' is not of the form MEMBER=VALUE, such as "
                             "adapters/0/radioState=false");
    }
    context.provider->SetMember(assignment.substr(0, equals), assignment.substr(equals + 1));
  }
  return kSuccess;
}

ExitStatus RunAdvance(const Command& command, CommandContext& context) {
  context.provider->Advance(*simulator::ParseDuration(command.Text("DURATION")));
  return kSuccess;
}

ExitStatus RunReload(const Command& command, CommandContext& context) {
  // A scenario with an error leaves the machine unchanged.
  const simulator::LoadedScenario scenario = context.scenario->Load(command.Find("FILE"));
  const ExitStatus status = context.provider->Restart(scenario);
  context.session = context.provider->session();
  if (context.session == nullptr) context.leave = true;  // no provider is left
  return status;
}

}  // namespace host
