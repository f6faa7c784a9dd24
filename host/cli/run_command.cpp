#include "host/cli/run_command.h"

#include "host/cli/command_table.h"
#include "host/cli/provider_host.h"
#include "host/cli/service_commands.h"
#include "host/query/wql.h"
#include "host/service/provider_module.h"
#include "scenario/platform_objects.h"
#include "scenario/text_file.h"

namespace host {
namespace {

/// While it lives, the command's own --width and --color hold.
class OutputScope {
 public:
  OutputScope(const Command& command, CommandContext& context)
      : context_(context), width_(context.width), color_(context.color) {
    if (context.widthNow != nullptr) context.width = context.widthNow();
    if (const auto width = command.Find("--width")) context.width = std::stoi(*width);
    const std::string when = command.Text("--color");
    if (SameName(when, "always")) context.color = true;
    if (SameName(when, "never")) context.color = false;
    const bool isForPrograms = command.row->formats.empty() ||
                               command.format == OutputFormat::kJson ||
                               command.format == OutputFormat::kCsv;
    if (context.isTerminal && isForPrograms) guard_.emplace(context.output);
  }
  OutputScope(const OutputScope&) = delete;
  OutputScope& operator=(const OutputScope&) = delete;
  ~OutputScope() {
    context_.width = width_;
    context_.color = color_;
  }

 private:
  CommandContext& context_;
  int width_;
  bool color_;
  std::optional<TerminalGuard> guard_;
};

}  // namespace

ExitStatus RunCommand(const Command& command, CommandContext& context) {
  const OutputScope scope(command, context);
  if (context.provider != nullptr) context.provider->BeginCommand();
  try {
    return command.Has("--service") ? RunOnService(command, context)
                                    : command.row->run(command, context);
  } catch (const ValueError& error) {
    return context.Fail(kBadInput, error.what());
  } catch (const UnknownClassError& error) {
    return context.Fail(kNotFound, std::string("query: ") + error.what());
  } catch (const QueryError& error) {
    return context.Fail(kBadInput, std::string("query: ") + error.what());
  } catch (const simulator::ScenarioError& error) {
    return context.Fail(kBadInput, std::string("scenario: ") + error.what());
  } catch (const CommandLineError& error) {
    return context.Fail(kBadInput, error.what());
  } catch (const simulator::FileError& error) {
    return context.Fail(kBadInput, error.what());
  } catch (const ModuleError& error) {
    return context.Fail(kRefused, error.what());
  }
}

}  // namespace host
