#include "host/cli/run_host.h"

#include <algorithm>
#include <charconv>
#include <exception>
#include <sstream>

#include "host/cli/command_line.h"
#include "host/cli/command_table.h"
#include "host/cli/commands.h"
#include "host/cli/fleet_commands.h"
#include "host/cli/provider_host.h"
#include "host/cli/run_command.h"
#include "host/cli/scenario_file.h"
#include "host/mof/product_schema.h"
#include "host/os/os.h"
#include "platform/environment.h"
#include "scenario/text_file.h"

namespace host {
namespace {

constexpr int kDefaultWidth = 100;

/// The width of tables: that of COLUMNS, else the terminal's.
int Width() {
  const std::string columns = platform::EnvironmentText("COLUMNS").value_or("");
  int width = 0;
  std::from_chars(columns.data(), columns.data() + columns.size(), width);
  return width > 0 ? width : os::TerminalWidth().value_or(kDefaultWidth);
}

ExitStatus Run(const Command& command, CommandContext& context) {
  const bool onService = command.Has("--service");
  for (const char* option : {"--user", "--timeout"}) {
    const bool isDoctor = command.row->run == RunDoctor && option == std::string_view("--timeout");
    if (command.Has(option) && !onService && !isDoctor) {
      throw CommandLineError(std::string(option) + " goes with --service");
    }
  }
  const Needs needs = command.row->needs;
  if (onService || needs == Needs::kNothing) return RunCommand(command, context);
  ScenarioFile scenario(command);
  const simulator::LoadedScenario loaded = scenario.Load();
  if (needs == Needs::kScenario) return RunCommand(command, context);
  ProviderHost provider(context.repository, command, context.errors);
  ExitStatus status = provider.Start(loaded);
  context.provider = &provider;
  context.scenario = &scenario;
  context.session = provider.session();
  if (context.session == nullptr) return Worse(status, provider.Finish());
  const ExitStatus own = RunCommand(command, context);
  status = Worse(Worse(status, own), provider.Finish());
  return command.row->isCheck ? own : status;
}

/// Executes a command line: loads the provider if it is needed, runs the command, releases
/// everything and unloads the provider.
ExitStatus RunHost(const Command& command, std::ostream& output, std::ostream& errors) {
  const Repository repository(embedded::wifi_adapter_provider_mof(), "wifi_adapter_provider.mof");
  CommandContext context = {repository, nullptr, output, errors, kDefaultWidth, &Width};
  context.isTerminal = os::IsTerminal(1);
  context.color = os::ShowsEscapes(1) && platform::EnvironmentText("NO_COLOR").value_or("").empty();
  const std::optional<std::string> registry = command.Find("--registry");
  if (registry && !platform::KeepRegistryIn(*registry)) {
    return context.Fail(kBadInput, "--registry: '" + *registry + "' cannot keep the registry here");
  }
  try {
    return Run(command, context);
  } catch (const simulator::ScenarioError& error) {
    return context.Fail(kBadInput, std::string("scenario: ") + error.what());
  } catch (const simulator::FileError& error) {
    return context.Fail(kBadInput, std::string("scenario: ") + error.what());
  } catch (const ModuleError& error) {
    return context.Fail(kRefused, error.what());
  }
}

}  // namespace

namespace {

ExitStatus RunCommandLine(const std::vector<std::string>& arguments, std::ostream& output,
                          std::ostream& errors) {
  ExitStatus status = kSuccess;
  try {
    const CommandLine commandLine = ParseCommandLine(arguments);
    if (commandLine.information) {
      output << *commandLine.information;
    } else {
      status = RunHost(commandLine.command, output, errors);
    }
  } catch (const CommandLineError& error) {
    WriteError(errors, error.what());
    status = kBadInput;
  } catch (const std::exception& error) {
    WriteError(errors, error.what());
    status = kUnexpected;
  }
  if (output.flush()) return status;
  WriteError(errors, "standard output could not be written whole");
  return kNotWritten;
}

/// Whether the first word that is a command's name is that of a check.
bool AsksForCheck(const std::vector<std::string>& arguments) {
  const auto word = std::ranges::find_if(
      arguments, [](const std::string& each) { return FindCommand(each) != nullptr; });
  return word != arguments.end() && FindCommand(*word)->isCheck;
}

}  // namespace

ExitStatus RunProgram(const std::vector<std::string>& arguments, std::ostream& output,
                      std::ostream& errors) {
  if (!AsksForCheck(arguments)) return RunCommandLine(arguments, output, errors);
  // A monitoring system reads one line of the output, also if the check cannot be made.
  std::ostringstream line;
  std::ostringstream problems;
  ExitStatus status = RunCommandLine(arguments, line, problems);
  if (line.view().empty()) status = FailCheck(line, problems.str());
  output << line.view() << std::flush;
  return status;
}

}  // namespace host
