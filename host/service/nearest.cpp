#include "host/service/nearest.h"

#include <algorithm>
#include <numeric>

#include "platform/ascii.h"

namespace host {
namespace {

/// The number of letters to change, add or remove (Levenshtein).
std::size_t Distance(std::string_view left, std::string_view right) {
  std::vector<std::size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < left.size(); ++i) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < right.size(); ++j) {
      const bool same = platform::AsciiLower(left[i]) == platform::AsciiLower(right[j]);
      const std::size_t changed = diagonal + (same ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string Nearest(std::string_view word, const std::vector<std::string>& names) {
  // One letter in three may be wrong.
  std::size_t best = (word.size() + 2) / 3 + 1;
  std::string nearest;
  for (const std::string& name : names) {
    const std::size_t distance = Distance(word, name);
    if (distance >= best) continue;
    best = distance;
    nearest = name;
  }
  return nearest;
}

std::string DidYouMean(std::string_view word, const std::vector<std::string>& names) {
  const std::string nearest = Nearest(word, names);
  return nearest.empty() ? "" : " (did you mean " + nearest + "?)";
}

}  // namespace host
