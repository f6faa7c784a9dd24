#pragma once
// Output of the commands that call the provider.

#include <string>
#include <vector>

#include "host/cli/command.h"
#include "host/cli/command_context.h"

namespace host {

/// One object as a row of the output formats: see RowsOf.
Json RowOf(const CimObject& object, const std::vector<std::string>& fields, bool paths);
/// The requested columns, empty for those of the rows.
std::vector<std::string> ColumnsOf(const std::vector<std::string>& fields, bool paths);

/// Objects as rows of the output formats: all properties that were put, or only `fields`; with
/// `paths` each row begins with its object path, __RELPATH.
Json RowsOf(const std::vector<CimObject>& objects, const std::vector<std::string>& fields,
            bool paths);

/// The fields in the spelling of the class; unchanged if the class is unknown.
/// Throws ValueError.
std::vector<std::string> FieldsOf(const ClassInfo* info, const std::vector<std::string>& fields);

/// Refuses a chart of a class that cannot be drawn; unknown classes are left to the provider.
void CheckChart(const Repository& repository, const Command& command, const ClassInfo* info);

/// Writes the outcome's objects and reports a failure of `what`, a request for this class or path.
ExitStatus Show(CommandContext& context, const std::string& what, const std::string& classOrPath,
                const Outcome& outcome, const Command& command,
                const std::vector<std::string>& fields);

/// Reports that a method failed: its ReturnValue, in the row of its out-parameters, is FALSE or
/// missing.
ExitStatus CheckReturnValue(CommandContext& context, const std::string& what, const Json& out);

}  // namespace host
