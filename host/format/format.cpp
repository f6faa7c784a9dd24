#include "host/format/format.h"

#include <algorithm>
#include <unordered_set>

namespace host {
namespace {

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"') quoted += '"';
    quoted += character;
  }
  return quoted + '"';
}

std::string CsvValue(const Json& value) {
  if (value.is_null()) return "";
  if (value.is_string()) return CsvField(value.get<std::string>());
  return CsvField(value.dump());
}

}  // namespace

std::optional<OutputFormat> FormatOf(std::string_view name) {
  for (std::size_t index = 0; index < std::size(kFormatNames); ++index) {
    if (SameName(kFormatNames[index], name)) return static_cast<OutputFormat>(index);
  }
  return std::nullopt;
}

std::vector<std::string> NamesOf(const Json& rows) {
  std::vector<std::string> names;
  std::unordered_set<std::string> seen;
  for (const Json& row : rows) {
    for (const auto& [name, value] : row.items()) {
      if (seen.insert(name).second) names.push_back(name);
    }
  }
  return names;
}

std::string CellText(const Json& value) {
  if (value.is_null()) return "";
  if (value.is_array()) {
    std::string text;
    for (const Json& element : value) text += (text.empty() ? "" : ", ") + CellText(element);
    return text;
  }
  if (!value.is_string()) return value.dump();
  std::string text;
  for (const char character : value.get_ref<const std::string&>()) {
    const auto code = static_cast<unsigned char>(character);
    if (code >= 0x20 && code != 0x7F) {
      text += character;
    } else {
      constexpr std::string_view kHex = "0123456789abcdef";
      text += std::string("\\x") + kHex[code >> 4] + kHex[code & 0xF];
    }
  }
  return text;
}

std::string JsonText(const Json& value) {
  return value.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string CsvText(const Json& rows, std::vector<std::string> names) {
  if (rows.empty()) return "";
  if (names.empty()) names = NamesOf(rows);
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ",") + CsvField(name);
  if (!names.empty()) text += '\n';
  for (const Json& row : rows) {
    std::string line;
    for (const std::string& name : names) {
      if (&name != &names.front()) line += ',';
      if (const auto found = row.find(name); found != row.end()) line += CsvValue(*found);
    }
    // A line without anything would be no row to a reader.
    text += (line.empty() && names.size() == 1 ? "\"\"" : line) + '\n';
  }
  return text;
}

std::string ListText(const Json& rows) {
  int width = 0;
  for (const std::string& name : NamesOf(rows)) width = std::max(width, DisplayWidth(name));
  std::string text;
  for (const Json& row : rows) {
    if (!text.empty()) text += '\n';
    for (const auto& [name, value] : row.items()) {
      const std::string cell = CellText(value);
      text += name + std::string(static_cast<std::size_t>(width - DisplayWidth(name)), ' ') + " :" +
              (cell.empty() ? "" : " " + cell) + '\n';
    }
  }
  return text;
}

std::string FormatRows(const Json& rows, OutputFormat format, int width,
                       const std::vector<std::string>& names, bool color) {
  switch (format) {
    case OutputFormat::kJson:
      return JsonText(rows);
    case OutputFormat::kCsv:
      return CsvText(rows, names);
    case OutputFormat::kList:
      return ListText(rows);
    default:
      return TableText(rows, width, names, color);
  }
}

}  // namespace host
