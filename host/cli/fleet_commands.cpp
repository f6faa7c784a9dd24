#include "host/cli/fleet_commands.h"

#include <charconv>

#include "host/cli/commands.h"
#include "host/cli/dump_origin.h"
#include "host/cli/dump_output.h"
#include "host/fleet/health.h"
#include "host/fleet/metrics.h"

namespace host {
namespace {

int SignalOf(const Command& command, const char* option, int missing) {
  const std::string text = command.Find(option).value_or(std::to_string(missing));
  int signal = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), signal);
  if (error != std::errc() || stop != text.data() + text.size()) {
    throw CommandLineError(std::string(option) + ": '" + text + "' is no number of dBm");
  }
  return signal;
}

ExitStatus Print(std::ostream& output, const CheckResult& result) {
  output << result.line << '\n';
  return static_cast<ExitStatus>(result.health);
}

}  // namespace

ExitStatus WriteMetrics(const Command& command, CommandContext& context, const DumpSource& source) {
  ExitStatus status = kSuccess;
  RequestTimes times;
  context.requestTimes = &times;
  const Json json = source(context, &status);
  context.requestTimes = nullptr;
  const Dump dump(json);
  const std::string text = MetricsText(Machine(dump), dump, context.repository, times);
  const auto file = command.Find("FILE");
  if (!file) {
    context.output << text;
    return status;
  }
  return Worse(status, WriteFile(context, *file, [&](std::ostream& output) { output << text; }));
}

ExitStatus CheckMachine(const Command& command, CommandContext& context, const DumpSource& source) {
  SignalLimits limits;
  limits.warning = SignalOf(command, "--warning-signal", limits.warning);
  limits.critical = SignalOf(command, "--critical-signal", limits.critical);
  ExitStatus status = kSuccess;
  const Json json = QuietDump(context, source, &status);
  const Dump dump(json);
  return Print(context.output, CheckHealth(Machine(dump, limits.warning), limits));
}

ExitStatus FailCheck(std::ostream& output, const std::string& errors) {
  constexpr std::string_view kStart = "wmihost: ";
  const std::string first = errors.substr(0, errors.find('\n'));
  return Print(output, UnknownHealth(first.substr(first.starts_with(kStart) ? kStart.size() : 0)));
}

ExitStatus RunMetrics(const Command& command, CommandContext& context) {
  return WriteMetrics(command, context, ProviderDump);
}

ExitStatus RunHealth(const Command& command, CommandContext& context) {
  return CheckMachine(command, context, ProviderDump);
}

}  // namespace host
