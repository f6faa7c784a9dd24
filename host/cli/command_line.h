#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "host/format/format.h"

namespace host {

enum class CommandName {
  kEnum,
  kGet,
  kQuery,
  kClasses,
  kDescribe,
  kDump,
  kPut,
  kCall,
  kDelete,
  kShell,
  kScenario,
  kReference,
  kRegister,
  kUnregister,
};

/// One command with what applies to it alone.
struct Command {
  CommandName name = CommandName::kClasses;
  std::string target;  ///< class, path, query or file
  std::string method;
  std::vector<std::string> assignments;  ///< Name=value
  bool toProvider = false;               ///< hand the query to the provider as it is
  OutputFormat format = OutputFormat::kTable;
  std::vector<std::string> fields;  ///< empty for all
};

/// What holds for the whole process.
struct HostOptions {
  std::optional<std::string> scenario;
  std::optional<std::string> module;
  bool registered = false;               ///< reach the module through its registration
  std::optional<std::string> libraries;  ///< folder of the closed libraries
  std::optional<std::string> registry;   ///< file that keeps the native registry
  std::optional<std::pair<unsigned, unsigned>> osVersion;
  bool trace = false;
};

struct CommandLine {
  HostOptions host;
  Command command;
  std::optional<std::string> information;  ///< help or version; then nothing else is asked
};

/// Says in one line what is wrong with a command line.
class CommandLineError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads a command line without the program's name. Throws CommandLineError.
CommandLine ParseCommandLine(std::vector<std::string> arguments);

/// The words of the commands that the shell takes.
std::vector<std::string> CommandWords();

/// Reads one line of the shell: commands and their own options only. `defaults` gives what the line
/// leaves open. Throws CommandLineError.
CommandLine ParseShellCommand(std::vector<std::string> arguments, const Command& defaults);

/// Cuts a line of the shell into words at blanks. A word that begins with a quote ends at the same
/// quote, both are dropped, and \ keeps the next character within double quotes; quotes inside a
/// word keep their blanks and stay, as object paths need them. Throws CommandLineError.
std::vector<std::string> SplitShellLine(const std::string& line);

}  // namespace host
