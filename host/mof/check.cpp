#include "host/mof/check.h"

#include <algorithm>

#include "host/mof/registration.h"

namespace host {
namespace {

constexpr std::string_view kModuleHosts[] = {"NetworkServiceHost", "LocalServiceHost",
                                             "LocalSystemHost", "LocalSystemHostOrSelfHost"};

class Checker {
 public:
  std::vector<std::string> Run(const Schema& schema) {
    CheckRegistration(schema);
    CheckNames(schema.classes);
    for (const ClassDeclaration& declaration : schema.classes) {
      CheckClass(declaration);
      CheckAncestors(declaration, schema.classes);
    }
    return std::move(findings_);
  }

 private:
  void Require(bool holds, int line, const std::string& where, const std::string& finding) {
    if (!holds) findings_.push_back(std::to_string(line) + ": " + where + ": " + finding);
  }

  /// Names in one scope must differ in more than letter case.
  template <typename Item>
  void CheckNames(const std::vector<Item>& items) {
    for (auto item = items.begin(); item != items.end(); ++item) {
      const bool isNew = std::none_of(items.begin(), item, [item](const Item& earlier) {
        return SameIgnoringAsciiCase(earlier.name, item->name);
      });
      Require(isNew, item->line, item->name, "the name is declared twice");
    }
  }

  /// The only instance of a class; an empty one, with a finding, if there is none or more than one.
  const InstanceDeclaration& OnlyInstance(const Schema& schema, const std::string& className) {
    static const InstanceDeclaration none;
    const auto found = InstancesOf(schema, className);
    Require(found.size() == 1, found.empty() ? 1 : found.back()->line, className,
            std::to_string(found.size()) + " instances");
    return found.size() == 1 ? *found.front() : none;
  }

  /// The provider's registration must declare exactly what its classes need.
  void CheckRegistration(const Schema& schema) {
    const InstanceDeclaration& provider = OnlyInstance(schema, "__Win32Provider");
    provider_ = TextOf(provider, "Name");
    const std::string host = TextOf(provider, "HostingModel");
    // A group, after a colon, shares a host process of its own.
    const std::size_t account = host.find(':');
    Require(std::ranges::find(kModuleHosts, host.substr(0, account)) != std::end(kModuleHosts) &&
                account != host.size() - 1,
            provider.line, "__Win32Provider",
            "no host for a module that acts as its clients: '" + host + "'");

    const auto isWritten = [](const PropertyDeclaration& item) {
      return item.qualifiers.Flag("write");
    };
    const bool serves = !schema.classes.empty();
    const bool puts = std::ranges::any_of(schema.classes, [&](const ClassDeclaration& item) {
      return std::ranges::any_of(item.properties, isWritten);
    });
    const bool runs = std::ranges::any_of(
        schema.classes, [](const ClassDeclaration& item) { return !item.methods.empty(); });
    const std::string kind = "__InstanceProviderRegistration";
    const InstanceDeclaration& instances = OnlyInstance(schema, kind);
    const std::pair<const char*, bool> flags[] = {{"SupportsGet", serves},
                                                  {"SupportsEnumeration", serves},
                                                  {"SupportsPut", puts},
                                                  {"SupportsDelete", false}};
    for (const auto& [flag, expected] : flags) {
      Require(FlagOf(instances, flag) == expected, instances.line, kind,
              std::string(flag) + " is not " + (expected ? "TRUE" : "FALSE"));
    }
    CheckReference(instances, provider, kind);
    if (runs) {
      const std::string methods = "__MethodProviderRegistration";
      CheckReference(OnlyInstance(schema, methods), provider, methods);
    }
  }

  void CheckReference(const InstanceDeclaration& registration, const InstanceDeclaration& provider,
                      const std::string& where) {
    if (registration.className.empty()) return;  // already reported as missing
    Require(!provider.alias.empty() &&
                SameIgnoringAsciiCase(TextOf(registration, "Provider"), provider.alias),
            registration.line, where, "of another provider");
  }

  void CheckClass(const ClassDeclaration& declaration) {
    const std::string& where = declaration.name;
    CheckQualifiers(declaration.qualifiers, declaration.line, where);
    Require(declaration.qualifiers.Flag("dynamic"), declaration.line, where, "not dynamic");
    const std::string provider = declaration.qualifiers.Text("provider");
    Require(!provider.empty() && provider == provider_, declaration.line, where,
            "its provider is not '" + provider_ + "'");
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

  /// No class may be its own ancestor; ancestors may be classes of the namespace itself.
  void CheckAncestors(const ClassDeclaration& declaration,
                      const std::vector<ClassDeclaration>& classes) {
    std::string name = declaration.superclass;
    bool derivesFromItself = false;
    for (std::size_t steps = 0; steps < classes.size() && !derivesFromItself; ++steps) {
      derivesFromItself = SameIgnoringAsciiCase(name, declaration.name);
      const auto found = std::ranges::find_if(classes, [&name](const ClassDeclaration& each) {
        return SameIgnoringAsciiCase(each.name, name);
      });
      if (found == classes.end()) break;
      name = found->superclass;
    }
    Require(!derivesFromItself, declaration.line, declaration.name, "it derives from itself");
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

  /// Only types of values that the provider puts and reads.
  void CheckType(const PropertyDeclaration& item, const std::string& where) {
    const bool used = item.type == CIM_STRING || item.type == CIM_BOOLEAN ||
                      item.type == CIM_SINT32 || item.type == CIM_REFERENCE ||
                      item.type == (CIM_STRING | CIM_FLAG_ARRAY);
    Require(used, item.line, where, "type " + CimTypeName(item.type));
  }

  void CheckQualifiers(const Qualifiers& qualifiers, int line, const std::string& where) {
    for (auto item = qualifiers.list.begin(); item != qualifiers.list.end(); ++item) {
      Require(qualifiers.Find(item->name) == &*item, line, where,
              "the qualifier " + item->name + " is repeated");
    }
    Require(qualifiers.Text("Description").ends_with('.'), line, where,
            "no description that ends in a full stop");
    const Qualifier* map = qualifiers.Find("ValueMap");
    const Qualifier* values = qualifiers.Find("Values");
    Require(values == nullptr || (map != nullptr && map->values.size() == values->values.size()),
            line, where, "ValueMap and Values differ in length");
  }

  std::vector<std::string> findings_;
  std::string provider_;  ///< the registered name
};

}  // namespace

std::vector<std::string> CheckSchema(const Schema& schema) {
  return Checker().Run(schema);
}

}  // namespace host
