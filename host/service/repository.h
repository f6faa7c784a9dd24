#pragma once
// The classes that the service knows: those of the provider's schema and the two platform classes
// that the provider reads.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/mof/schema.h"

namespace host {

struct ClassInfo;

/// A method with its two signatures, each a class of its parameters; none when it has none.
struct MethodInfo {
  MethodDeclaration declaration;
  std::unique_ptr<ClassInfo> in;
  std::unique_ptr<ClassInfo> out;
};

/// A class as objects need it: its properties include those of its superclasses.
struct ClassInfo {
  ClassDeclaration declaration;
  std::string namespacePath;  ///< \\.\root\cimv2; empty for parameters of methods
  std::vector<std::string> ancestors;
  std::vector<MethodInfo> methods;

  const std::string& name() const { return declaration.name; }
  /// The place of a property in `declaration.properties`.
  std::optional<std::size_t> FindProperty(std::string_view propertyName) const;
  const MethodInfo* FindMethod(std::string_view methodName) const;
  /// The names of all properties, for messages: "A, B, C".
  std::string PropertyNames() const;
  /// Says that there is no such property, and which there are.
  std::string NoProperty(std::string_view propertyName) const;
  /// "its keys are A, B": those that an object path gives.
  std::string KeyNames() const;
};

class Repository {
 public:
  /// Reads a schema; `name` stands in messages. Throws MofError.
  Repository(std::string_view mof, const std::string& name);

  /// A class of the schema or of the platform, none if unknown.
  const ClassInfo* FindClass(std::string_view className) const;
  /// " (did you mean CLASS?)" for a class that is unknown, nothing if none is near.
  std::string DidYouMeanClass(std::string_view className) const;
  /// The classes that the provider serves, in the order of the schema.
  const std::vector<const ClassInfo*>& served() const { return served_; }

 private:
  void Add(const Schema& schema, bool served);

  std::vector<std::unique_ptr<ClassInfo>> classes_;
  std::vector<const ClassInfo*> served_;
};

/// The class that an object path names: what stands between the namespace and the keys.
std::string ClassNameOfPath(std::string_view path);

}  // namespace host
