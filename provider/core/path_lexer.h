#pragma once

#include "platform/bstr.h"

namespace wifi {

/// One token of an object path.
struct PathToken {
  enum Kind { kEnd, kError, kWord, kText, kInteger, kSlash, kColon, kDot, kEquals, kAt, kComma };

  Kind kind = kEnd;
  platform::OleString text;  ///< of a word, or of a quoted text after unescaping
  LONG number = 0;

  /// Whether the token is this word, ignoring the case of A to Z. `word` must be in lower case.
  bool IsWord(platform::OleStringView word) const;
};

bool IsPathBlank(OLECHAR character);

/// Reads the tokens of a path after its server name. Blanks between tokens are ignored.
class PathLexer {
 public:
  explicit PathLexer(platform::OleStringView text) : rest_(text) {}

  PathToken Next();
  /// Whether the next token is of this kind. Does not consume it.
  bool NextIs(PathToken::Kind kind) const { return PathLexer(*this).Next().kind == kind; }

 private:
  PathToken Quoted(OLECHAR quote);
  PathToken Integer();

  platform::OleStringView rest_;
};

}  // namespace wifi
