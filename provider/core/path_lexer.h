#pragma once

#include "platform/bstr.h"

namespace wifi {

/// One token of an object path.
struct PathToken {
  enum Kind { kEnd, kError, kWord, kText, kInteger, kSlash, kColon, kDot, kEquals, kAt, kComma };

  Kind kind = kEnd;
  platform::OleString text;  ///< of a word, or of a quoted text without its escapes
  LONG number = 0;

  /// Whether it is this word, ignoring the case of A to Z. `word` is in lower case.
  bool IsWord(platform::OleStringView word) const;
};

bool IsPathBlank(OLECHAR character);

/// Reads the tokens of a path behind its server name. Blanks between tokens do not count.
class PathLexer {
 public:
  explicit PathLexer(platform::OleStringView text) : rest_(text) {}

  PathToken Next();
  /// Whether the token after this one is of that kind; reads nothing.
  bool NextIs(PathToken::Kind kind) const { return PathLexer(*this).Next().kind == kind; }

 private:
  PathToken Quoted(OLECHAR quote);
  PathToken Integer();

  platform::OleStringView rest_;
};

}  // namespace wifi
