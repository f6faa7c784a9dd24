#pragma once
// The cmdlets of the PowerShell module, one row per class and method. A class or method without a
// row does not build.

#include <span>
#include <string>

#include "host/mof/schema.h"

namespace host {

/// A column of a view.
struct CmdletColumn {
  const char* label;
  const char* property;  ///< of the class, or a member that host/fleet/numbers.h adds
};

struct ClassCmdlets {
  const char* className;
  const char* noun;  ///< null: the class has no cmdlets
  const char* why;   ///< it has none, or what a reader of the help must know; may be null
  bool needsKeys;    ///< whether what changes something must be told the instance
  std::span<const CmdletColumn> columns;  ///< of its table; empty for the default view
};

struct MethodCmdlet {
  const char* className;
  const char* method;
  const char* verb;    ///< an approved one; null: the method has no cmdlet
  const char* noun;    ///< null without a cmdlet
  const char* impact;  ///< Medium, or High to be confirmed; null if nothing changes
};

extern const std::span<const ClassCmdlets> kClassCmdlets;
extern const std::span<const MethodCmdlet> kMethodCmdlets;

const ClassCmdlets& CmdletsOf(const ClassDeclaration& declaration);
const MethodCmdlet& CmdletOf(const ClassDeclaration& declaration, const MethodDeclaration& method);
/// Whether Set-NOUN exists: a property can be written.
bool IsWritten(const ClassDeclaration& declaration);

}  // namespace host
