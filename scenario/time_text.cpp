#include "scenario/time_text.h"

#include <charconv>
#include <chrono>

namespace simulator {
namespace {

constexpr std::int64_t kSecond = 1000;
constexpr std::int64_t kDay = 86400 * kSecond;
constexpr std::int64_t kLongestDuration = 3653 * kDay;

struct Unit {
  std::string_view name;
  std::int64_t milliseconds;
};
constexpr Unit kUnits[] = {
    {"d", kDay}, {"h", 3600 * kSecond}, {"m", 60 * kSecond}, {"s", kSecond}, {"ms", 1}};

/// Takes `size` digits from the beginning of the text.
std::optional<int> TakeDigits(std::string_view& text, std::size_t size) {
  int number = 0;
  if (text.size() < size) return std::nullopt;
  for (const char digit : text.substr(0, size)) {
    if (digit < '0' || digit > '9') return std::nullopt;
    number = 10 * number + (digit - '0');
  }
  text.remove_prefix(size);
  return number;
}

std::string Digits(std::int64_t number, std::size_t size) {
  std::string digits = std::to_string(number);
  return digits.size() < size ? digits.insert(0, size - digits.size(), '0') : digits;
}

}  // namespace

std::optional<std::int64_t> ParseDuration(std::string_view text) {
  std::int64_t sum = 0;
  const Unit* least = nullptr;
  do {
    std::int64_t count = -1;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc() || count < 0 || count > kLongestDuration) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    const std::string_view name = text.substr(0, text.find_first_of("0123456789"));
    const Unit* unit = nullptr;
    for (const Unit& known : kUnits) {
      if (known.name == (name.empty() && least == nullptr ? "s" : name)) unit = &known;
    }
    if (unit == nullptr || (least != nullptr && unit <= least)) return std::nullopt;
    if (count > (kLongestDuration - sum) / unit->milliseconds) return std::nullopt;
    sum += count * unit->milliseconds;
    least = unit;
    text.remove_prefix(name.size());
  } while (!text.empty());
  return sum;
}

std::optional<std::int64_t> ParseMoment(std::string_view text) {
  struct Part {
    std::size_t digits;
    char end;
    int value = 0;
  };
  Part parts[] = {{4, '-'}, {2, '-'}, {2, 'T'}, {2, ':'}, {2, ':'}, {2, 'Z'}, {3, 'Z'}};
  bool ended = false;
  for (Part& part : parts) {
    if (ended) break;
    const auto value = TakeDigits(text, part.digits);
    if (!value || text.empty()) return std::nullopt;
    part.value = *value;
    const bool hasMilliseconds = &part == &parts[5] && text.front() == '.';
    if (text.front() != part.end && !hasMilliseconds) return std::nullopt;
    ended = text.front() == 'Z';
    text.remove_prefix(1);
  }
  const auto [year, month, day, hour, minute, second, millisecond] = parts;
  const std::chrono::year_month_day date(std::chrono::year(year.value),
                                         std::chrono::month(static_cast<unsigned>(month.value)),
                                         std::chrono::day(static_cast<unsigned>(day.value)));
  if (!text.empty() || !date.ok() || hour.value > 23 || minute.value > 59 || second.value > 59) {
    return std::nullopt;
  }
  const auto days = std::chrono::sys_days(date).time_since_epoch().count();
  const std::int64_t seconds = (hour.value * 60 + minute.value) * 60 + second.value;
  return days * kDay + seconds * kSecond + millisecond.value;
}

std::string MomentText(std::int64_t milliseconds) {
  const std::chrono::sys_time<std::chrono::milliseconds> moment{
      std::chrono::milliseconds(milliseconds)};
  const auto midnight = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(midnight);
  const std::int64_t time = (moment - midnight).count();
  return Digits(static_cast<int>(date.year()), 4) + '-' +
         Digits(static_cast<unsigned>(date.month()), 2) + '-' +
         Digits(static_cast<unsigned>(date.day()), 2) + 'T' + Digits(time / 3600000, 2) + ':' +
         Digits(time / 60000 % 60, 2) + ':' + Digits(time / 1000 % 60, 2) + '.' +
         Digits(time % 1000, 3) + 'Z';
}

}  // namespace simulator
