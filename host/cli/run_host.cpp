#include "host/cli/run_host.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <sstream>

#include "host/cli/command_runner.h"
#include "host/cli/shell.h"
#include "host/mof/product_schema.h"
#include "host/mof/reference.h"
#include "host/os/os.h"
#include "host/service/provider_module.h"
#include "host/service/result_codes.h"
#include "platform/environment.h"
#include "scenario/from_iw.h"

namespace host {
namespace {

constexpr const char* kScenarioVariable = "WIFI_SCENARIO";
constexpr const char* kTraceVariable = "WIFI_PROVIDER_TRACE";
constexpr const char* kSchemaName = "wifi_adapter_provider.mof";
constexpr int kDefaultWidth = 100;

/// Writes the scenario's feature settings where the provider reads them.
void ApplyFeatureValues(const simulator::PlatformObjects& objects) {
  if (!objects.featureKeyPresent) return;
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, OLESTR("SOFTWARE\\ORVEL\\Wireless\\GUIConfiguration"), 0,
                      nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &key,
                      nullptr) != ERROR_SUCCESS) {
    return;
  }
  const std::pair<const OLECHAR*, const std::optional<std::uint32_t>*> values[] = {
      {OLESTR("FeatureSet1"), &objects.featureSet1}, {OLESTR("FeatureSet2"), &objects.featureSet2}};
  for (const auto& [name, value] : values) {
    if (!*value) continue;
    const DWORD number = **value;
    RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof(number));
  }
  RegCloseKey(key);
}

simulator::PlatformObjects LoadScenario(const HostOptions& options) {
  if (!options.scenario) {
    return simulator::LoadPlatformObjects(
        platform::EnvironmentText(kScenarioVariable).value_or(""));
  }
  const std::string file = os::FileName(*options.scenario);
  simulator::PlatformObjects objects = simulator::LoadPlatformObjects(file);
  os::SetEnvironment(kScenarioVariable, file);
  return objects;
}

/// What a person at the shell may want completed.
std::vector<std::string> CompletionWords(const Repository& repository) {
  std::vector<std::string> words = CommandWords();
  for (const ClassInfo* served : repository.served()) {
    words.push_back(served->name());
    for (const auto& property : served->declaration.properties) words.push_back(property.name);
    for (const auto& method : served->declaration.methods) words.push_back(method.name);
  }
  std::ranges::sort(words);
  words.erase(std::unique(words.begin(), words.end()), words.end());
  return words;
}

ExitStatus RunShell(const Command& command, const Repository& repository, CommandRunner& runner,
                    std::ostream& output, std::ostream& errors) {
  if (command.target.empty() && os::IsTerminal(0)) {
    os::LineEditor editor(CompletionWords(repository));
    const LineSource typed = [&editor] { return editor.Read("wmihost> "); };
    return Shell(typed, output, errors, "input", false).Run(runner, command);
  }
  if (command.target.empty()) {
    return Shell(LinesOf(std::cin), output, errors, "input", false).Run(runner, command);
  }
  std::ifstream file(os::FileName(command.target));
  if (!file) {
    errors << "wmihost: " << command.target << ": the file cannot be read\n";
    return kBadInput;
  }
  return Shell(LinesOf(file), output, errors, command.target, true).Run(runner, command);
}

/// Writes the scenario of a capture; what it leaves out goes to `errors`.
ExitStatus ConvertCapture(const std::string& path, std::ostream& output, std::ostream& errors) {
  const bool isFile = !path.empty() && path != "-";
  const std::string source = isFile ? path : "standard input";
  std::ifstream file;
  if (isFile) file.open(os::FileName(path), std::ios::binary);
  std::istream& input = isFile ? static_cast<std::istream&>(file) : std::cin;
  std::ostringstream capture;
  if (!(capture << input.rdbuf())) {
    throw simulator::ScenarioError(source + ": nothing can be read from it");
  }
  const simulator::ScenarioOfCapture made = simulator::ScenarioFromIw(capture.str(), source);
  for (const std::string& remark : made.remarks) errors << "wmihost: " << remark << '\n';
  output << made.json;
  return kSuccess;
}

