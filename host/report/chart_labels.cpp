#include "host/report/chart_labels.h"

#include <algorithm>
#include <string>

#include "host/format/format.h"

namespace host {
namespace {

constexpr double kStep = 2.0;       ///< how finely places are tried
constexpr double kReach = 120.0;    ///< how far a label may move
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

std::vector<std::optional<Box>> PlaceLabels(const std::vector<Box>& wishes, const Box& area) {
  std::vector<Box> taken;
  std::vector<std::optional<Box>> places;
  for (Box box : wishes) {
    box.left =
        std::clamp(box.left, area.left, std::max(area.left, area.left + area.width - box.width));
    const double wished = box.top;
    const auto isFree = [&](double top) {
      const Box padded = {box.left - kClearance, top - kClearance, box.width + 2 * kClearance,
                          box.height + 2 * kClearance};
      return top >= area.top && top + box.height <= area.top + area.height &&
             std::ranges::none_of(taken, [&](const Box& other) { return padded.Meets(other); });
    };
    std::optional<Box> place;
    for (double distance = 0; distance <= kReach && !place; distance += kStep) {
      for (const double top : {wished - distance, wished + distance}) {
        if (place || !isFree(top)) continue;
        box.top = top;
        place = box;
      }
    }
    if (place) taken.push_back(*place);
    places.push_back(place);
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
