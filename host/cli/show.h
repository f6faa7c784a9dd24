#pragma once
// Output of the commands that call the provider.

#include <cstddef>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "host/cli/class_view.h"
#include "host/cli/command.h"
#include "host/cli/command_context.h"
#include "host/format/sort.h"

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
/// The same for a command's --fields; its --sort must name a property too.
std::vector<std::string> FieldsOf(const ClassInfo* info, const Command& command);

/// Refuses a chart of a class that cannot be drawn; unknown classes are left to the provider.
void CheckChart(const Repository& repository, const Command& command, const ClassInfo* info);

/// How the instances of a class are shown: their order, and the columns of a table.
class RowsShown {
 public:
  /// `className` is empty for instances of several classes; `fields` are in the spelling of the
  /// class. The arguments outlive the object. Throws ValueError for an unknown property in --sort.
  RowsShown(const CommandContext& context, const Command& command, std::string_view className,
            std::vector<std::string> fields);

  /// The indexes of `count` objects in their order; `valuesOf` returns the values of a property of
  /// all of them.
  template <class ValuesOf>
  std::vector<std::size_t> Order(std::size_t count, ValuesOf valuesOf) const {
    if (sort_.empty()) {
      std::vector<std::size_t> order(count);
      std::iota(order.begin(), order.end(), std::size_t{0});
      return order;
    }
    return SortedOrder(valuesOf(sort_), descending_);
  }
  void Write(const Json& rows) const;

 private:
  const CommandContext& context_;
  const Command& command_;
  std::vector<std::string> fields_;
  const ClassView* view_ = nullptr;
  std::string sort_;
  bool descending_ = false;
};

/// Writes the outcome's objects and reports a failure of `what`, a request for this class or path.
/// `listed` is the class whose instances are listed, null for any other request.
ExitStatus Show(CommandContext& context, const std::string& what, const std::string& classOrPath,
                const Outcome& outcome, const Command& command,
                const std::vector<std::string>& fields, const ClassInfo* listed = nullptr);

/// Reports that a change ends with this command, if the machine is simulated.
void TellThatItEnds(CommandContext& context);

/// Reports that a method failed: its ReturnValue, in the row of its out-parameters, is FALSE or
/// missing.
ExitStatus CheckReturnValue(CommandContext& context, const std::string& what, const Json& out);

}  // namespace host
