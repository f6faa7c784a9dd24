#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host {

struct WqlToken {
  enum class Kind { kWord, kText, kNumber, kSymbol, kEnd };
  Kind kind = Kind::kEnd;
  std::string text;          ///< a text literal without its quotes and escapes
  std::size_t position = 0;  ///< position of its first character, from 1
};

/// Splits a query into tokens; the last is kEnd. Throws QueryError.
std::vector<WqlToken> CutWql(std::string_view query);

}  // namespace host
