#include "host/cli/view_commands.h"

#include <algorithm>
#include <iterator>
#include <ostream>

#include "host/cli/command_table.h"
#include "host/cli/commands.h"
#include "host/cli/dump_origin.h"
#include "host/format/format.h"
#include "host/terminal/machine_view.h"

namespace host {
namespace {

struct ViewRow {
  const char* command;
  Json (*rows)(const Machine& machine);  ///< null for a view that has no rows
  std::string (*text)(const Machine& machine, int width, bool color);
};

constexpr ViewRow kViews[] = {{"status", nullptr, StatusText},
                              {"adapters", AdapterRows, AdapterTable},
                              {"networks", NetworkRows, NetworkTable}};

}  // namespace

Json QuietDump(CommandContext& context, const DumpSource& source, ExitStatus* status) {
  std::ostream nowhere(nullptr);
  CommandContext quiet = {context.repository, context.session, context.output, nowhere,
                          context.width};
  quiet.provider = context.provider;
  quiet.scenario = context.scenario;
  return source(quiet, status);
}

ExitStatus ShowMachine(const Command& command, CommandContext& context, const DumpSource& source) {
  const ViewRow& view = *std::ranges::find_if(kViews, [&](const ViewRow& row) {
    return SameIgnoringAsciiCase(row.command, command.row->name);
  });
  // Failures are reported below, once, with their consequences.
  ExitStatus status = kSuccess;
  const Json json = QuietDump(context, source, &status);
  const Dump dump(json);
  const Machine machine(dump);
  context.output << (command.format == OutputFormat::kTable
                         ? view.text(machine, context.width, context.color)
                         : FormatRows(view.rows(machine), command.format, context.width));
  for (const std::string& unknown : Unknowns(machine)) context.Fail(status, unknown);
  if (status == kSuccess) return status;
  for (const ClassInfo* info : context.repository.served()) {
    const std::string failure = FailureOf(dump, info->name());
    if (!failure.empty()) context.Fail(status, info->name() + ": " + failure);
  }
  return status;
}

ExitStatus RunView(const Command& command, CommandContext& context) {
  return ShowMachine(command, context, ProviderDump);
}

}  // namespace host
