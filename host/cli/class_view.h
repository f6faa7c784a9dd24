#pragma once
// The columns of a class that a table shows if all would be too wide for a terminal.

#include <string>
#include <string_view>
#include <vector>

#include "host/service/value.h"

namespace host {

struct ClassView {
  const char* className;
  std::vector<std::string> columns;
  const char* sort;  ///< in the form of --sort; empty for the provider's order
};

/// The view of a class, null for a class that is shown completely.
const ClassView* ViewOf(std::string_view className);

/// The view's columns that at least one row has.
std::vector<std::string> ColumnsOfView(const ClassView& view, const Json& rows);

}  // namespace host
