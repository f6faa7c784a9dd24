#pragma once
// Writes markup into which no text can inject markup: the only place of the report that escapes.

#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

/// Writes elements of HTML and of SVG within it. Names of elements and attributes are constants of
/// the program; every text and every attribute value is escaped.
class Html {
 public:
  explicit Html(std::ostream& output) : output_(output) {}

  using Attributes = std::initializer_list<std::pair<const char*, std::string>>;

  Html& Open(const char* element, Attributes attributes = {});
  /// Closes the element that was opened last.
  Html& Close();
  /// An element without an end tag: <meta>, <input>, <path>.
  Html& Empty(const char* element, Attributes attributes);
  Html& Text(std::string_view text);
  Html& Element(const char* element, Attributes attributes, std::string_view text);
  /// The program's own style sheet or script, unchanged.
  Html& Trusted(std::string_view text);
  /// A piece of JSON text for the content of a script element, escaped so that it cannot close the
  /// element.
  Html& Json(std::string_view json);
  Html& NewLine();

 private:
  void Tag(const char* element, Attributes attributes, const char* end);

  std::ostream& output_;
  std::vector<const char*> open_;
};

}  // namespace host
