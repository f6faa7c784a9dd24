#include "host/format/sort.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <string>
#include <string_view>
#include <tuple>

#include "platform/ascii.h"

namespace host {
namespace {

struct Key {
  enum Rank { kNumber, kText, kNone } rank = kNone;
  double number = 0;
  std::string text = {};  ///< in lower case

  auto Order() const { return std::tie(rank, number, text); }
};

Key KeyOf(const Json& value) {
  if (value.is_null()) return {};
  if (value.is_boolean()) return {Key::kNumber, value.get<bool>() ? 1.0 : 0.0};
  if (value.is_number()) return {Key::kNumber, value.get<double>()};
  Key key = {Key::kText, 0, value.is_string() ? value.get<std::string>() : value.dump()};
  for (char& letter : key.text) letter = platform::AsciiLower(letter);
  const std::string_view digits =
      std::string_view(key.text).substr(key.text.starts_with('-') ? 1 : 0);
  // Names such as "inf" and "nan" are not numbers.
  if (digits.empty() || digits[0] < '0' || digits[0] > '9') return key;
  const char* end = key.text.data() + key.text.size();
  if (std::from_chars(key.text.data(), end, key.number).ec == std::errc()) key.rank = Key::kNumber;
  return key;
}

}  // namespace

std::vector<std::size_t> SortedOrder(const std::vector<Json>& values, bool descending) {
  std::vector<Key> keys;
  for (const Json& value : values) keys.push_back(KeyOf(value));
  std::vector<std::size_t> order(values.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [&](std::size_t left, std::size_t right) {
    const Key& first = keys[left];
    const Key& second = keys[right];
    if (first.rank == Key::kNone || second.rank == Key::kNone) return first.rank < second.rank;
    return descending ? second.Order() < first.Order() : first.Order() < second.Order();
  });
  return order;
}

}  // namespace host
