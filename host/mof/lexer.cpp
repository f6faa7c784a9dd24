#include "host/mof/lexer.h"

#include <algorithm>
#include <charconv>

#include "host/mof/schema.h"

namespace host {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsWord(char c) {
  return IsDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

void AppendUtf8(std::string& text, unsigned code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
    return;
  }
  if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
  } else {
    text += static_cast<char>(0xE0 | (code >> 12));
    text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
  }
  text += static_cast<char>(0x80 | (code & 0x3F));
}

}  // namespace

bool Token::IsName(std::string_view name) const {
  return kind == Kind::kName && SameIgnoringAsciiCase(text, name);
}

std::string Token::Shown() const {
  switch (kind) {
    case Kind::kEnd:
      return "the end";
    case Kind::kText:
      return "a text";
    case Kind::kSymbol:
      if (text[0] > ' ' && text[0] < '\x7F') break;
      return "byte " + std::to_string(static_cast<unsigned char>(text[0]));
    default:
      break;
  }
  return "'" + text + "'";
}

Lexer::Lexer(std::string_view text, const std::string& name) : text_(text), name_(name) {
  if (text_.starts_with("\xEF\xBB\xBF")) at_ = 3;
}

void Lexer::Fail(int line, const std::string& expected, const std::string& found) const {
  throw MofError(name_ + ":" + std::to_string(line) + ": expected " + expected + ", found " +
                 found);
}

Token Lexer::Next() {
  SkipBlanksAndComments();
  const int line = line_;
  if (at_ == text_.size()) return {Token::Kind::kEnd, "", 0, line};
  const char c = Peek();
  if (c == '"') return TakeText(line);
  if (IsDigit(c) || ((c == '-' || c == '+') && IsDigit(Peek(1)))) return TakeNumber(line);
  if (IsWord(c)) return {Token::Kind::kName, std::string(TakeWord()), 0, line};
  ++at_;
  if (c != '$') return {Token::Kind::kSymbol, std::string(1, c), 0, line};
  if (!IsWord(Peek())) Fail(line, "an alias's name after $", "another");
  std::string alias(1, c);
  alias += TakeWord();
  return {Token::Kind::kAlias, alias, 0, line};
}

/// NUL past the end, a character that a MOF text does not contain either.
char Lexer::Peek(std::size_t ahead) const {
  return text_.size() - at_ > ahead ? text_[at_ + ahead] : '\0';
}

void Lexer::SkipBlanksAndComments() {
  while (at_ < text_.size()) {
    const char c = Peek();
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
      line_ += c == '\n';
      ++at_;
    } else if (c == '/' && Peek(1) == '/') {
      at_ = std::min(text_.find('\n', at_), text_.size());
    } else if (c == '/' && Peek(1) == '*') {
      const int opened = line_;
      const std::size_t close = text_.find("*/", at_ + 2);
      if (close == std::string_view::npos) Fail(opened, "*/ to close a comment", "the end");
      for (; at_ < close; ++at_) line_ += text_[at_] == '\n';
      at_ = close + 2;
    } else {
      return;
    }
  }
}

std::string_view Lexer::TakeWord() {
  const std::size_t begin = at_;
  while (IsWord(Peek())) ++at_;
  return text_.substr(begin, at_ - begin);
}

Token Lexer::TakeText(int line) {
  Token token{Token::Kind::kText, "", 0, line};
  for (++at_; Peek() != '"'; ++at_) {
    const char c = Peek();
    if (at_ == text_.size()) Fail(line, "\" to close a text", "the end");
    if (static_cast<unsigned char>(c) < ' ')
      Fail(line, "\" to close a text", "a control character");
    if (c == '\\') {
      TakeEscape(token.text);
    } else {
      token.text += c;
    }
  }
  ++at_;
  return token;
}

/// Leaves the position at the last character of the escape.
void Lexer::TakeEscape(std::string& text) {
  static constexpr std::string_view kLetters = "btnfr\"'\\";
  static constexpr std::string_view kMeanings = "\b\t\n\f\r\"'\\";
  const char letter = Peek(1);
  ++at_;
  if (const std::size_t index = kLetters.find(letter); index != std::string_view::npos) {
    text += kMeanings[index];
    return;
  }
  unsigned code = 0;
  std::size_t digits = 0;
  if (letter == 'x' || letter == 'X') {
    const std::string_view hex = text_.substr(at_ + 1, 4);
    digits = static_cast<std::size_t>(
        std::from_chars(hex.data(), hex.data() + hex.size(), code, 16).ptr - hex.data());
  }
  // Half of a surrogate pair is not a character of UTF-8, and a NUL would end the text.
  if (code == 0 || (code >= 0xD800 && code <= 0xDFFF)) {
    Fail(line_, "an escape: one of \\b \\t \\n \\f \\r \\\" \\' \\\\ or \\xHHHH of a character",
         "another after the backslash");
  }
  AppendUtf8(text, code);
  at_ += digits;
}

Token Lexer::TakeNumber(int line) {
  std::string shown;
  if (!IsDigit(Peek())) shown = text_[at_++];
  std::string digits = shown == "-" ? shown : "";
  std::string_view word = TakeWord();
  shown += word;
  const bool hexadecimal = word.starts_with("0x") || word.starts_with("0X");
  // A leading zero would mean octal to other readers, so it is refused and no value is misread.
  const bool octal = !hexadecimal && word.size() > 1 && word[0] == '0';
  if (hexadecimal) word.remove_prefix(2);
  digits += word;
  std::int64_t number = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number, hexadecimal ? 16 : 10);
  if (error != std::errc() || stop != end || octal) {
    Fail(line, "a decimal or hexadecimal number of at most 64 bits", "'" + shown + "'");
  }
  return {Token::Kind::kNumber, shown, number, line};
}

}  // namespace host