ExitStatus RunWithProvider(const CommandLine& commandLine, const Repository& repository,
                           const simulator::PlatformObjects& objects, int width,
                           std::ostream& output, std::ostream& errors) {
  Defects defects([&](const std::string& sentence) {
    errors << "wmihost: provider defect: " << sentence << '\n';
  });
  const HostOptions& options = commandLine.host;
  const os::Apartment apartment;
  std::optional<os::DebugOutputToStderr> debugOutput;
  if (options.trace) {
    os::SetEnvironment(kTraceVariable, "1");
    debugOutput.emplace();
  }
  if (options.libraries) LoadClosedLibraries(*options.libraries);
  const ProviderModule module =
      options.registered ? ProviderModule::Registered()
                         : ProviderModule(options.module.value_or(os::DefaultModulePath()));
  platform::ComPtr<IClassFactory> factory = module.Factory();
  // Only from here on: the registration is the machine's own.
  const os::PrivateLocalMachine localMachine;
  ApplyFeatureValues(objects);
  if (options.osVersion) {
    os::SetOsVersion(module.handle(), options.osVersion->first, options.osVersion->second);
  }
  ExitStatus status = kSuccess;
  {
    ProviderSession session(repository, objects, defects);
    const HRESULT started = session.Start(factory.get());
    factory.reset();
    if (FAILED(started)) {
      errors << "wmihost: the provider cannot be made: " << DescribeResult(started) << '\n';
      return kRefused;
    }
    // The provider still serves requests, as far as it can.
    if (session.initStatus() != S_OK) {
      errors << "wmihost: the provider reports a failed start: "
             << DescribeResult(session.initStatus()) << '\n';
      status = kRefused;
    }
    CommandRunner runner(repository, &session, output, errors, width);
    const Command& command = commandLine.command;
    status = Worse(status, command.name == CommandName::kShell
                               ? RunShell(command, repository, runner, output, errors)
                               : runner.Run(command));
    session.Stop();
    module.CheckUnloadable(defects);
  }
  return defects.count() > 0 ? kDefective : status;
}

/// Registers the module, or takes that back.
ExitStatus RunRegistration(const CommandLine& commandLine, std::ostream& errors) {
  const ProviderModule module(commandLine.host.module.value_or(os::DefaultModulePath()));
  const bool take = commandLine.command.name == CommandName::kRegister;
  const HRESULT result = take ? module.Register() : module.Unregister();
  if (SUCCEEDED(result)) return kSuccess;
  errors << "wmihost: " << (take ? "register: " : "unregister: ") << DescribeResult(result) << '\n';
  return kRefused;
}

}  // namespace

ExitStatus RunHost(const CommandLine& commandLine, std::ostream& output, std::ostream& errors) {
  const int width = os::TerminalWidth().value_or(kDefaultWidth);
  try {
    if (commandLine.command.name == CommandName::kScenario) {
      return ConvertCapture(commandLine.command.target, output, errors);
    }
    if (commandLine.host.registry &&
        !os::KeepRegistryIn(os::FileName(*commandLine.host.registry))) {
      errors << "wmihost: --registry: '" << *commandLine.host.registry
             << "' cannot keep the registry here\n";
      return kBadInput;
    }
    if (commandLine.command.name == CommandName::kRegister ||
        commandLine.command.name == CommandName::kUnregister) {
      if (commandLine.host.libraries) LoadClosedLibraries(*commandLine.host.libraries);
      return RunRegistration(commandLine, errors);
    }
    if (commandLine.command.name == CommandName::kReference) {
      output << ClassReference(ParseMof(embedded::wifi_adapter_provider_mof(), kSchemaName));
      return kSuccess;
    }
    const Repository repository(embedded::wifi_adapter_provider_mof(), kSchemaName);
    const simulator::PlatformObjects objects = LoadScenario(commandLine.host);
    if (!CommandRunner::NeedsProvider(commandLine.command.name)) {
      return CommandRunner(repository, nullptr, output, errors, width).Run(commandLine.command);
    }
    return RunWithProvider(commandLine, repository, objects, width, output, errors);
  } catch (const simulator::ScenarioError& error) {
    errors << "wmihost: scenario: " << error.what() << '\n';
    return kBadInput;
  } catch (const ModuleError& error) {
    errors << "wmihost: " << error.what() << '\n';
    return kRefused;
  }
}

}  // namespace host
