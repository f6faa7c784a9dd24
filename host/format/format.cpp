#include "host/format/format.h"

#include <algorithm>
#include <sstream>
#include <unordered_set>

#include "host/format/visible_text.h"

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
    if (SameIgnoringAsciiCase(kFormatNames[index], name)) return static_cast<OutputFormat>(index);
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
  return VisibleText(value.get_ref<const std::string&>());
}

std::string JsonText(const Json& value) {
  return value.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

void EachJsonPiece(const Json& value, const std::function<void(std::string_view)>& take) {
  // A piece as it is written at that nesting level.
  const auto give = [&take](const std::string& before, const Json& piece, const char* indent) {
    std::string text = before;
    const std::string plain = piece.dump(2, ' ', false, Json::error_handler_t::replace);
    for (const char character : plain) {
      text += character;
      if (character == '\n') text += indent;
    }
    take(text);
  };
  if (!value.is_object() || value.empty()) return take(JsonText(value));
  const char* separator = "{\n";
  for (const auto& [name, member] : value.items()) {
    const std::string start = separator + ("  " + Json(name).dump() + ": ");
    separator = ",\n";
    if (!member.is_array() || member.empty()) {
      give(start, member, "  ");
      continue;
    }
    std::string before = start + "[\n    ";
    for (const Json& element : member) {
      give(before, element, "    ");
      before = ",\n    ";
    }
    take("\n  ]");
  }
  take("\n}\n");
}

void CsvRows::Add(const Json& row) {
  constexpr std::size_t kBlock = 1 << 20;
  const auto& members = row.get_ref<const Json::object_t&>();
  // Nearly every row has exactly the known columns.
  const bool isPlain = std::ranges::equal(
      members, names_, {}, [](const auto& member) -> const std::string& { return member.first; });
  if (!isPlain && !fixed_) {
    for (const auto& [name, value] : members) {
      if (std::ranges::find(names_, name) == names_.end()) names_.push_back(name);
    }
  }
  if (blocks_.empty() || blocks_.back().columns != names_.size() ||
      blocks_.back().text.size() > kBlock) {
    blocks_.push_back({names_.size()});
  }
  Block& block = blocks_.back();
  for (std::size_t column = 0; column < names_.size(); ++column) {
    if (column > 0) block.text += ',';
    const auto found = isPlain ? members.begin() + static_cast<std::ptrdiff_t>(column)
                               : members.find(names_[column]);
    if (found != members.end()) block.text += CsvValue(found->second);
  }
  block.ends.push_back(block.text.size());
}

void CsvRows::Write(std::ostream& output) const {
  if (blocks_.empty()) return;
  for (const std::string& name : names_) {
    output << (&name == &names_.front() ? "" : ",") << CsvField(name);
  }
  if (!names_.empty()) output << '\n';
  for (const Block& block : blocks_) {
    const std::size_t first = block.columns == 0 ? 1 : block.columns;
    const std::string missing(names_.size() > first ? names_.size() - first : 0, ',');
    std::size_t start = 0;
    for (const std::size_t end : block.ends) {
      const std::string_view line = std::string_view(block.text).substr(start, end - start);
      // A reader would ignore an empty line instead of reading a row.
      output << (line.empty() && names_.size() == 1 ? "\"\"" : line) << missing << '\n';
      start = end;
    }
  }
}

std::string CsvText(const Json& rows, std::vector<std::string> names) {
  CsvRows csv(std::move(names));
  for (const Json& row : rows) csv.Add(row);
  std::ostringstream text;
  csv.Write(text);
  return text.str();
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
