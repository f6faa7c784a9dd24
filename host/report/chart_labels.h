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

/// Boxes of the wished sizes, as near to the wished places as earlier labels let them, within
/// `area`; none for a label that finds no place. Labels move mostly up and down.
std::vector<std::optional<Box>> PlaceLabels(const std::vector<Box>& wishes, const Box& area);

/// At least the width of a text in the usual fonts without serifs, in units of the font's size.
double EstimatedTextWidth(std::string_view utf8);

/// The beginning of a text of at most so many columns; what is cut off shows as an ellipsis.
std::string Shortened(std::string_view utf8, int columns);

}  // namespace host
