#pragma once

#include <sstream>
#include <string>

#include "host/report/html.h"

namespace host {

/// Writes an XML file, an element a line, each below the one that contains it.
class Xml {
 public:
  using Attributes = Html::Attributes;

  Xml() { text_ << "<?xml version=\"1.0\" encoding=\"utf-8\"?>"; }

  Xml& Open(const char* element, Attributes attributes = {}) {
    NewLine();
    html_.Open(element, attributes);
    ++depth_;
    return *this;
  }
  Xml& Close() {
    --depth_;
    NewLine();
    html_.Close();
    return *this;
  }
  Xml& Empty(const char* element, Attributes attributes = {}) {
    NewLine();
    html_.Empty(element, attributes);
    return *this;
  }
  Xml& Element(const char* element, Attributes attributes, const std::string& content) {
    NewLine();
    html_.Element(element, attributes, content);
    return *this;
  }
  Xml& Element(const char* element, const std::string& content) {
    return Element(element, {}, content);
  }
  std::string text() const { return text_.str() + '\n'; }

 private:
  void NewLine() { text_ << '\n' << std::string(2 * depth_, ' '); }

  std::ostringstream text_;
  Html html_{text_};
  std::size_t depth_ = 0;
};

}  // namespace host
