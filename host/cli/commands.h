#pragma once
// The functions of the table's commands. They throw for wrong input: CommandLineError, ValueError,
// QueryError, ScenarioError, ModuleError.

#include "host/cli/command.h"
#include "host/cli/command_context.h"
#include "host/cli/exit_status.h"

namespace host {

ExitStatus RunEnum(const Command& command, CommandContext& context);
ExitStatus RunGet(const Command& command, CommandContext& context);
ExitStatus RunQuery(const Command& command, CommandContext& context);
ExitStatus RunClasses(const Command& command, CommandContext& context);
ExitStatus RunDescribe(const Command& command, CommandContext& context);
ExitStatus RunDump(const Command& command, CommandContext& context);
ExitStatus RunReport(const Command& command, CommandContext& context);
ExitStatus RunView(const Command& command, CommandContext& context);
ExitStatus RunPut(const Command& command, CommandContext& context);
ExitStatus RunCall(const Command& command, CommandContext& context);
ExitStatus RunDelete(const Command& command, CommandContext& context);
ExitStatus RunShell(const Command& command, CommandContext& context);
ExitStatus RunScenario(const Command& command, CommandContext& context);
ExitStatus RunCheck(const Command& command, CommandContext& context);
ExitStatus RunExport(const Command& command, CommandContext& context);
ExitStatus RunReference(const Command& command, CommandContext& context);
ExitStatus RunExit(const Command& command, CommandContext& context);
ExitStatus RunSet(const Command& command, CommandContext& context);
ExitStatus RunAdvance(const Command& command, CommandContext& context);
ExitStatus RunRecord(const Command& command, CommandContext& context);
ExitStatus RunReload(const Command& command, CommandContext& context);
ExitStatus RunManual(const Command& command, CommandContext& context);
ExitStatus RunCompletion(const Command& command, CommandContext& context);
ExitStatus RunHelp(const Command& command, CommandContext& context);
ExitStatus RunRegister(const Command& command, CommandContext& context);
ExitStatus RunDoctor(const Command& command, CommandContext& context);
ExitStatus RunMetrics(const Command& command, CommandContext& context);
ExitStatus RunHealth(const Command& command, CommandContext& context);
ExitStatus RunUnregister(const Command& command, CommandContext& context);

}  // namespace host
