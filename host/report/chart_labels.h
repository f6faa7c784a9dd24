#pragma once
// Where labels go so that none covers another.

#include <optional>
#include <string_view>
#include <vector>

namespace host {

/// A rectangle; y grows downwards.
struct Box {
  double left;
  double top;
  double width;
  double height;

  bool Meets(const Box& other) const;
};

/// A label's size and where it would be best.
struct LabelWish {
  Box box;
  int strength;    ///< of what it names
  bool goesFirst;  ///< before others that are stronger
};

/// Boxes of the wished sizes within `area`, each near its wish and none over another; none for a
/// label that finds no place. `wishes` come in falling order of strength: no label is above that of
/// something stronger. Labels move up and down only.
std::vector<std::optional<Box>> PlaceLabels(const std::vector<LabelWish>& wishes, const Box& area);

/// At least the width of a text in the usual fonts without serifs, in units of the font's size.
double EstimatedTextWidth(std::string_view utf8);

/// The beginning of a text of at most so many columns; what is cut off shows as an ellipsis.
std::string Shortened(std::string_view utf8, int columns);

}  // namespace host
