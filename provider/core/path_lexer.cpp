#include "provider/core/path_lexer.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "platform/ascii.h"

namespace wifi {
namespace {

using platform::AsciiLower;
using platform::OleStringView;

// A number, including its sign or prefix, must be shorter than this.
constexpr std::size_t kNumberTextLimit = 32;

bool IsDigit(OLECHAR character) {
  return character >= OLECHAR('0') && character <= OLECHAR('9');
}

bool IsWordCharacter(OLECHAR character) {
  const OLECHAR lower = AsciiLower(character);
  return IsDigit(character) || character == OLECHAR('_') || character >= 0x80 ||
         (lower >= OLECHAR('a') && lower <= OLECHAR('z'));
}

PathToken::Kind Punctuation(OLECHAR character) {
  switch (character) {
    case OLECHAR('\\'):
    case OLECHAR('/'):
      return PathToken::kSlash;
    case OLECHAR(':'):
      return PathToken::kColon;
    case OLECHAR('.'):
      return PathToken::kDot;
    case OLECHAR('='):
      return PathToken::kEquals;
    case OLECHAR('@'):
      return PathToken::kAt;
    case OLECHAR(','):
      return PathToken::kComma;
    default:
      return PathToken::kError;
  }
}

}  // namespace

bool IsPathBlank(OLECHAR character) {
  return character == OLECHAR(' ') || (character >= OLECHAR('\t') && character <= OLECHAR('\r'));
}

bool PathToken::IsWord(OleStringView word) const {
  return kind == kWord && platform::SameIgnoringAsciiCase(word, text);
}

PathToken PathLexer::Next() {
  while (!rest_.empty() && IsPathBlank(rest_.front())) rest_.remove_prefix(1);
  if (rest_.empty()) return {PathToken::kEnd, {}, 0};
  const OLECHAR first = rest_.front();
  if (first == OLECHAR('"') || first == OLECHAR('\'')) return Quoted(first);
  if (IsDigit(first) || first == OLECHAR('-') || first == OLECHAR('+')) return Integer();
  if (!IsWordCharacter(first)) {
    rest_.remove_prefix(1);
    return {Punctuation(first), {}, 0};
  }
  const auto end = std::find_if_not(rest_.begin(), rest_.end(), IsWordCharacter);
  PathToken word{PathToken::kWord, {rest_.begin(), end}, 0};
  rest_.remove_prefix(word.text.size());
  return word;
}

PathToken PathLexer::Quoted(OLECHAR quote) {
  PathToken token{PathToken::kText, {}, 0};
  for (std::size_t index = 1; index < rest_.size(); ++index) {
    OLECHAR character = rest_[index];
    if (character == quote) {
      rest_.remove_prefix(index + 1);
      return token;
    }
    if (character == OLECHAR('\\')) {
      if (++index == rest_.size()) break;
      character = rest_[index];
      if (character != OLECHAR('\\') && character != OLECHAR('"') && character != OLECHAR('\'')) {
        break;
      }
    }
    token.text += character;
  }
  return {PathToken::kError, {}, 0};
}

PathToken PathLexer::Integer() {
  const auto end = std::find_if_not(rest_.begin() + 1, rest_.end(), IsWordCharacter);
  OleStringView text(rest_.data(), static_cast<std::size_t>(end - rest_.begin()));
  rest_.remove_prefix(text.size());
  PathToken error{PathToken::kError, {}, 0};
  if (text.size() >= kNumberTextLimit) return error;

  if (text.size() > 2 && text[0] == OLECHAR('0') && AsciiLower(text[1]) == OLECHAR('x')) {
    std::uint32_t bits = 0;
    for (const OLECHAR character : text.substr(2)) {
      const int digit = platform::HexDigit(character);
      if (digit < 0) return error;
      bits = bits << 4 | static_cast<std::uint32_t>(digit);
    }
    return {PathToken::kInteger, {}, static_cast<LONG>(bits)};
  }

  const bool negative = text.front() == OLECHAR('-');
  if (!IsDigit(text.front())) text.remove_prefix(1);
  if (text.empty() || !std::all_of(text.begin(), text.end(), IsDigit)) return error;
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  std::int64_t value = 0;
  for (const OLECHAR character : text) {
    value = std::min<std::int64_t>(value * 10 + (character - OLECHAR('0')), kMost + 1);
  }
  value = negative ? -value : std::min(value, kMost);
  return {PathToken::kInteger, {}, static_cast<LONG>(value)};
}

}  // namespace wifi
