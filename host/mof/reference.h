#pragma once
// Class descriptions for readers, generated from the declarations.

#include <string>

#include "host/mof/schema.h"

namespace host {

/// The Markdown reference of all classes, in the schema's order; UTF-8, lines end with
/// .
std::string ClassReference(const Schema& schema);

/// The type of a property or parameter, "CLASS ref" for a reference.
std::string TypeText(const PropertyDeclaration& item);

/// "1 to 5", empty if no range is declared.
std::string RangeText(const Qualifiers& qualifiers);

/// One class as plain text for the command line, wrapped at 80 columns.
std::string DescribeClass(const ClassDeclaration& declaration);

}  // namespace host
