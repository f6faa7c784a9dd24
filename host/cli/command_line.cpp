#include "host/cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <memory>

#ifndef WMIHOST_VERSION
#error "WMIHOST_VERSION is the program's version, given by the build"
#endif

namespace host {
namespace {

struct CommandRow {
  CommandName name;
  const char* word;
  const char* help;
  const char* target;  ///< name of its first argument, null for none
  const char* targetHelp;
};

constexpr CommandRow kCommands[] = {
    {CommandName::kEnum, "enum", "Show all instances of a class", "CLASS", "class name"},
    {CommandName::kGet, "get", "Show one instance", "PATH", "object path, CLASS.KEY=\"value\""},
    {CommandName::kQuery, "query", "Show the instances that a WQL query selects", "WQL",
     "SELECT ... FROM CLASS [WHERE ...]"},
    {CommandName::kClasses, "classes", "List the classes", nullptr, ""},
    {CommandName::kDescribe, "describe", "Describe a class: properties and methods", "CLASS",
     "class name"},
    {CommandName::kDump, "dump", "Show all instances of all classes", nullptr, ""},
    {CommandName::kPut, "put", "Change properties of an instance", "PATH", "object path"},
    {CommandName::kCall, "call", "Call a method of an instance", "PATH", "object path"},
    {CommandName::kDelete, "delete", "Delete an instance", "PATH", "object path"},
    {CommandName::kShell, "shell", "Run commands from a file or from standard input", "FILE",
     "file with one command a line"},
    {CommandName::kScenario, "scenario", "Make a scenario of what a Linux machine sees", nullptr,
     ""},
    {CommandName::kReference, "reference", "Print the class reference as Markdown", nullptr, ""},
    {CommandName::kRegister, "register", "Register the module as a COM server", nullptr, ""},
    {CommandName::kUnregister, "unregister", "Take the module's registration back", nullptr, ""},
};

/// What CLI11 writes to; read after the parse.
struct Fields {
  CommandLine result;
  std::string scenario;
  std::string module;
  std::string libraries;
  std::string registry;
  std::string osVersion;
  std::string fields;
};

/// Commands of the program's own command line only: standard input or the registration is theirs.
bool OutsideShell(CommandName name) {
  return name == CommandName::kShell || name == CommandName::kScenario ||
         name == CommandName::kReference || name == CommandName::kRegister ||
         name == CommandName::kUnregister;
}

constexpr const char* kProgram = "wmihost";

std::map<std::string, OutputFormat> FormatMap() {
  std::map<std::string, OutputFormat> map;
  for (std::size_t index = 0; index < std::size(kFormatNames); ++index) {
    map[kFormatNames[index]] = static_cast<OutputFormat>(index);
  }
  return map;
}

void AddHostOptions(CLI::App& app, Fields& fields) {
  app.set_version_flag("--version", std::string(kProgram) + " " + WMIHOST_VERSION);
  app.add_option("--scenario", fields.scenario, "Scenario file that the simulator plays")
      ->type_name("FILE");
  app.add_option("--module", fields.module, "The provider's module (default: beside this program)")
      ->type_name("FILE");
  app.add_flag("--registered", fields.result.host.registered,
               "Reach the module through its registration instead of by file");
  app.add_option("--libraries", fields.libraries,
                 "Folder of QuarnApi and TolvaApi (default: where the system finds them)")
      ->type_name("DIR");
  app.add_option("--registry", fields.registry,
                 "File that keeps the registry, where the system has none")
      ->type_name("FILE");
  app.add_option("--os-version", fields.osVersion,
                 "System version that the provider is told, such as 6.1")
      ->type_name("MAJOR.MINOR");
  app.add_flag("--trace", fields.result.host.trace,
               "Show the provider's trace lines on standard error");
}

void AddCommand(CLI::App& app, const CommandRow& row, Command& command) {
  CLI::App* sub = app.add_subcommand(row.word, row.help);
  sub->fallthrough();
  sub->callback([&command, name = row.name] { command.name = name; });
  if (row.target != nullptr) {
    CLI::Option* target = sub->add_option(row.target, command.target, row.targetHelp);
    target->type_name("");
    target->required(row.name != CommandName::kShell);
  }
  if (row.name == CommandName::kCall) {
    sub->add_option("METHOD", command.method, "method name")->required()->type_name("");
  }
  if (row.name == CommandName::kPut || row.name == CommandName::kCall) {
    sub->add_option("NAME=VALUE", command.assignments, "new values, or in-parameters")
        ->type_name("");
  }
  if (row.name == CommandName::kQuery) {
    sub->add_flag("--provider", command.toProvider, "Hand the query to the provider unchanged");
  }
  if (row.name == CommandName::kScenario) {
    sub->add_option("--from-iw", command.target,
                    "what 'iw dev <interface> scan' prints; standard input if missing or -")
        ->required()
        ->expected(0, 1)
        ->type_name("[FILE]");
  }
}

std::vector<std::string> SplitList(const std::string& text) {
  std::vector<std::string> items;
  std::size_t start = 0;
  while (start <= text.size()) {
    const std::size_t comma = std::min(text.find(',', start), text.size());
    if (comma == start) throw CommandLineError("--fields: names separated by commas are expected");
    items.push_back(text.substr(start, comma - start));
    start = comma + 1;
  }
  return items;
}

std::pair<unsigned, unsigned> ReadVersion(const std::string& text) {
  const std::size_t dot = text.find('.');
  const auto isNumber = [](const std::string& part) {
    return !part.empty() && part.size() <= 5 &&
           part.find_first_not_of("0123456789") == std::string::npos;
  };
  if (dot == std::string::npos || !isNumber(text.substr(0, dot)) ||
      !isNumber(text.substr(dot + 1))) {
    throw CommandLineError("--os-version: '" + text + "' is not of the form MAJOR.MINOR");
  }
  return {static_cast<unsigned>(std::stoul(text.substr(0, dot))),
          static_cast<unsigned>(std::stoul(text.substr(dot + 1)))};
}

/// The first line of a message; CLI11 puts some on several.
std::string OneLine(const std::string& text) {
  return text.substr(0, text.find('\n'));
}

CommandLine Parse(std::vector<std::string> arguments, const Command& defaults, bool inShell) {
  Fields fields;
  fields.result.command = defaults;
  CLI::App app("Plays the management service for the WiFi adapter provider.",
               inShell ? "" : kProgram);
  app.allow_windows_style_options(false);
  app.require_subcommand(0, 1);
  if (!inShell) AddHostOptions(app, fields);
  app.add_option("--format", fields.result.command.format, "table, list, json or csv")
      ->transform(CLI::Transformer(FormatMap(), CLI::ignore_case).description(""))
      ->type_name("FORMAT");
  app.add_option("--fields", fields.fields, "Show only these properties, in this order")
      ->type_name("A,B,...");
  for (const CommandRow& row : kCommands) {
    if (!inShell || !OutsideShell(row.name)) AddCommand(app, row, fields.result.command);
  }
  try {
    std::ranges::reverse(arguments);  // CLI11 takes them from the back
    app.parse(arguments);
  } catch (const CLI::Success& request) {
    std::ostringstream text;
    app.exit(request, text, text);
    fields.result.information = text.str();
    return std::move(fields.result);
  } catch (const CLI::ConversionError& error) {
    throw CommandLineError(OneLine(error.what()) + "; --format takes table, list, json or csv");
  } catch (const CLI::ParseError& error) {
    throw CommandLineError(OneLine(error.what()) + "; see --help");
  }
  if (app.get_subcommands().empty()) throw CommandLineError("a command is expected; see --help");
  HostOptions& options = fields.result.host;
  if (!fields.scenario.empty()) options.scenario = fields.scenario;
  if (!fields.module.empty()) options.module = fields.module;
  if (!fields.libraries.empty()) options.libraries = fields.libraries;
  if (!fields.registry.empty()) options.registry = fields.registry;
  if (options.registered && options.module) {
    throw CommandLineError("--registered and --module exclude each other");
  }
  if (!fields.osVersion.empty()) options.osVersion = ReadVersion(fields.osVersion);
  if (!fields.fields.empty()) fields.result.command.fields = SplitList(fields.fields);
  const Command& command = fields.result.command;
  if (command.name == CommandName::kDump) {
    if (!command.fields.empty()) throw CommandLineError("dump takes no --fields");
    if (command.format == OutputFormat::kCsv) throw CommandLineError("dump has no csv format");
  }
  return std::move(fields.result);
}

}  // namespace

CommandLine ParseCommandLine(std::vector<std::string> arguments) {
  return Parse(std::move(arguments), Command(), false);
}

std::vector<std::string> CommandWords() {
  std::vector<std::string> words = {"help", "exit", "quit"};
  for (const CommandRow& row : kCommands) {
    if (!OutsideShell(row.name)) words.emplace_back(row.word);
  }
  return words;
}

CommandLine ParseShellCommand(std::vector<std::string> arguments, const Command& defaults) {
  Command open;
  open.format = defaults.format;
  open.fields = defaults.fields;
  return Parse(std::move(arguments), open, true);
}

std::vector<std::string> SplitShellLine(const std::string& line) {
  std::vector<std::string> words;
  for (std::size_t next = 0; (next = line.find_first_not_of(" \t\r", next)) != std::string::npos;) {
    std::string word;
    const std::size_t start = next;
    while (next < line.size() && line.find_first_of(" \t\r", next) != next) {
      const char quote = line[next];
      if (quote != '"' && quote != '\'') {
        word += line[next++];
        continue;
      }
      const bool dropped = next == start;
      if (!dropped) word += quote;
      for (++next; next < line.size() && line[next] != quote; ++next) {
        if (line[next] == '\\' && quote == '"' && next + 1 < line.size()) {
          if (!dropped) word += line[next];
          ++next;
        }
        word += line[next];
      }
      if (next == line.size()) throw CommandLineError("a quote has no end");
      ++next;
      if (!dropped) word += quote;
    }
    words.push_back(word);
  }
  return words;
}

}  // namespace host
