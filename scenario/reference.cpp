#include "scenario/reference.h"

#include <vector>

#include "platform/embedded_text.h"
#include "scenario/fields.h"
#include "scenario/json.h"

EMBEDDED_TEXT(scenario_defaults)

namespace simulator {
namespace {

using nlohmann::json;

std::string WidthText(const Field& field) {
  const std::string bits = std::to_string(8 * field.size) + " bits";
  const std::string bytes = std::to_string(field.size) + " bytes";
  switch (field.kind) {
    case Kind::kNumber:
      return "number, " + bits;
    case Kind::kSigned:
      return "signed number, " + bits;
    case Kind::kFlag:
      return "flag";
    case Kind::kBits:
      return "bits, " + bits;
    case Kind::kText:
      return "text, " + std::to_string(field.size - 1) + " bytes";
    case Kind::kPaddedText:
      return "text, " + bytes;
    case Kind::kMac:
      return "address";
    case Kind::kNumbers:
    case Kind::kLevels:
      return "up to " + std::to_string(field.size / 4) + " numbers";
    case Kind::kTexts:
      return "up to " + std::to_string(field.size / kTextsStep) + " texts of " +
             std::to_string(kTextsStep - 1) + " bytes";
    case Kind::kRecord:
      break;
  }
  return "object";
}

std::string DefaultText(const Field& field, const json& defaults) {
  if (field.kind == Kind::kRecord) return "see below";
  const auto found = defaults.find(field.name);
  if (found != defaults.end()) return found->is_null() ? "none" : "`" + found->dump() + "`";
  switch (field.kind) {
    case Kind::kText:
    case Kind::kPaddedText:
      return "`\"\"`";
    case Kind::kFlag:
      return "`false`";
    case Kind::kMac:
      return "zeros";
    case Kind::kNumbers:
    case Kind::kLevels:
    case Kind::kTexts:
      return "`[]`";
    default:
      return "`0`";
  }
}

void Describe(const Table& table, const json& defaults, std::string& text) {
  text += "#### " + std::string(table.title) +
          "\n\n| Member | Value | Default | |\n|---|---|---|---|\n";
  for (const Field& field : table.fields) {
    std::string note = field.note;
    for (const Name& name : field.names) {
      note += (note.empty() ? "" : name.text == field.names.front().text ? "; " : ", ");
      note += "`" + std::string(name.text) + "`";
    }
    text += "| `" + std::string(field.name) + "` | " + WidthText(field) + " | " +
            DefaultText(field, defaults) + " | " + note + " |\n";
  }
  text += "\n";
  for (const Field& field : table.fields) {
    if (field.record != nullptr)
      Describe(*field.record, defaults.value(field.name, json::object()), text);
  }
}

}  // namespace

std::string DescribeTables() {
  const json defaults = json::parse(embedded::scenario_defaults());
  json adapter = defaults.at("adapters").at(0);
  adapter["mac"] = nullptr;
  adapter["number"] = nullptr;
  std::string text;
  Describe(kAdapterTable, adapter, text);
  Describe(kNetworkTable, json::object(), text);
  Describe(kExcludeEntryTable, json::object(), text);
  Describe(kProfileTable,
           {{"name", nullptr}, {"opMode", 1}, {"encryption", 1}, {"authentication", 1}}, text);
  text.pop_back();
  return text;
}

}  // namespace simulator
