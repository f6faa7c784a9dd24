#include "host/cli/run_command.h"

#include <algorithm>

#include "host/cli/command_table.h"
#include "host/cli/provider_host.h"
#include "host/cli/service_commands.h"
#include "host/query/wql.h"
#include "host/service/meant_path.h"
#include "host/service/provider_module.h"
#include "scenario/platform_objects.h"
#include "scenario/text_file.h"

namespace host {
namespace {

/// During its lifetime the command's own --width and --color apply.
class OutputScope {
 public:
  OutputScope(const Command& command, CommandContext& context)
      : context_(context), width_(context.width), color_(context.color) {
    if (context.widthNow != nullptr) context.width = context.widthNow();
    if (const auto width = command.Find("--width")) context.width = std::stoi(*width);
    const std::string when = command.Text("--color");
    if (SameIgnoringAsciiCase(when, "always")) context.color = true;
    if (SameIgnoringAsciiCase(when, "never")) context.color = false;
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

/// A command-line word in single quotes, of which Unix shells remove only those quotes.
std::string InSingleQuotes(const std::string& word) {
  std::string text = "'";
  for (const char character : word) text += character == '\'' ? "'\\''" : std::string(1, character);
  return text + "'";
}

/// A word for a Windows command line, with single quotes in the path, which no shell removes.
std::string InDoubleQuotes(const std::string& word) {
  std::string text = '"' + word + '"';
  std::replace(text.begin() + 1, text.end() - 1, '"', '\'');
  return text;
}

/// A command with another path, as it is typed if `quote` writes its words.
std::string LineOf(const Command& command, const std::string& path,
                   std::string (*quote)(const std::string&)) {
  std::string line = std::string(command.row->name) + " " + quote(path);
  for (const char* argument : {"METHOD", "NAME=VALUE"}) {
    for (const std::string& word : command.All(argument)) {
      const bool isPlain = word.find_first_of(" \"'\\&|;<>()$`*?!#~") == std::string::npos;
      line += " " + (isPlain ? word : quote(word));
    }
  }
  return line;
}

/// A path without its quotes names nothing: says what to type.
void ExplainPath(const Command& command, CommandContext& context) {
  const auto meant = MeantPath(command.Text("PATH"), context.repository);
  if (!meant) return;
  const std::string quotes = "texts in a path need quotes";
  if (context.inShell) {
    context.Fail(kNotFound, quotes + ": " + LineOf(command, *meant, [](const std::string& word) {
                              return word;
                            }));
    return;
  }
  context.Fail(kNotFound, quotes + ", which shells remove: type wmihost " +
                              LineOf(command, *meant, InSingleQuotes) +
                              ", in cmd and PowerShell wmihost " +
                              LineOf(command, *meant, InDoubleQuotes));
}

/// A query that a shell has split into words may have lost quotes, or have file names in place of
/// *.
std::string QueryProblem(const Command& command, const QueryError& error) {
  std::string problem = std::string("query: ") + error.what();
  if (command.All("WQL").size() < 2) return problem;
  return problem +
         "; your shell may have changed it: put it in quotes, such as query \"SELECT * "
         "FROM WiFi_NetworkAdapter WHERE Band = '802.11g'\"";
}

}  // namespace

ExitStatus RunCommand(const Command& command, CommandContext& context) {
  const OutputScope scope(command, context);
  if (context.provider != nullptr) context.provider->BeginCommand();
  try {
    const ExitStatus status = command.Has("--service") ? RunOnService(command, context)
                                                       : command.row->run(command, context);
    if (status == kNotFound || status == kRefused) ExplainPath(command, context);
    return status;
  } catch (const ValueError& error) {
    return context.Fail(kBadInput, error.what());
  } catch (const UnknownClassError& error) {
    return context.Fail(kNotFound, QueryProblem(command, error));
  } catch (const QueryError& error) {
    return context.Fail(kBadInput, QueryProblem(command, error));
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
