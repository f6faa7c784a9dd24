#include "host/cli/schema_view.h"

#include "host/mof/reference.h"
#include "host/service/nearest.h"

namespace host {
namespace {

/// The first sentence of a description.
std::string FirstSentence(const std::string& description) {
  const std::size_t end = description.find(". ");
  return end == std::string::npos ? description : description.substr(0, end + 1);
}

std::string Scalar(const MofScalar& value) {
  if (const bool* flag = std::get_if<bool>(&value)) return *flag ? "true" : "false";
  if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
  return std::get<std::string>(value);
}

/// "1 = Off, 2 = On" from ValueMap and Values, or the list of the only possible texts.
std::string ValuesOf(const Qualifiers& qualifiers) {
  const Qualifier* codes = qualifiers.Find("ValueMap");
  const Qualifier* names = qualifiers.Find("Values");
  std::string text;
  const std::size_t count = codes != nullptr   ? codes->values.size()
                            : names != nullptr ? names->values.size()
                                               : 0;
  for (std::size_t index = 0; index < count; ++index) {
    text += text.empty() ? "" : ", ";
    if (codes != nullptr) text += Scalar(codes->values[index]);
    if (codes != nullptr && names != nullptr && index < names->values.size()) text += " = ";
    if (names != nullptr && index < names->values.size()) text += Scalar(names->values[index]);
  }
  return text;
}

Json Member(const char* kind, const std::string& name, const std::string& type,
            const std::string& access, const Qualifiers& qualifiers) {
  Json row;
  row["Kind"] = kind;
  row["Name"] = name;
  row["Type"] = type;
  row["Access"] = access;
  row["Units"] = qualifiers.Text("Units");
  row["Range"] = RangeText(qualifiers);
  row["Values"] = ValuesOf(qualifiers);
  row["Description"] = qualifiers.Text("Description");
  return row;
}

std::string AccessOf(const Qualifiers& qualifiers, std::initializer_list<const char*> flags) {
  std::string access;
  for (const char* flag : flags) {
    if (qualifiers.Flag(flag)) access += (access.empty() ? "" : ", ") + std::string(flag);
  }
  return access;
}

}  // namespace

Json ClassList(const Repository& repository) {
  Json rows = Json::array();
  for (const ClassInfo* info : repository.served()) {
    Json row;
    row["Name"] = info->name();
    row["Description"] = FirstSentence(info->declaration.qualifiers.Text("Description"));
    rows.push_back(std::move(row));
  }
  return rows;
}

Json MembersOf(const ClassInfo& info) {
  Json rows = Json::array();
  for (const PropertyDeclaration& property : info.declaration.properties) {
    rows.push_back(Member("property", property.name, TypeText(property),
                          AccessOf(property.qualifiers, {"key", "read", "write"}),
                          property.qualifiers));
  }
  for (const MethodInfo& method : info.methods) {
    const MethodDeclaration& declaration = method.declaration;
    rows.push_back(Member("method", declaration.name, CimTypeName(declaration.returnType), "",
                          declaration.qualifiers));
    for (const PropertyDeclaration& parameter : declaration.parameters) {
      rows.push_back(Member("parameter", declaration.name + "." + parameter.name,
                            TypeText(parameter), AccessOf(parameter.qualifiers, {"in", "out"}),
                            parameter.qualifiers));
    }
  }
  return rows;
}

std::string NoMethod(const ClassInfo& info, const std::string& method) {
  std::vector<std::string> names;
  std::string all;
  for (const MethodInfo& each : info.methods) {
    names.push_back(each.declaration.name);
    all += (all.empty() ? "" : ", ") + each.declaration.name;
  }
  return info.name() + " has no method '" + method + "'" + DidYouMean(method, names) +
         (names.empty() ? "; it has no methods" : "; its methods are " + all);
}

}  // namespace host
