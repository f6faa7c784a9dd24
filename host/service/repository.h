#pragma once
// The classes that the service knows: the classes of the provider's schema and the two platform
// classes that the provider reads.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/mof/schema.h"

namespace host {

struct ClassInfo;

/// A method with its two signatures, each a class with its parameters, or null without parameters.
struct MethodInfo {
  MethodDeclaration declaration;
  std::unique_ptr<ClassInfo> in;
  std::unique_ptr<ClassInfo> out;
};

/// A class in the form that objects need: its properties include those of its superclasses.
struct ClassInfo {
  ClassDeclaration declaration;
  std::string namespacePath;  ///< \\.\root\cimv2; empty for method parameters
  std::vector<std::string> ancestors;
  std::vector<MethodInfo> methods;

  const std::string& name() const { return declaration.name; }
  /// The index of a property in `declaration.properties`.
  std::optional<std::size_t> FindProperty(std::string_view propertyName) const;
  const MethodInfo* FindMethod(std::string_view methodName) const;
  /// The names of all properties, for messages: "A, B, C".
  std::string PropertyNames() const;
  /// A message that there is no such property, with the names of all.
  std::string NoProperty(std::string_view propertyName) const;
  /// "its keys are A, B": the keys that an object path must have.
  std::string KeyNames() const;
};

class Repository {
 public:
  /// Reads a schema; `name` is used in messages. Throws MofError.
  Repository(std::string_view mof, const std::string& name);

  /// A class of the schema or of the platform, null if unknown.
  const ClassInfo* FindClass(std::string_view className) const;
  /// " (did you mean CLASS?)" for an unknown class, empty if no name is near.
  std::string DidYouMeanClass(std::string_view className) const;
  /// The classes that the provider serves, in the order of the schema.
  const std::vector<const ClassInfo*>& served() const { return served_; }

 private:
  void Add(const Schema& schema, bool served);

  std::vector<std::unique_ptr<ClassInfo>> classes_;
  std::vector<const ClassInfo*> served_;
};

/// The class that an object path names: the part between the namespace and the keys.
std::string ClassNameOfPath(std::string_view path);

}  // namespace host
