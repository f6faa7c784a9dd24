#pragma once
// Splits a MOF text into tokens, without comments and white space.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace host {

struct Token {
  enum class Kind { kEnd, kName, kText, kNumber, kAlias, kSymbol };

  Kind kind = Kind::kEnd;
  std::string text;  ///< a text without quotes and escapes, an alias with its $
  std::int64_t number = 0;
  int line = 1;

  bool IsSymbol(char symbol) const { return kind == Kind::kSymbol && text[0] == symbol; }
  bool IsName(std::string_view name) const;
  /// The name in messages.
  std::string Shown() const;
};

class Lexer {
 public:
  /// Both must outlive the lexer; `name` is used in messages.
  Lexer(std::string_view text, const std::string& name);

  /// The next token; kEnd at the end, and always after it. Throws MofError.
  Token Next();

  [[noreturn]] void Fail(int line, const std::string& expected, const std::string& found) const;

 private:
  char Peek(std::size_t ahead = 0) const;
  void SkipBlanksAndComments();
  std::string_view TakeWord();
  Token TakeText(int line);
  void TakeEscape(std::string& text);
  Token TakeNumber(int line);

  std::string_view text_;
  const std::string& name_;
  std::size_t at_ = 0;
  int line_ = 1;
};

}  // namespace host
