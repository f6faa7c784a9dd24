#include "host/mof/check.h"

#include <algorithm>

namespace host {
namespace {

class Checker {
 public:
  std::vector<std::string> Run(const Schema& schema) {
    CheckNames(schema.classes);
    for (const ClassDeclaration& declaration : schema.classes) CheckClass(declaration);
    return std::move(findings_);
  }

 private:
  void Require(bool holds, int line, const std::string& where, const std::string& finding) {
    if (!holds) findings_.push_back(std::to_string(line) + ": " + where + ": " + finding);
  }

  /// Items of one scope must differ in more than case.
  template <typename Item>
  void CheckNames(const std::vector<Item>& items) {
    for (auto item = items.begin(); item != items.end(); ++item) {
      const bool isNew = std::none_of(items.begin(), item, [item](const Item& earlier) {
        return SameName(earlier.name, item->name);
      });
      Require(isNew, item->line, item->name, "the name stands twice");
    }
  }

  void CheckClass(const ClassDeclaration& declaration) {
    const std::string& where = declaration.name;
    CheckQualifiers(declaration.qualifiers, declaration.line, where);
    Require(declaration.qualifiers.Flag("dynamic"), declaration.line, where, "not dynamic");
    Require(!declaration.qualifiers.Text("provider").empty(), declaration.line, where,
            "no provider");
    const bool hasKey = std::ranges::any_of(
        declaration.properties,
        [](const PropertyDeclaration& property) { return property.qualifiers.Flag("key"); });
    Require(hasKey, declaration.line, where, "no key");
    CheckNames(declaration.properties);
    CheckNames(declaration.methods);
    for (const PropertyDeclaration& property : declaration.properties) {
      const std::string name = where + "." + property.name;
      CheckQualifiers(property.qualifiers, property.line, name);
      CheckType(property, name);
      Require(property.qualifiers.Flag("read"), property.line, name, "not readable");
    }
    for (const MethodDeclaration& method : declaration.methods) {
      CheckMethod(method, where + "." + method.name);
    }
  }

  void CheckMethod(const MethodDeclaration& method, const std::string& where) {
    CheckQualifiers(method.qualifiers, method.line, where);
    Require(method.qualifiers.Flag("Implemented"), method.line, where, "no qualifier Implemented");
    Require(method.returnType == CIM_BOOLEAN || method.returnType == CIM_SINT32, method.line, where,
            "returns " + CimTypeName(method.returnType));
    CheckNames(method.parameters);
    std::int64_t expectedId = 0;
    for (const PropertyDeclaration& parameter : method.parameters) {
      const std::string name = where + "." + parameter.name;
      CheckQualifiers(parameter.qualifiers, parameter.line, name);
      CheckType(parameter, name);
      Require(parameter.qualifiers.Flag("in") != parameter.qualifiers.Flag("out"), parameter.line,
              name, "neither in nor out, or both");
      const Qualifier* id = parameter.qualifiers.Find("ID");
      Require(id != nullptr && id->values == std::vector<MofScalar>{expectedId}, parameter.line,
              name, "its ID is not " + std::to_string(expectedId));
      ++expectedId;
    }
  }

  /// The types of the values that the provider puts and reads.
  void CheckType(const PropertyDeclaration& item, const std::string& where) {
    const bool used = item.type == CIM_STRING || item.type == CIM_BOOLEAN ||
                      item.type == CIM_SINT32 || item.type == CIM_REFERENCE ||
                      item.type == (CIM_STRING | CIM_FLAG_ARRAY);
    Require(used, item.line, where, "type " + CimTypeName(item.type));
  }

  void CheckQualifiers(const Qualifiers& qualifiers, int line, const std::string& where) {
    for (auto item = qualifiers.list.begin(); item != qualifiers.list.end(); ++item) {
      Require(qualifiers.Find(item->name) == &*item, line, where,
              "the qualifier " + item->name + " stands twice");
    }
    Require(qualifiers.Text("Description").ends_with('.'), line, where,
            "no description that ends in a full stop");
    const Qualifier* map = qualifiers.Find("ValueMap");
    const Qualifier* values = qualifiers.Find("Values");
    Require(values == nullptr || (map != nullptr && map->values.size() == values->values.size()),
            line, where, "ValueMap and Values differ in length");
  }

  std::vector<std::string> findings_;
};

}  // namespace

std::vector<std::string> CheckSchema(const Schema& schema) {
  return Checker().Run(schema);
}

}  // namespace host
