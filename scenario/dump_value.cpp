#include "scenario/dump_value.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "scenario/ansi.h"
#include "scenario/hex.h"

namespace simulator {
namespace {

using nlohmann::json;
using ScenarioJson = nlohmann::ordered_json;

char LowerCase(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string Folded(std::string_view name) {
  std::string folded;
  for (const char letter : name) {
    if (letter != '_') folded += LowerCase(letter);
  }
  return folded;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == text.npos ? std::string_view()
                            : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

bool HasName(const Field& field, std::string_view text) {
  return std::ranges::any_of(field.names, [text](const Name& name) { return name.text == text; });
}

/// A number that no row of the field uses.
std::uint32_t NamelessCode(const Field& field) {
  std::uint32_t code = 0;
  while (std::ranges::any_of(field.names, [code](const Name& name) { return name.code == code; })) {
    ++code;
  }
  return code;
}

/// The classes' texts for a code or bits without a text of their own.
bool MeansUnknown(std::string_view text) {
  return text == "Unknown" || text == "<Unknown>" || text == "UnKnown";
}

/// The number limited to the field's width: clients see it as signed 32 bits.
std::optional<ScenarioJson> NumberMember(std::int64_t number, const Field& field) {
  const bool isSigned = field.kind == Kind::kSigned;
  if (number < std::numeric_limits<std::int32_t>::min() ||
      number > std::numeric_limits<std::uint32_t>::max()) {
    return std::nullopt;
  }
  const std::size_t bits = 8 * field.size;
  const std::uint64_t mask = (std::uint64_t{1} << bits) - 1;
  const std::uint64_t low = static_cast<std::uint64_t>(number) & mask;
  if (isSigned && (low >> (bits - 1)) != 0) {
    return ScenarioJson(static_cast<std::int64_t>(low) - static_cast<std::int64_t>(mask) - 1);
  }
  return ScenarioJson(low);
}

std::optional<ScenarioJson> CodeMember(const std::string& text, const Field& field,
                                       std::string& problem) {
  const std::string name(Trimmed(text));
  if (HasName(field, name)) return ScenarioJson(name);
  if (!MeansUnknown(name)) return std::nullopt;
  const std::uint32_t code = NamelessCode(field);
  problem =
      "'" + text + "' stands for every code without a text: " + std::to_string(code) + " is taken";
  return ScenarioJson(code);
}

/// Names separated by commas.
std::optional<ScenarioJson> BitsMember(const std::string& text, const Field& field,
                                       std::string& problem) {
  if (MeansUnknown(text)) {
    problem = "'" + text + "' stands for every bit without a text: none is taken";
    return ScenarioJson(0);
  }
  ScenarioJson names = ScenarioJson::array();
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::string name(Trimmed(rest.substr(0, rest.find(','))));
    rest.remove_prefix(
        std::min(rest.size(), rest.find(',') == rest.npos ? rest.size() : rest.find(',') + 1));
    if (name.empty()) continue;
    if (!HasName(field, name)) return std::nullopt;
    names.push_back(name);
  }
  return names;
}

std::optional<ScenarioJson> FlagMember(const json& value, const Field& field) {
  if (value.is_boolean()) return ScenarioJson(value.get<bool>());
  if (value == "Yes" || value == "No") return ScenarioJson(value == "Yes");
  const auto number = NumberIn(value);
  if (!number) return std::nullopt;
  return NumberMember(*number, field);
}

std::optional<ScenarioJson> NumbersMember(const json& value, const Field& field) {
  constexpr std::size_t kStep = 4;
  if (!value.is_array() || value.size() > field.size / kStep) return std::nullopt;
  const Field element = {field.name, Kind::kNumber, 0, kStep};
  ScenarioJson numbers = ScenarioJson::array();
  for (const json& each : value) {
    const auto number = NumberIn(each);
    const auto member = number ? NumberMember(*number, element) : std::nullopt;
    if (!member) return std::nullopt;
    numbers.push_back(*member);
  }
  return numbers;
}

bool IsMac(std::string_view text) {
  if (text.size() != 17) return false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool fits = at % 3 == 2 ? text[at] == ':'
                                  : std::string_view("0123456789ABCDEFabcdef").find(text[at]) !=
                                        std::string_view::npos;
    if (!fits) return false;
  }
  return true;
}

}  // namespace

const Field* FieldNamed(const Table& table, std::string_view property) {
  const std::string folded = Folded(property);
  const auto found = std::ranges::find_if(
      table.fields, [&folded](const Field& field) { return Folded(field.name) == folded; });
  return found == table.fields.end() ? nullptr : &*found;
}

std::optional<std::int64_t> NumberIn(const json& value, int base) {
  if (value.is_number_integer()) return value.get<std::int64_t>();
  if (!value.is_string()) return std::nullopt;
  const auto& text = value.get_ref<const std::string&>();
  std::int64_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  if (text.empty() || error != std::errc() || stop != text.data() + text.size()) {
    return std::nullopt;
  }
  return number;
}

ScenarioJson TextMember(const std::string& utf8, std::size_t size, std::string& problem) {
  std::string ansi;
  bool isWhole = true;
  if (const auto whole = AnsiFromUtf8(utf8)) {
    ansi = *whole;
  } else {
    for (std::size_t at = 0; at < utf8.size();) {
      std::size_t end = at + 1;
      while (end < utf8.size() && (static_cast<unsigned char>(utf8[end]) & 0xC0u) == 0x80u) ++end;
      const auto one = AnsiFromUtf8(std::string_view(utf8).substr(at, end - at));
      isWhole = isWhole && one;
      ansi += one.value_or("?");
      at = end;
    }
  }
  if (!isWhole) problem = "'" + utf8 + "' has characters that code page 1252 lacks: '?' is taken";
  const std::size_t zero = ansi.find('\0');
  const bool fits = ansi.size() < size && zero == ansi.npos;
  if (fits && isWhole) return utf8;
  if (zero != ansi.npos) ansi.resize(zero);
  if (ansi.size() > size) {
    problem = "'" + utf8 + "' is longer than its field of " + std::to_string(size) + " bytes";
    ansi.resize(size);
  }
  std::string hex;
  for (const char byte : ansi) hex += UpperHex(static_cast<unsigned char>(byte), 2);
  return {{"hex", hex}};
}

std::optional<ScenarioJson> MemberOf(const json& value, const Field& field, std::string& problem,
                                     int base) {
  switch (field.kind) {
    case Kind::kFlag:
      return FlagMember(value, field);
    case Kind::kText:
    case Kind::kPaddedText:
      if (!value.is_string()) return std::nullopt;
      return TextMember(value.get<std::string>(), field.size, problem);
    case Kind::kMac:
      if (!value.is_string() || !IsMac(value.get_ref<const std::string&>())) return std::nullopt;
      return ScenarioJson(value.get<std::string>());
    case Kind::kNumbers:
      return NumbersMember(value, field);
    case Kind::kBits:
      if (value.is_string()) return BitsMember(value.get<std::string>(), field, problem);
      break;
    case Kind::kNumber:
      if (value.is_string() && !field.names.empty()) {
        return CodeMember(value.get<std::string>(), field, problem);
      }
      break;
    default:
      break;
  }
  const auto number = NumberIn(value, base);
  return number ? NumberMember(*number, field) : std::nullopt;
}

}  // namespace simulator
