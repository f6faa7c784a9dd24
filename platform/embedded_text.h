#pragma once

#include <cstddef>
#include <string_view>

/// Declares a text that embed_text() compiled in, and gives it as SYMBOL().
#define EMBEDDED_TEXT(symbol)                                              \
  namespace embedded {                                                     \
  extern const std::size_t symbol##_size;                                  \
  extern const unsigned char symbol##_bytes[];                             \
  inline std::string_view symbol() {                                       \
    return {reinterpret_cast<const char*>(symbol##_bytes), symbol##_size}; \
  }                                                                        \
  }
