// The manual page and the completion script for other shells, generated from the table of commands.

#include "host/cli/command_table.h"
#include "host/cli/commands.h"
#include "host/cli/help.h"

namespace host {
namespace {

/// Text escaped for the manual's macros: no line is a request, and dashes stay dashes.
std::string Roff(const std::string& text) {
  std::string escaped;
  for (const char character : text) {
    if (character == '\\') {
      escaped += "\\e";
    } else if (character == '-') {
      escaped += "\\-";
    } else {
      escaped += character;
    }
  }
  return escaped.starts_with('.') || escaped.starts_with('\'') ? "\\&" + escaped : escaped;
}

std::string Item(const std::string& name, const std::string& help) {
  return ".TP\n.B " + Roff(name) + "\n" + Roff(help) + "\n";
}

std::string Items(const std::vector<OptionRow>& rows) {
  std::string text;
  for (const OptionRow& row : rows) text += Item(OptionText(row), row.help);
  return text;
}

std::string Spaced(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

std::string OptionNames(const std::vector<OptionRow>& rows) {
  std::vector<std::string> names;
  for (const OptionRow& row : rows) names.emplace_back(row.name);
  return Spaced(names);
}

/// "enum|describe" for the commands whose first argument has this kind.
std::string Taking(Takes takes) {
  std::string names;
  for (const CommandRow& row : Commands()) {
    if (!IsAvailable(row, false) || row.arguments.empty() || row.arguments.front().takes != takes) {
      continue;
    }
    names += (names.empty() ? "" : "|") + std::string(row.name);
  }
  return names;
}

/// The branches of a case on the word before the cursor: the values of the options.
std::string ValueBranches(const std::vector<OptionRow>& rows) {
  std::string text;
  for (const OptionRow& row : rows) {
    std::string words;
    for (const char* choice : row.choices)
      words += (words.empty() ? "" : " ") + std::string(choice);
    const std::string offer = !words.empty()                ? "compgen -W '" + words + "'"
                              : row.takes == Takes::kFile   ? "compgen -f"
                              : row.takes == Takes::kFolder ? "compgen -d"
                                                            : "";
    if (row.value == nullptr || row.takes == Takes::kNothing) continue;
    text += "    " + std::string(row.name) + ") " +
            (offer.empty() ? "" : "COMPREPLY=($(" + offer + " -- \"$word\")); ") + "return ;;\n";
  }
  return text;
}

}  // namespace

ExitStatus RunManual(const Command&, CommandContext& context) {
  std::ostream& output = context.output;
  output << ".TH WMIHOST 1 \"\" \"wmihost " << kProgramVersion << "\" \"User Commands\"\n"
         << ".SH NAME\nwmihost \\- play the management service for the WiFi adapter provider\n"
         << ".SH SYNOPSIS\n.B wmihost\n[options] COMMAND ...\n"
         << ".SH DESCRIPTION\nLoads the provider's module, plays the management service for it, "
            "and shows what comes back. The adapters are simulated.\n"
         << ".SH COMMANDS\n";
  for (const CommandRow& row : Commands()) {
    const std::string usage = Usage(row, true);
    output << Item(
        usage, std::string(row.help) + (row.place == Place::kShell ? " (in a shell only)." : "."));
    for (const ArgumentRow& argument : row.arguments) {
      output << ".RS\n" << Item(argument.name, argument.help) << ".RE\n";
    }
    if (!row.options.empty()) output << ".RS\n" << Items(row.options) << ".RE\n";
    output << ".RS\n.nf\n";
    for (const char* example : row.examples) output << Roff(example) << '\n';
    output << ".fi\n.RE\n";
  }
  output << ".SH OPTIONS\n"
         << Items(HostOptions()) << Items(OutputOptions())
         << Item("--help", "Show the commands, or one: wmihost COMMAND --help")
         << Item("--version", "Show the program's version") << ".SH EXIT STATUS\n";
  for (const ExitStatusRow& row : kExitStatuses) {
    output << Item(std::to_string(row.status), row.meaning);
  }
  output << ".SH ENVIRONMENT\n"
         << Item("WIFI_SCENARIO", "the scenario file, unless --scenario names one")
         << Item("COLUMNS", "columns that a table may fill")
         << Item("NO_COLOR", "if not empty, tables stay plain")
         << Item("XDG_STATE_HOME",
                 "folder of wmihost/history, the shell's history; else "
                 "~/.local/state");
  return kSuccess;
}

ExitStatus RunCompletion(const Command&, CommandContext& context) {
  std::vector<std::string> classes;
  for (const ClassInfo* info : context.repository.served()) classes.push_back(info->name());
  std::string commands = Spaced(CommandNames(false));
  std::string alternatives = commands;
  for (char& character : alternatives) {
    if (character == ' ') character = '|';
  }
  std::ostream& output = context.output;
  output << "# Completion of wmihost for bash.\n_wmihost() {\n"
            "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]}\n"
            "  local command= options= at\n  COMPREPLY=()\n"
            "  for ((at = 1; at < COMP_CWORD; ++at)); do\n"
            "    case ${COMP_WORDS[at]} in "
         << alternatives << ") command=${COMP_WORDS[at]}; break ;; esac\n  done\n"
         << "  case $before in\n"
         << ValueBranches(HostOptions()) << ValueBranches(OutputOptions());
  for (const CommandRow& row : Commands()) {
    if (IsAvailable(row, false)) output << ValueBranches(row.options);
  }
  output << "  esac\n  options='" << OptionNames(HostOptions()) << ' '
         << OptionNames(OutputOptions()) << " --help --version'\n  case $command in\n";
  for (const CommandRow& row : Commands()) {
    if (!IsAvailable(row, false) || row.options.empty()) continue;
    output << "    " << row.name << ") options=\"$options " << OptionNames(row.options)
           << "\" ;;\n";
  }
  output << "  esac\n  if [[ $word == -* ]]; then\n"
            "    COMPREPLY=($(compgen -W \"$options\" -- \"$word\"))\n    return\n  fi\n"
            "  case $command in\n    '') COMPREPLY=($(compgen -W '"
         << commands << "' -- \"$word\")) ;;\n    " << Taking(Takes::kClass) << '|'
         << Taking(Takes::kPath) << ") COMPREPLY=($(compgen -W '" << Spaced(classes)
         << "' -- \"$word\")) ;;\n    " << Taking(Takes::kCommand) << ") COMPREPLY=($(compgen -W '"
         << commands
         << "' -- \"$word\")) ;;\n    *) "
            "COMPREPLY=($(compgen -f -- \"$word\")) ;;\n  esac\n}\ncomplete -F _wmihost wmihost\n";
  return kSuccess;
}

}  // namespace host
