#pragma once
// Places labels so that none covers another.

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

/// A label's size and its best place.
struct LabelWish {
  Box box;
  int strength;    ///< strength of the labelled network
  bool goesFirst;  ///< placed before stronger ones
};

/// Boxes of the wished sizes within `area`, each near its wish and without overlaps; nullopt for a
/// label for which there is no room. `wishes` are in descending order of strength: no label is
/// above the label of something stronger. Labels move only up and down.
std::vector<std::optional<Box>> PlaceLabels(const std::vector<LabelWish>& wishes, const Box& area);

/// An upper bound of a text's width in the usual sans-serif fonts, in units of the font size.
double EstimatedTextWidth(std::string_view utf8);

/// The beginning of a text, at most this many columns; an ellipsis replaces the rest.
std::string Shortened(std::string_view utf8, int columns);

}  // namespace host
