#include "host/report/html.h"

namespace host {
namespace {

/// The escape of a character; null for a character that needs none. Control characters are not
/// allowed in text.
const char* EscapeOf(char character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return static_cast<unsigned char>(character) < 0x20 ? " " : nullptr;
  }
}

/// Text escaped for content and for attribute values in double quotes.
void WriteEscaped(std::ostream& output, std::string_view text) {
  std::size_t plain = 0;
  for (std::size_t next = 0; next < text.size(); ++next) {
    const char* escape = EscapeOf(text[next]);
    if (escape == nullptr) continue;
    output << text.substr(plain, next - plain) << escape;
    plain = next + 1;
  }
  output << text.substr(plain);
}

}  // namespace

void Html::Tag(const char* element, Attributes attributes, const char* end) {
  output_ << '<' << element;
  for (const auto& [name, value] : attributes) {
    output_ << ' ' << name;
    if (value.empty()) continue;
    output_ << "=\"";
    WriteEscaped(output_, value);
    output_ << '"';
  }
  output_ << end;
}

Html& Html::Open(const char* element, Attributes attributes) {
  Tag(element, attributes, ">");
  open_.push_back(element);
  return *this;
}

Html& Html::Close() {
  output_ << "</" << open_.back() << '>';
  open_.pop_back();
  return *this;
}

Html& Html::Empty(const char* element, Attributes attributes) {
  // SVG elements must be closed; HTML elements tolerate the blank and the slash.
  Tag(element, attributes, " />");
  return *this;
}

Html& Html::Text(std::string_view text) {
  WriteEscaped(output_, text);
  return *this;
}

Html& Html::Element(const char* element, Attributes attributes, std::string_view text) {
  return Open(element, attributes).Text(text).Close();
}

Html& Html::Trusted(std::string_view text) {
  output_ << text;
  return *this;
}

Html& Html::Json(std::string_view json) {
  std::size_t plain = 0;
  for (std::size_t next = json.find('<'); next != json.npos; next = json.find('<', plain)) {
    output_ << json.substr(plain, next - plain) << "\\u003c";
    plain = next + 1;
  }
  output_ << json.substr(plain);
  return *this;
}

Html& Html::NewLine() {
  output_ << '\n';
  return *this;
}

}  // namespace host
