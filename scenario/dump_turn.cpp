#include "scenario/dump_turn.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "platform/short_text.h"
#include "scenario/dump_value.h"

namespace simulator {
namespace {

using nlohmann::json;
using ScenarioJson = nlohmann::ordered_json;

constexpr const char* kNothing = " has no counterpart in a scenario: it is left out";

/// The number before a unit; nullopt if the text does not have that form.
std::optional<double> Measure(const json& value, std::string_view unit) {
  if (!value.is_string()) return std::nullopt;
  const auto& text = value.get_ref<const std::string&>();
  if (!text.ends_with(unit)) return std::nullopt;
  double number = 0;
  const char* end = text.data() + text.size() - unit.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

bool TurnDbm(const json& value, const Field& field, std::string& problem, ScenarioJson& target) {
  const auto level = Measure(value, " dBm");
  if (!level) return false;
  const auto member = MemberOf(static_cast<std::int64_t>(*level), field, problem);
  if (member) target[field.name] = *member;
  return member.has_value();
}

bool TurnMbps(const json& value, const Field& field, ScenarioJson& target) {
  constexpr double kMost = 0xFFFFFFFFu;
  const auto rate = Measure(value, " Mbps");
  if (!rate || *rate < 0) return false;
  target[field.name] = static_cast<std::uint32_t>(std::min(std::round(*rate * 1e6), kMost));
  return true;
}

bool TurnCcxVersion(const json& value, ScenarioJson& target) {
  unsigned major = 0;
  unsigned minor = 0;
  unsigned build = 0;
  if (!value.is_string() || std::sscanf(value.get_ref<const std::string&>().c_str(), "%3u.%3u.%3u",
                                        &major, &minor, &build) != 3) {
    return false;
  }
  if (std::max({major, minor, build}) > 0xFF) return false;
  target["ccxVersion"] = {{"major", major}, {"minor", minor}, {"build", build}};
  return true;
}

/// The level in dBm that is shown as these milliwatts; nullopt if no whole number is.
std::optional<int> LevelOf(std::string_view milliwatts) {
  constexpr int kNoPower = -100;
  double power = 0;
  const char* end = milliwatts.data() + milliwatts.size();
  if (std::from_chars(milliwatts.data(), end, power).ptr != end) return std::nullopt;
  const int level = power > 0 ? static_cast<int>(std::lround(10 * std::log10(power))) : kNoPower;
  for (const int candidate : {level, level - 1, level + 1}) {
    constexpr std::size_t kLongest = 320;
    const auto shown = platform::ShortText<kLongest>().Tenths(std::pow(10.0, candidate / 10.0));
    if (std::string_view(shown) == milliwatts) return candidate;
  }
  return std::nullopt;
}

bool TurnMilliwatts(const json& value, ScenarioJson& target) {
  constexpr std::string_view kUnit = " mW";
  if (!value.is_string()) return false;
  std::string_view text = value.get_ref<const std::string&>();
  if (!text.ends_with(kUnit)) return false;
  text.remove_suffix(kUnit.size());
  ScenarioJson levels = ScenarioJson::array();
  while (!text.empty()) {
    const std::string_view one = text.substr(0, text.find(", "));
    const auto level = LevelOf(one);
    if (!level) return false;
    levels.push_back(*level);
    text.remove_prefix(std::min(text.size(), one.size() + 2));
  }
  target["ccxPowerLevels"] = {{"levels", levels}};
  return true;
}

/// Texts, each followed by two blanks. A count larger than the array shows the memory after it,
/// which the other members reproduce.
bool TurnJoined(const json& value, const Field& field, std::string& problem, ScenarioJson& target) {
  constexpr std::string_view kSeparator = "  ";
  if (!value.is_string()) return false;
  std::string_view text = value.get_ref<const std::string&>();
  ScenarioJson texts = ScenarioJson::array();
  std::size_t count = 0;
  for (; !text.empty(); ++count) {
    const std::size_t end = text.find(kSeparator);
    if (end == text.npos) return false;
    if (count < field.size / kTextsStep) {
      texts.push_back(TextMember(std::string(text.substr(0, end)), kTextsStep, problem));
    }
    text.remove_prefix(end + kSeparator.size());
  }
  target[field.name] = texts;
  if (count > field.size / kTextsStep) {
    target[std::string_view(field.name) == "gateways" ? "gatewayCount" : "addressCount"] = count;
  }
  return true;
}

bool TurnReason(const json& value, ScenarioJson& target) {
  constexpr std::array<const char*, 5> kBits = {"0x1", "0x20", "0x40", "0x8000", "0x10000"};
  const auto reason = NumberIn(value);
  if (!reason || *reason < 0 || *reason >= static_cast<std::int64_t>(kBits.size())) return false;
  target["reason"] = kBits[static_cast<std::size_t>(*reason)];
  return true;
}

bool TurnProfileMode(const json& value, std::string& problem, ScenarioJson& target) {
  if (value != "BSS" && value != "IBSS" && value != "Unknown") return false;
  if (value == "Unknown") problem = "'Unknown' stands for every code without a text: 0 is taken";
  target["opMode"] = value == "BSS" ? 1 : value == "IBSS" ? 2 : 0;
  return true;
}

bool Turned(const PropertyRow& row, const Field* field, const json& value, std::string& problem,
            ScenarioJson& target) {
  constexpr int kHexadecimal = 16;
  switch (row.turn) {
    case Turn::kNone:
    case Turn::kApAddress:
      return true;
    case Turn::kDbm:
      return TurnDbm(value, *field, problem, target);
    case Turn::kMbps:
      return TurnMbps(value, *field, target);
    case Turn::kDottedVersion:
      return TurnCcxVersion(value, target);
    case Turn::kMilliwatts:
      return TurnMilliwatts(value, target);
    case Turn::kJoined:
      return TurnJoined(value, *field, problem, target);
    case Turn::kReason:
      return TurnReason(value, target);
    case Turn::kProfileMode:
      return TurnProfileMode(value, problem, target);
    case Turn::kProfileName:
      if (value == " ") return target["profileName"] = "@direct@", true;
      break;
    case Turn::kHex:
    case Turn::kPlain:
      break;
  }
  const auto member = MemberOf(value, *field, problem, row.turn == Turn::kHex ? kHexadecimal : 10);
  if (member) target[field->name] = *member;
  return member.has_value();
}

/// The row of a property; a property without a row has the name of its member.
PropertyRow RowOf(std::string_view property, std::span<const PropertyRow> rows) {
  const auto named =
      std::ranges::find_if(rows, [&](const PropertyRow& row) { return row.property == property; });
  return named == rows.end() ? PropertyRow{property, Turn::kPlain, nullptr} : *named;
}

const Field* FieldOf(const PropertyRow& row, const Table& table) {
  return FieldNamed(table, row.member == nullptr ? row.property : row.member);
}

}  // namespace

bool HasProducer(std::string_view property, std::span<const PropertyRow> rows, const Table& table) {
  const PropertyRow row = RowOf(property, rows);
  return row.turn == Turn::kNone || row.turn == Turn::kApAddress || FieldOf(row, table) != nullptr;
}

std::string TurnBack(std::string_view property, const json& value,
                     std::span<const PropertyRow> rows, const Table& table, ScenarioJson& target) {
  if (!HasProducer(property, rows, table)) return "no member of a scenario has it: it is left out";
  const PropertyRow row = RowOf(property, rows);
  std::string problem;
  if (!Turned(row, FieldOf(row, table), value, problem, target)) problem = value.dump() + kNothing;
  return problem;
}

}  // namespace simulator
