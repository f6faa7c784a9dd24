#pragma once

#include <string_view>

/// Declares a text that embed_text() compiled in, and gives it as SYMBOL().
#define EMBEDDED_TEXT(symbol) \
  namespace embedded {        \
  std::string_view symbol();  \
  }
