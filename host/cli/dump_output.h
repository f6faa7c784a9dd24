#pragma once
// Where a dump and a report are written: standard output, or a file.

#include <functional>
#include <optional>
#include <ostream>
#include <string>

#include "host/cli/command.h"
#include "host/cli/command_context.h"

namespace host {

/// The format of a dump: json for a file, unless another one is asked for.
OutputFormat DumpFormat(const Command& command);
/// Writes a dump as the command says.
ExitStatus WriteDump(const Command& command, CommandContext& context, Json all);

/// Where a report goes. Made before the provider is asked, as the command line may be refused.
class ReportTarget {
 public:
  /// Throws CommandLineError for a format, which a report has not, and for a terminal where the
  /// file that would be written instead is there already.
  explicit ReportTarget(const Command& command);

  ExitStatus Write(CommandContext& context, const Json& dump) const;

 private:
  std::optional<std::string> file_;
  bool isOwnChoice_ = false;
};

/// Writes a file whole or not at all: what was there stays until the new file is complete. What is
/// no file, such as a pipe, is written as it goes.
ExitStatus WriteFile(CommandContext& context, const std::string& path,
                     const std::function<void(std::ostream&)>& write);

}  // namespace host
