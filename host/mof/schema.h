#pragma once
// Class and instance declarations of a MOF file. Texts are UTF-8; names keep their spelling and are
// compared without regard to case.

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/ascii.h"
#include "platform/platform.h"

namespace host {

/// One value of a qualifier, a default or an instance's property.
using MofScalar = std::variant<bool, std::int64_t, std::string>;

struct Qualifier {
  std::string name;
  std::vector<MofScalar> values;  ///< one for a scalar; `key` without a value is true
  bool isArray = false;
};

struct Qualifiers {
  std::vector<Qualifier> list;

  const Qualifier* Find(std::string_view name) const;
  /// The flag's value, false if there is no such qualifier.
  bool Flag(std::string_view name) const;
  /// The text of a scalar qualifier, empty if there is no such qualifier.
  std::string Text(std::string_view name) const;
};

/// A property, or a method's parameter.
struct PropertyDeclaration {
  std::string name;
  CIMTYPE type = CIM_STRING;    ///< with CIM_FLAG_ARRAY for an array
  std::string referencedClass;  ///< for a CIM_REFERENCE, else empty
  Qualifiers qualifiers;
  std::optional<std::vector<MofScalar>> defaultValue;
  int line = 0;
};

struct MethodDeclaration {
  std::string name;
  CIMTYPE returnType = CIM_BOOLEAN;  ///< CIM_EMPTY for void
  Qualifiers qualifiers;
  std::vector<PropertyDeclaration> parameters;  ///< with the qualifiers `in`, `out` and `ID`
  int line = 0;
};

struct ClassDeclaration {
  std::string name;
  std::string superclass;  ///< empty without a superclass
  Qualifiers qualifiers;
  std::vector<PropertyDeclaration> properties;
  std::vector<MethodDeclaration> methods;
  int line = 0;

  const PropertyDeclaration* FindProperty(std::string_view propertyName) const;
};

/// `instance of CLASS [as $alias] { name = value; … };`
struct InstanceDeclaration {
  std::string className;
  std::string alias;  ///< with its $, empty without an alias
  /// A reference to an earlier instance's alias is the text "$name"; NULL is an empty list.
  std::vector<std::pair<std::string, std::vector<MofScalar>>> values;
  int line = 0;
};

struct Schema {
  std::string namespaceName;  ///< from the last #pragma namespace, such as \\.\root\cimv2
  std::vector<ClassDeclaration> classes;
  std::vector<InstanceDeclaration> instances;
  std::vector<std::string> deletedClasses;    ///< names from #pragma deleteclass
  std::vector<std::string> deletedInstances;  ///< object paths from #pragma deleteinstance
};

/// Says what is wrong in a MOF text: "NAME:LINE: expected WHAT, found WHAT".
class MofError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads a MOF text; `name` is used in messages. Throws MofError.
Schema ParseMof(std::string_view text, const std::string& name);

/// CIM names are compared with this.
using platform::SameIgnoringAsciiCase;

/// The MOF spelling of a type: "string", "boolean", "sint32", "string[]" and so on.
std::string CimTypeName(CIMTYPE type);

}  // namespace host
