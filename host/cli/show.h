#pragma once
// What the commands that ask the provider show of its answers.

#include <string>
#include <vector>

#include "host/cli/command.h"
#include "host/cli/command_context.h"

namespace host {

/// One object as a row of the output formats: see RowsOf.
Json RowOf(const CimObject& object, const std::vector<std::string>& fields, bool paths);
/// The columns that were asked for, empty for those that the rows have.
std::vector<std::string> ColumnsOf(const std::vector<std::string>& fields, bool paths);

/// Objects as rows of the output formats: all that was put, or only `fields`; with `paths` each
/// begins with its object path, __RELPATH.
Json RowsOf(const std::vector<CimObject>& objects, const std::vector<std::string>& fields,
            bool paths);

/// The fields in the spelling of the class; the unknown ones of an unknown class as they are.
/// Throws ValueError.
std::vector<std::string> FieldsOf(const ClassInfo* info, const std::vector<std::string>& fields);

/// Refuses a chart of a class that has nothing to draw; a class that is not known is left to the
/// provider.
void CheckChart(const Repository& repository, const Command& command, const ClassInfo* info);

/// Writes the outcome's objects and reports a failure of `what`, which asked for this class or
/// path.
ExitStatus Show(CommandContext& context, const std::string& what, const std::string& classOrPath,
                const Outcome& outcome, const Command& command,
                const std::vector<std::string>& fields);

/// Says that a method failed: its ReturnValue, in the row of its out-parameters, is FALSE or
/// missing.
ExitStatus CheckReturnValue(CommandContext& context, const std::string& what, const Json& out);

}  // namespace host
