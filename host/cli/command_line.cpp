#include "host/cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "host/cli/command_table.h"
#include "host/cli/help.h"
#include "host/service/nearest.h"
#include "scenario/time_text.h"

namespace host {
namespace {

constexpr const char* kProgram = "wmihost";

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

/// "a, b or c".
std::string Alternatives(const std::vector<const char*>& names) {
  std::string text;
  for (const char* const& name : names) {
    if (&name != &names.front()) text += &name == &names.back() ? " or " : ", ";
    text += name;
  }
  return text;
}

/// What is wrong with a value, empty if it fits.
std::string CheckValue(Takes takes, const std::vector<const char*>& choices,
                       const std::string& text) {
  const auto isNumber = [](const std::string& part) {
    return !part.empty() && part.size() <= 5 &&
           part.find_first_not_of("0123456789") == std::string::npos;
  };
  if (takes == Takes::kVersion) {
    const std::size_t dot = std::min(text.find('.'), text.size());
    if (dot == text.size() || !isNumber(text.substr(0, dot)) || !isNumber(text.substr(dot + 1))) {
      return "'" + text + "' is not of the form MAJOR.MINOR";
    }
  }
  if (takes == Takes::kWidth && (!isNumber(text) || std::stoi(text) == 0)) {
    return "'" + text + "' is no number of columns";
  }
  if (takes == Takes::kSeconds && !isNumber(text)) {
    return "'" + text + "' is no number of seconds";
  }
  if (takes == Takes::kMegabytes && !isNumber(text)) {
    return "'" + text + "' is no number of megabytes";
  }
  if (takes == Takes::kDuration && !simulator::ParseDuration(text)) {
    return "'" + text + "' is no length of time, such as 90 (seconds), 10m or 1h30m";
  }
  if (takes == Takes::kSpeed && !isNumber(text)) {
    return "'" + text + "' is no whole number from 0 to 99999";
  }
  if ((takes == Takes::kFile || takes == Takes::kFolder) && text.empty()) {
    return "the name is empty";
  }
  if (takes == Takes::kChoice && std::ranges::none_of(choices, [&text](const char* choice) {
        return SameIgnoringAsciiCase(choice, text);
      })) {
    return "'" + text + "' is not " + Alternatives(choices);
  }
  return "";
}

template <class Row>
CLI::Validator ValueCheck(const Row& row) {
  return CLI::Validator([takes = row.takes, choices = row.choices](
                            const std::string& text) { return CheckValue(takes, choices, text); },
                        "");
}

/// Refuses a format or fields that the command cannot show.
void CheckOutput(const Command& command) {
  const CommandRow& row = *command.row;
  if (!row.formats.empty() && std::ranges::find(row.formats, command.format) == row.formats.end()) {
    std::vector<const char*> names;
    for (const OutputFormat format : row.formats) {
      names.push_back(kFormatNames[static_cast<std::size_t>(format)]);
    }
    throw CommandLineError(std::string("--format: ") + row.name + " takes " + Alternatives(names));
  }
  for (const char* option : {"--fields", "--sort"}) {
    if (row.takesFields || !command.Has(option)) continue;
    throw CommandLineError(std::string(option) + ": " + row.name + " takes none");
  }
}

CLI::Option* AddOption(CLI::App& app, const OptionRow& row) {
  if (row.takes == Takes::kNothing) {
    CLI::Option* flag = app.add_flag(row.name, row.help);
    if (row.value == nullptr) return flag;
    return flag->check(CLI::Validator(
        [choices = row.choices](const std::string& text) {
          return text == "true" ? "" : CheckValue(Takes::kChoice, choices, text);
        },
        ""));
  }
  const bool mayMiss = *row.value == '[';
  CLI::Option* option = app.add_option(row.name)->description(row.help)->type_name(row.value);
  option->expected(mayMiss ? 0 : 1, 1)->take_last();
  if (!mayMiss) option->check(ValueCheck(row));
  return option;
}

void AddArgument(CLI::App& app, const ArgumentRow& row, Command* command) {
  // The library does not accept '=' in a name.
  const std::string name(
      std::string_view(row.name).substr(0, std::string_view(row.name).find('=')));
  const auto keep = [command, &row](const std::vector<std::string>& values) {
    command->Set(row.name, values);
  };
  CLI::Option* option =
      TakesSeveral(row) ? app.add_option_function<std::vector<std::string>>(name, keep, row.help)
                        : app.add_option(name)->description(row.help);
  option->type_name("")->required(IsRequired(row))->check(ValueCheck(row));
}

/// The first line of a message; some messages of the parser library have several.
std::string OneLine(const std::string& text) {
  return text.substr(0, text.find('\n'));
}

/// Takes over all values that were typed for `app`'s own options.
void Take(const CLI::App& app, Command* command) {
  for (const CLI::Option* option : app.get_options()) {
    if (option->count() > 0) command->Set(option->get_name(), option->results());
  }
}

/// The error for an argument that fits nowhere, with the name that may have been meant.
CommandLineError Unexpected(const CLI::App& app, bool inShell) {
  const std::string word = app.remaining(true).front();
  const auto subs = app.get_subcommands();
  if (subs.empty() && !word.starts_with("-")) return NoCommand(word, inShell);
  std::vector<std::string> names;
  std::vector<const CLI::App*> apps = {&app};
  apps.insert(apps.end(), subs.begin(), subs.end());
  for (const CLI::App* each : apps) {
    for (const CLI::Option* option : each->get_options()) {
      if (option->get_name().starts_with("--")) names.push_back(option->get_name());
    }
  }
  const std::string name = word.substr(0, word.find('='));
  if (name.starts_with("-")) {
    return CommandLineError("there is no option '" + name + "' here" + DidYouMean(name, names));
  }
  return CommandLineError("'" + word + "' is one argument too many; see help " +
                          subs.front()->get_name());
}

CommandLine Parse(std::vector<std::string> arguments, const Command& defaults, bool inShell) {
  CommandLine result;
  result.command = defaults;
  CLI::App app("", kProgram);
  app.allow_windows_style_options(false);
  app.require_subcommand(0, 1);
  if (!inShell) {
    app.set_version_flag("--version", std::string(kProgram) + " " + kProgramVersion);
    for (const OptionRow& row : HostOptions()) AddOption(app, row);
  }
  for (const OptionRow& row : OutputOptions()) AddOption(app, row);
  for (const CommandRow& row : Commands()) {
    if (!IsAvailable(row, inShell)) continue;
    CLI::App* sub = app.add_subcommand(row.name)->ignore_case();
    sub->fallthrough();
    for (const ArgumentRow& argument : row.arguments) AddArgument(*sub, argument, &result.command);
    for (const OptionRow& option : row.options) AddOption(*sub, option);
  }
  try {
    std::ranges::reverse(arguments);  // the library reads them from the back
    app.parse(arguments);
  } catch (const CLI::CallForHelp&) {
    const auto subs = app.get_subcommands();
    result.information =
        subs.empty() ? Help(inShell) : CommandHelp(*FindCommand(subs.front()->get_name()), inShell);
    return result;
  } catch (const CLI::CallForVersion& version) {
    result.information = std::string(version.what()) + '\n';
    return result;
  } catch (const CLI::ExtrasError&) {
    throw Unexpected(app, inShell);
  } catch (const CLI::ParseError& error) {
    throw CommandLineError(OneLine(error.what()) + "; see " + (inShell ? "help" : "--help"));
  }
  if (app.get_subcommands().empty()) {
    throw CommandLineError(std::string("a command is expected; see ") +
                           (inShell ? "help" : "--help"));
  }
  const CLI::App& sub = *app.get_subcommands().front();
  Command& command = result.command;
  command.row = FindCommand(sub.get_name());
  Take(app, &command);
  Take(sub, &command);
  if (command.Has("--registered") && command.Has("--module")) {
    throw CommandLineError("--registered and --module exclude each other");
  }
  if (const auto format = command.Find("--format")) command.format = *FormatOf(*format);
  if (const auto fields = command.Find("--fields")) {
    command.allFields = SameIgnoringAsciiCase(*fields, "all");
    command.fields = command.allFields ? std::vector<std::string>() : SplitList(*fields);
  }
  CheckOutput(command);
  return result;
}

}  // namespace

CommandLine ParseCommandLine(std::vector<std::string> arguments) {
  return Parse(std::move(arguments), Command(), false);
}

CommandLine ParseShellCommand(std::vector<std::string> arguments, const Command& defaults) {
  Command open;
  open.format = defaults.format;
  open.fields = defaults.fields;
  open.allFields = defaults.allFields;
  return Parse(std::move(arguments), open, true);
}

}  // namespace host
