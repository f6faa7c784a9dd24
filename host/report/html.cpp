#include "host/report/html.h"

namespace host {
namespace {

/// Escaped for text and for values in double quotes; control characters have no place in either.
void AppendEscaped(std::string_view text, std::string* markup) {
  for (const char character : text) {
    switch (character) {
      case '&':
        *markup += "&amp;";
        break;
      case '<':
        *markup += "&lt;";
        break;
      case '>':
        *markup += "&gt;";
        break;
      case '"':
        *markup += "&quot;";
        break;
      case '\'':
        *markup += "&#39;";
        break;
      default:
        *markup += static_cast<unsigned char>(character) < 0x20 ? ' ' : character;
    }
  }
}

}  // namespace

void Html::Tag(const char* element, Attributes attributes) {
  markup_.append("<").append(element);
  for (const auto& [name, value] : attributes) {
    markup_.append(" ").append(name);
    if (value.empty()) continue;
    markup_ += "=\"";
    AppendEscaped(value, &markup_);
    markup_ += '"';
  }
  markup_ += '>';
}

Html& Html::Open(const char* element, Attributes attributes) {
  Tag(element, attributes);
  open_.push_back(element);
  return *this;
}

Html& Html::Close() {
  markup_.append("</").append(open_.back()).append(">");
  open_.pop_back();
  return *this;
}

Html& Html::Empty(const char* element, Attributes attributes) {
  Tag(element, attributes);
  // Elements of SVG need their end, those of HTML do not mind the blank and the slash.
  markup_.insert(markup_.size() - 1, " /");
  return *this;
}

Html& Html::Text(std::string_view text) {
  AppendEscaped(text, &markup_);
  return *this;
}

Html& Html::Element(const char* element, Attributes attributes, std::string_view text) {
  return Open(element, attributes).Text(text).Close();
}

Html& Html::Trusted(std::string_view text) {
  markup_ += text;
  return *this;
}

Html& Html::Json(std::string_view json) {
  for (const char character : json) {
    if (character == '<') {
      markup_ += "\\u003c";
    } else {
      markup_ += character;
    }
  }
  return *this;
}

Html& Html::NewLine() {
  markup_ += '\n';
  return *this;
}

}  // namespace host
