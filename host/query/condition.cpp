#include "host/query/condition.h"

#include <algorithm>
#include <charconv>
#include <compare>
#include <cstdint>
#include <utility>

#include "platform/ascii.h"

namespace host {
namespace {

std::string Lower(std::string text) {
  for (char& character : text) character = platform::AsciiLower(character);
  return text;
}

/// The whole number that a value means: itself, a text of digits, 1 or 0 for a boolean.
std::optional<std::int64_t> NumberOf(const Json& value) {
  if (value.is_number_integer()) return value.get<std::int64_t>();
  if (value.is_boolean()) return value.get<bool>() ? 1 : 0;
  if (!value.is_string()) return std::nullopt;
  const std::string& text = value.get_ref<const std::string&>();
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

/// Texts are compared as texts, everything else as numbers; nullopt if that is not possible.
std::optional<std::strong_ordering> Order(const Json& left, const Json& right) {
  if (left.is_string() && right.is_string()) {
    return Lower(left.get<std::string>()).compare(Lower(right.get<std::string>())) <=> 0;
  }
  const std::optional<std::int64_t> leftNumber = NumberOf(left);
  const std::optional<std::int64_t> rightNumber = NumberOf(right);
  if (!leftNumber || !rightNumber) return std::nullopt;
  return *leftNumber <=> *rightNumber;
}

/// Whether a character is in the set that starts after '['; moves `next` past the ']'.
bool InSet(char character, std::string_view pattern, std::size_t* next) {
  const std::size_t end = pattern.find(']', *next);
  std::string_view set = pattern.substr(*next, end - *next);
  *next = end + 1;
  const bool negated = set.starts_with('^');
  if (negated) set.remove_prefix(1);
  bool found = false;
  for (std::size_t index = 0; index < set.size(); ++index) {
    // "a-z" is a range and, as in the service, so is "a=z".
    if (index + 2 < set.size() && (set[index + 1] == '-' || set[index + 1] == '=')) {
      found = found || (set[index] <= character && character <= set[index + 2]);
      index += 2;
    } else {
      found = found || set[index] == character;
    }
  }
  return found != negated;
}

/// The end of the UTF-8 character that begins at `at`.
std::size_t CharacterEnd(std::string_view text, std::size_t at) {
  do {
    ++at;
  } while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80);
  return at;
}

/// Matches one pattern element other than '%' against the character at `at`.
bool MatchesOne(std::string_view text, std::size_t* at, std::string_view pattern,
                std::size_t* next) {
  if (*at >= text.size()) return false;
  const char wanted = pattern[(*next)++];
  if (wanted == '_') {
    *at = CharacterEnd(text, *at);
    return true;
  }
  const char character = text[(*at)++];
  const bool isSet = wanted == '[' && pattern.find(']', *next) != std::string_view::npos;
  return isSet ? InSet(character, pattern, next) : wanted == character;
}

}  // namespace

bool MatchesLike(std::string_view text, std::string_view pattern) {
  const std::string lowerText = Lower(std::string(text));
  const std::string lowerPattern = Lower(std::string(pattern));
  std::size_t at = 0;
  std::size_t next = 0;
  // After a mismatch the last '%' takes one more character: no recursion, no exponential time.
  std::size_t retryAt = 0;
  std::size_t retryNext = std::string::npos;
  while (at < lowerText.size() || next < lowerPattern.size()) {
    if (next < lowerPattern.size() && lowerPattern[next] == '%') {
      retryNext = ++next;
      retryAt = at;
      continue;
    }
    if (next < lowerPattern.size() && MatchesOne(lowerText, &at, lowerPattern, &next)) continue;
    if (retryNext == std::string::npos || retryAt >= lowerText.size()) return false;
    retryAt = CharacterEnd(lowerText, retryAt);
    at = retryAt;
    next = retryNext;
  }
  return true;
}

Json Operand::ValueIn(const CimObject& object) const {
  if (!system.empty()) return object.SystemValue(system);
  return ToJson(object.info().declaration.properties[property].type, object.Value(property));
}

CompareCondition::CompareCondition(Operand operand, Comparison comparison, Json literal)
    : operand_(std::move(operand)), comparison_(comparison), literal_(std::move(literal)) {}

std::optional<bool> CompareCondition::Holds(const CimObject& instance) const {
  const Json value = operand_.ValueIn(instance);
  if (value.is_null()) return std::nullopt;
  if (comparison_ == Comparison::kLike) {
    return value.is_string() &&
           MatchesLike(value.get_ref<const std::string&>(), literal_.get_ref<const std::string&>());
  }
  const std::optional<std::strong_ordering> order = Order(value, literal_);
  if (!order) return comparison_ == Comparison::kUnequal;
  switch (comparison_) {
    case Comparison::kEqual:
      return *order == 0;
    case Comparison::kUnequal:
      return *order != 0;
    case Comparison::kLess:
      return *order < 0;
    case Comparison::kLessOrEqual:
      return *order <= 0;
    case Comparison::kGreater:
      return *order > 0;
    default:
      return *order >= 0;
  }
}

std::optional<bool> IsaCondition::Holds(const CimObject& object) const {
  const ClassInfo& info = object.info();
  return &info == &wanted_ ||
         std::ranges::find(info.ancestors, wanted_.name()) != info.ancestors.end();
}

std::optional<bool> NotCondition::Holds(const CimObject& instance) const {
  const std::optional<bool> inner = inner_->Holds(instance);
  if (!inner) return std::nullopt;
  return !*inner;
}

std::optional<bool> ChainCondition::Holds(const CimObject& instance) const {
  std::optional<bool> result = !decisive_;
  for (const auto& side : sides_) {
    const std::optional<bool> holds = side->Holds(instance);
    if (holds == decisive_) return decisive_;
    if (!holds) result = std::nullopt;
  }
  return result;
}

}  // namespace host
