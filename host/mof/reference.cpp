#include "host/mof/reference.h"

#include <sstream>

#include "platform/ascii.h"

namespace host {
namespace {

constexpr std::size_t kColumns = 80;

std::string Shown(const MofScalar& value) {
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "TRUE" : "FALSE";
  if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
  return std::get<std::string>(value);
}

/// The anchor that Markdown readers generate for a heading.
std::string Anchor(std::string name) {
  for (char& c : name) c = platform::AsciiLower(c);
  return name;
}

std::string ScalarText(const Qualifiers& qualifiers, std::string_view name) {
  const Qualifier* qualifier = qualifiers.Find(name);
  return qualifier == nullptr || qualifier->values.empty() ? "" : Shown(qualifier->values[0]);
}

std::string AccessOf(const PropertyDeclaration& item) {
  const Qualifiers& qualifiers = item.qualifiers;
  if (qualifiers.Flag("in")) return "in";
  if (qualifiers.Flag("out")) return "out";
  std::string access = qualifiers.Flag("write") ? "read, write" : "read";
  return qualifiers.Flag("key") ? "key, " + access : access;
}

void AppendPart(std::string& text, const std::string& part) {
  if (!text.empty() && !part.empty()) text += "; ";
  text += part;
}

/// Unit, range and values, as far as they are declared.
std::string DomainOf(const Qualifiers& qualifiers) {
  std::string domain = ScalarText(qualifiers, "Units");
  AppendPart(domain, RangeText(qualifiers));
  const Qualifier* map = qualifiers.Find("ValueMap");
  if (map == nullptr) return domain;
  const Qualifier* values = qualifiers.Find("Values");
  std::string list;
  for (std::size_t i = 0; i < map->values.size(); ++i) {
    list.append(i == 0 ? "\"" : ", \"").append(Shown(map->values[i])).append("\"");
    if (values != nullptr && i < values->values.size()) {
      list.append(" ").append(Shown(values->values[i]));
    }
  }
  AppendPart(domain, list);
  return domain;
}

std::string Signature(const MethodDeclaration& method) {
  std::string text = CimTypeName(method.returnType) + " " + method.name + "(";
  for (const PropertyDeclaration& parameter : method.parameters) {
    if (&parameter != &method.parameters.front()) text += ", ";
    text += AccessOf(parameter) + " " + TypeText(parameter) + " " + parameter.name;
  }
  return text + ")";
}

/// Escapes the special characters of Markdown and HTML; a line break would end a table's row.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (std::string_view("|\\`*_<>[]&").find(c) != std::string_view::npos) escaped += '\\';
    escaped += c == '\n' || c == '\r' ? ' ' : c;
  }
  return escaped;
}

void WriteTable(std::ostream& out, const std::vector<PropertyDeclaration>& items,
                const std::string& heading) {
  out << "\n| " << heading << " | Type | Access | Unit or values | Description |\n"
      << "|---|---|---|---|---|\n";
  for (const PropertyDeclaration& item : items) {
    out << "| `" << item.name << "` | " << TypeText(item) << " | " << AccessOf(item) << " | "
        << Escaped(DomainOf(item.qualifiers)) << " | "
        << Escaped(item.qualifiers.Text("Description")) << " |\n";
  }
}

void WriteSection(std::ostream& out, const ClassDeclaration& declaration) {
  out << "\n## " << declaration.name << "\n\n"
      << Escaped(declaration.qualifiers.Text("Description")) << '\n';
  WriteTable(out, declaration.properties, "Property");
  for (const MethodDeclaration& method : declaration.methods) {
    out << "\n### " << declaration.name << "." << method.name << "\n\n`" << Signature(method)
        << "`\n\n"
        << Escaped(method.qualifiers.Text("Description")) << '\n';
    if (!method.parameters.empty()) WriteTable(out, method.parameters, "Parameter");
  }
}

/// Wraps the words of `text` at kColumns; a longer word gets a line of its own.
void WriteWrapped(std::ostream& out, const std::string& text, std::size_t indent) {
  std::istringstream words(text);
  std::size_t column = 0;
  for (std::string word; words >> word; column += word.size()) {
    if (column != 0 && column + 1 + word.size() <= kColumns) {
      out << ' ';
      ++column;
    } else {
      if (column != 0) out << '\n';
      out << std::string(indent, ' ');
      column = indent;
    }
    out << word;
  }
  if (column != 0) out << '\n';
}

void WriteItem(std::ostream& out, const PropertyDeclaration& item, std::size_t indent) {
  out << std::string(indent, ' ') << item.name << ": " << TypeText(item) << ", " << AccessOf(item)
      << '\n';
  WriteWrapped(out, item.qualifiers.Text("Description"), indent + 4);
  if (const std::string domain = DomainOf(item.qualifiers); !domain.empty()) {
    WriteWrapped(out, "[" + domain + "]", indent + 4);
  }
}

}  // namespace

std::string TypeText(const PropertyDeclaration& item) {
  return item.referencedClass.empty() ? CimTypeName(item.type) : item.referencedClass + " ref";
}

std::string RangeText(const Qualifiers& qualifiers) {
  const std::string minimum = ScalarText(qualifiers, "MinValue");
  const std::string maximum = ScalarText(qualifiers, "MaxValue");
  return minimum.empty() || maximum.empty() ? "" : minimum + " to " + maximum;
}

std::string ClassReference(const Schema& schema) {
  std::ostringstream out;
  out << "# Management classes\n\n"
      << "Made from `schema/wifi_adapter_provider.mof`. Namespace `" << schema.namespaceName
      << "`.\n\n";
  for (const ClassDeclaration& declaration : schema.classes) {
    out << "- [" << declaration.name << "](#" << Anchor(declaration.name) << ")\n";
  }
  for (const ClassDeclaration& declaration : schema.classes) WriteSection(out, declaration);
  return out.str();
}

std::string DescribeClass(const ClassDeclaration& declaration) {
  std::ostringstream out;
  out << declaration.name << '\n';
  WriteWrapped(out, declaration.qualifiers.Text("Description"), 4);
  out << "\nProperties\n";
  for (const PropertyDeclaration& property : declaration.properties) WriteItem(out, property, 2);
  if (!declaration.methods.empty()) out << "\nMethods\n";
  for (const MethodDeclaration& method : declaration.methods) {
    WriteWrapped(out, Signature(method), 2);
    WriteWrapped(out, method.qualifiers.Text("Description"), 6);
    for (const PropertyDeclaration& parameter : method.parameters) WriteItem(out, parameter, 6);
  }
  return out.str();
}

}  // namespace host
