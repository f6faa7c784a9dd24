#include "host/query/wql_lexer.h"

#include <algorithm>
#include <array>
#include <string>

#include "host/query/wql.h"

namespace host {
namespace {

constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_";
constexpr std::string_view kDigits = "0123456789";
// Longer symbols first.
constexpr std::array<std::string_view, 12> kSymbols = {"<=", ">=", "<>", "!=", "=", "<",
                                                       ">",  "*",  ",",  "(",  ")", ";"};

bool IsIn(char character, std::string_view set) {
  return set.find(character) != std::string_view::npos;
}

class Lexer {
 public:
  explicit Lexer(std::string_view query) : query_(query) {}

  std::vector<WqlToken> Run() {
    std::vector<WqlToken> tokens;
    while (true) {
      next_ = query_.find_first_not_of(" \t\r\n", next_);
      if (next_ == std::string_view::npos) break;
      tokens.push_back(Token());
    }
    tokens.push_back({WqlToken::Kind::kEnd, "the end", query_.size() + 1});
    return tokens;
  }

 private:
  WqlToken Token() {
    const char first = query_[next_];
    const std::size_t position = next_ + 1;
    if (first == '"' || first == '\'') return {WqlToken::Kind::kText, Text(first), position};
    if (IsIn(first, kLetters)) {
      return {WqlToken::Kind::kWord, Span(std::string(kLetters) + std::string(kDigits), next_),
              position};
    }
    const bool sign = first == '-' || first == '+';
    const std::size_t digits = next_ + (sign ? 1 : 0);
    if (digits < query_.size() && IsIn(query_[digits], kDigits)) {
      return {WqlToken::Kind::kNumber, Span(kDigits, digits), position};
    }
    for (const std::string_view symbol : kSymbols) {
      if (query_.substr(next_).starts_with(symbol)) {
        next_ += symbol.size();
        return {WqlToken::Kind::kSymbol, std::string(symbol), position};
      }
    }
    throw QueryError("character " + std::to_string(position) + ": unexpected '" +
                     std::string(1, first) + "'");
  }

  /// The token from here up to the first character after `start` that is not in `set`.
  std::string Span(std::string_view set, std::size_t start) {
    const std::size_t end = std::min(query_.find_first_not_of(set, start), query_.size());
    std::string span(query_.substr(next_, end - next_));
    next_ = end;
    return span;
  }

  std::string Text(char quote) {
    const std::size_t start = next_++;
    std::string text;
    while (next_ < query_.size() && query_[next_] != quote) {
      if (query_[next_] == '\\' && next_ + 1 < query_.size()) ++next_;
      text += query_[next_++];
    }
    if (next_ == query_.size()) {
      throw QueryError("character " + std::to_string(start + 1) + ": the text has no end");
    }
    ++next_;
    return text;
  }

  std::string_view query_;
  std::size_t next_ = 0;
};

}  // namespace

std::vector<WqlToken> CutWql(std::string_view query) {
  return Lexer(query).Run();
}

}  // namespace host
