#include "host/service/repository.h"

#include <utility>

#include "host/service/nearest.h"

namespace host {
namespace {

constexpr std::string_view kPlatformClasses = R"(
#pragma namespace("\\\\.\\root\\cimv2")
class Win32_NetworkAdapter {
  [key] string DeviceID;
  string PNPDeviceID;
  string MACAddress;
  string Caption;
  string Description;
};
class Win32_ComputerSystem {
  [key] string Name;
  string UserName;
};
)";

constexpr const char* kParametersClass = "__PARAMETERS";

PropertyDeclaration ReturnValue(CIMTYPE type) {
  PropertyDeclaration property;
  property.name = "ReturnValue";
  property.type = type;
  return property;
}

std::unique_ptr<ClassInfo> SignatureOf(const MethodDeclaration& method, bool out) {
  auto signature = std::make_unique<ClassInfo>();
  signature->declaration.name = kParametersClass;
  for (const PropertyDeclaration& parameter : method.parameters) {
    if (parameter.qualifiers.Flag(out ? "out" : "in")) {
      signature->declaration.properties.push_back(parameter);
    }
  }
  if (out && method.returnType != CIM_EMPTY) {
    signature->declaration.properties.push_back(ReturnValue(method.returnType));
  }
  if (signature->declaration.properties.empty()) return nullptr;
  return signature;
}

/// A schema's namespace written with single backslashes and a server.
std::string NamespacePath(const std::string& name) {
  return name.starts_with("\\\\") ? name : "\\\\.\\" + name;
}

}  // namespace

std::optional<std::size_t> ClassInfo::FindProperty(std::string_view propertyName) const {
  const PropertyDeclaration* found = declaration.FindProperty(propertyName);
  if (found == nullptr) return std::nullopt;
  return static_cast<std::size_t>(found - declaration.properties.data());
}

const MethodInfo* ClassInfo::FindMethod(std::string_view methodName) const {
  for (const MethodInfo& method : methods) {
    if (SameIgnoringAsciiCase(method.declaration.name, methodName)) return &method;
  }
  return nullptr;
}

std::string ClassInfo::PropertyNames() const {
  std::string names;
  for (const PropertyDeclaration& property : declaration.properties) {
    names += (names.empty() ? "" : ", ") + property.name;
  }
  return names;
}

std::string ClassInfo::NoProperty(std::string_view propertyName) const {
  std::vector<std::string> names;
  for (const PropertyDeclaration& property : declaration.properties) {
    names.push_back(property.name);
  }
  return name() + " has no property '" + std::string(propertyName) + "'" +
         DidYouMean(propertyName, names) + "; it has " + PropertyNames();
}

std::string ClassInfo::KeyNames() const {
  std::string names;
  for (const PropertyDeclaration& property : declaration.properties) {
    if (property.qualifiers.Flag("key")) names += (names.empty() ? "" : ", ") + property.name;
  }
  return names.find(',') == std::string::npos ? "its key is " + names : "its keys are " + names;
}

Repository::Repository(std::string_view mof, const std::string& name) {
  Add(ParseMof(kPlatformClasses, "platform classes"), false);
  Add(ParseMof(mof, name), true);
}

void Repository::Add(const Schema& schema, bool served) {
  for (const ClassDeclaration& declared : schema.classes) {
    auto info = std::make_unique<ClassInfo>();
    info->declaration = declared;
    info->namespacePath = NamespacePath(schema.namespaceName);
    if (const ClassInfo* parent = FindClass(declared.superclass)) {
      info->ancestors = parent->ancestors;
      info->ancestors.push_back(parent->name());
      std::vector<PropertyDeclaration> properties = parent->declaration.properties;
      for (const PropertyDeclaration& own : declared.properties) {
        if (const std::optional<std::size_t> inherited = parent->FindProperty(own.name)) {
          properties[*inherited] = own;
        } else {
          properties.push_back(own);
        }
      }
      info->declaration.properties = std::move(properties);
    }
    for (const MethodDeclaration& method : declared.methods) {
      info->methods.push_back({method, SignatureOf(method, false), SignatureOf(method, true)});
    }
    if (served) served_.push_back(info.get());
    classes_.push_back(std::move(info));
  }
}

const ClassInfo* Repository::FindClass(std::string_view className) const {
  for (const std::unique_ptr<ClassInfo>& info : classes_) {
    if (SameIgnoringAsciiCase(info->name(), className)) return info.get();
  }
  return nullptr;
}

std::string Repository::DidYouMeanClass(std::string_view className) const {
  std::vector<std::string> names;
  for (const ClassInfo* info : served_) names.push_back(info->name());
  return DidYouMean(className, names);
}

std::string ClassNameOfPath(std::string_view path) {
  // A key's text may contain any character, so the keys are removed first.
  std::string_view name = path.substr(0, path.find_first_of("\"'"));
  const std::size_t colon = name.find(':');
  if (colon != std::string_view::npos) name.remove_prefix(colon + 1);
  return std::string(name.substr(0, name.find_first_of(".=")));
}

}  // namespace host
