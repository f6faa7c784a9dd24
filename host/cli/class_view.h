#pragma once
// What a table shows of a class whose properties are more than a terminal is wide.

#include <string>
#include <string_view>
#include <vector>

#include "host/service/value.h"

namespace host {

struct ClassView {
  const char* className;
  std::vector<std::string> columns;
  const char* sort;  ///< as --sort takes it; empty for the provider's order
};

/// The view of a class, null for one of which all is shown.
const ClassView* ViewOf(std::string_view className);

/// The view's columns that any of the rows has.
std::vector<std::string> ColumnsOfView(const ClassView& view, const Json& rows);

}  // namespace host
