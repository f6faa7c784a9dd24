#pragma once
// Markup whose texts cannot become markup: the one place of the report that escapes.

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

/// Writes elements of HTML and of SVG within it. Names of elements and attributes are the program's
/// own words; every text and every value of an attribute is escaped.
class Html {
 public:
  using Attributes = std::initializer_list<std::pair<const char*, std::string>>;

  Html& Open(const char* element, Attributes attributes = {});
  /// Ends the element that was opened last.
  Html& Close();
  /// An element without an end: <meta>, <input>, <path>.
  Html& Empty(const char* element, Attributes attributes);
  Html& Text(std::string_view text);
  Html& Element(const char* element, Attributes attributes, std::string_view text);
  /// The program's own style sheet or script, as it is.
  Html& Trusted(std::string_view text);
  /// A JSON text for the content of a script element: no end of the element can stand in it.
  Html& Json(std::string_view json);
  Html& NewLine();

  const std::string& markup() const { return markup_; }

 private:
  void Tag(const char* element, Attributes attributes);

  std::string markup_;
  std::vector<const char*> open_;
};

}  // namespace host
