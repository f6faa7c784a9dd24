#pragma once

#include <string_view>

/// Declares `embedded::SYMBOL()`, which returns a text that embed_text() of CMake compiled in.
#define EMBEDDED_TEXT(symbol) \
  namespace embedded {        \
  std::string_view symbol();  \
  }
