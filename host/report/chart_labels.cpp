#include "host/report/chart_labels.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <string>

#include "host/format/format.h"

namespace host {
namespace {

constexpr double kReach = 34.0;     ///< how far a label may move
constexpr double kClearance = 1.0;  ///< kept between labels

/// The end of the character that begins at `start`.
std::size_t CharacterEnd(std::string_view utf8, std::size_t start) {
  std::size_t end = start + 1;
  while (end < utf8.size() && (static_cast<unsigned char>(utf8[end]) & 0xC0) == 0x80) ++end;
  return end;
}

double CharacterWidth(std::string_view character) {
  if (character.size() > 1) return std::max(0.9, 1.1 * DisplayWidth(character));
  const char c = character.front();
  if (std::string_view("mwMW@%").find(c) != std::string_view::npos) return 1.0;
  if (std::string_view("iljft.,:;'|! ()").find(c) != std::string_view::npos) return 0.42;
  return c >= 'A' && c <= 'Z' ? 0.78 : 0.64;
}

}  // namespace

bool Box::Meets(const Box& other) const {
  return left < other.left + other.width && other.left < left + width &&
         top < other.top + other.height && other.top < top + height;
}

namespace {

bool IsBeside(const Box& left, const Box& right) {
  return left.left >= right.left + right.width + kClearance ||
         right.left >= left.left + left.width + kClearance;
}

/// The wished boxes within `area`. A stronger label that would cover a weaker one is raised by a
/// line: a label is easier to read above its peak than below it.
std::vector<Box> RaisedBoxes(const std::vector<LabelWish>& wishes, const Box& area) {
  std::vector<Box> boxes;
  for (const LabelWish& wish : wishes) {
    Box& box = boxes.emplace_back(wish.box);
    box.left =
        std::clamp(box.left, area.left, std::max(area.left, area.left + area.width - box.width));
    box.top = std::min(box.top, area.top + area.height - box.height);
  }
  for (std::size_t index = boxes.size(); index-- > 0;) {
    Box& box = boxes[index];
    const double wished = box.top;
    for (std::size_t weaker = index + 1; weaker < boxes.size(); ++weaker) {
      if (IsBeside(box, boxes[weaker])) continue;
      box.top = std::min(box.top, boxes[weaker].top - box.height - kClearance);
    }
    box.top = std::max(box.top, wished - box.height - kClearance);
  }
  return boxes;
}

}  // namespace

std::vector<std::optional<Box>> PlaceLabels(const std::vector<LabelWish>& wishes, const Box& area) {
  const std::vector<Box> raised = RaisedBoxes(wishes, area);
  std::vector<std::size_t> order(wishes.size());
  std::iota(order.begin(), order.end(), 0);
  std::ranges::stable_sort(order, std::ranges::greater(),
                           [&](std::size_t index) { return wishes[index].goesFirst; });
  std::vector<std::size_t> placed;
  std::vector<std::optional<Box>> places(wishes.size());
  for (const std::size_t index : order) {
    Box box = raised[index];
    double highest = area.top;
    double lowest = area.top + area.height - box.height;
    for (const std::size_t other : placed) {
      const Box& taken = *places[other];
      const bool isBeside = IsBeside(box, taken);
      const bool isAlike = wishes[other].strength == wishes[index].strength;
      if (isBeside && isAlike) continue;
      if (other < index) {
        highest = std::max(highest, taken.top + (isBeside ? 0 : taken.height + kClearance));
      } else {
        lowest = std::min(lowest, taken.top - (isBeside ? 0 : box.height + kClearance));
      }
    }
    if (highest > lowest) continue;
    box.top = std::clamp(box.top, highest, lowest);
    if (std::abs(box.top - wishes[index].box.top) > kReach) continue;
    places[index] = box;
    placed.push_back(index);
  }
  return places;
}

double EstimatedTextWidth(std::string_view utf8) {
  double width = 0;
  for (std::size_t next = 0; next < utf8.size();) {
    const std::size_t end = CharacterEnd(utf8, next);
    width += CharacterWidth(utf8.substr(next, end - next));
    next = end;
  }
  return width;
}

std::string Shortened(std::string_view utf8, int columns) {
  if (DisplayWidth(utf8) <= columns) return std::string(utf8);
  std::size_t end = 0;
  for (std::size_t next = 0; next < utf8.size();) {
    next = CharacterEnd(utf8, next);
    if (DisplayWidth(utf8.substr(0, next)) > columns - 1) break;
    end = next;
  }
  return std::string(utf8.substr(0, end)) + "\u2026";
}

}  // namespace host
