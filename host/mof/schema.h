#pragma once
// Class and instance declarations as a MOF file states them. Texts are UTF-8; names keep their
// spelling and compare without regard to case.

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
  std::vector<MofScalar> values;  ///< one for a scalar; `key` alone is one true
  bool isArray = false;
};

struct Qualifiers {
  std::vector<Qualifier> list;

  const Qualifier* Find(std::string_view name) const;
  /// The flag's value, false when it is not there.
  bool Flag(std::string_view name) const;
  /// The text of a scalar qualifier, empty when it is not there.
  std::string Text(std::string_view name) const;
};

/// A property, or a method's parameter.
struct PropertyDeclaration {
  std::string name;
  CIMTYPE type = CIM_STRING;    ///< with CIM_FLAG_ARRAY for an array
  std::string referencedClass;  ///< of a CIM_REFERENCE, else empty
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
  std::string superclass;  ///< empty for none
  Qualifiers qualifiers;
  std::vector<PropertyDeclaration> properties;
  std::vector<MethodDeclaration> methods;
  int line = 0;

  const PropertyDeclaration* FindProperty(std::string_view propertyName) const;
};

/// `instance of CLASS [as $alias] { name = value; … };`
struct InstanceDeclaration {
  std::string className;
  std::string alias;  ///< with its $, empty for none
  /// An alias of an earlier instance stands as the text "$name"; NULL gives no value at all.
  std::vector<std::pair<std::string, std::vector<MofScalar>>> values;
  int line = 0;
};

struct Schema {
  std::string namespaceName;  ///< of the last #pragma namespace, such as \\.\root\cimv2
  std::vector<ClassDeclaration> classes;
  std::vector<InstanceDeclaration> instances;
  std::vector<std::string> deletedClasses;    ///< names, of #pragma deleteclass
  std::vector<std::string> deletedInstances;  ///< object paths, of #pragma deleteinstance
};

/// Says where a MOF text is wrong: "NAME:LINE: expected WHAT, found WHAT".
class MofError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads a MOF text; `name` stands in messages. Throws MofError.
Schema ParseMof(std::string_view text, const std::string& name);

/// How CIM names compare.
using platform::SameIgnoringAsciiCase;

/// The MOF spelling of a type: "string", "boolean", "sint32", "string[]" and so on.
std::string CimTypeName(CIMTYPE type);

}  // namespace host
