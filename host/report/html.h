#pragma once
// Markup whose texts cannot become markup: the one place of the report that escapes.

#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

/// Writes elements of HTML and of SVG within it. Names of elements and attributes are the program's
/// own words; every text and every value of an attribute is escaped.
class Html {
 public:
  explicit Html(std::ostream& output) : output_(output) {}

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
  /// A piece of a JSON text for the content of a script element, in which no end of the element can
  /// be.
  Html& Json(std::string_view json);
  Html& NewLine();

 private:
  void Tag(const char* element, Attributes attributes, const char* end);

  std::ostream& output_;
  std::vector<const char*> open_;
};

}  // namespace host
