#include "host/cli/command_table.h"
#include "host/cli/commands.h"
#include "host/cli/provider_host.h"
#include "host/service/result_text.h"

namespace host {
namespace {

ExitStatus ChangeRegistration(const Command& command, CommandContext& context,
                              HRESULT (ProviderModule::*change)() const) {
  if (!os::HasComRegistration() && !command.Has("--registry")) {
    throw CommandLineError(std::string(command.row->name) +
                           ": this system keeps no registry; name a file with --registry");
  }
  LoadNamedLibraries(command);
  const HRESULT result = (ModuleByFile(command).*change)();
  return SUCCEEDED(result) ? kSuccess
                           : context.Fail(kRefused, std::string(command.row->name) + ": " +
                                                        DescribeResult(result));
}

}  // namespace

ExitStatus RunRegister(const Command& command, CommandContext& context) {
  return ChangeRegistration(command, context, &ProviderModule::Register);
}

ExitStatus RunUnregister(const Command& command, CommandContext& context) {
  return ChangeRegistration(command, context, &ProviderModule::Unregister);
}

}  // namespace host
