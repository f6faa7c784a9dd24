#include "host/query/wql.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

#include "host/query/condition.h"
#include "host/query/wql_lexer.h"

namespace host {
namespace {

using ConditionPtr = std::unique_ptr<Condition>;
using Kind = WqlToken::Kind;

constexpr std::array<std::pair<std::string_view, Comparison>, 8> kComparisons = {{
    {"=", Comparison::kEqual},
    {"<>", Comparison::kUnequal},
    {"!=", Comparison::kUnequal},
    {"<", Comparison::kLess},
    {"<=", Comparison::kLessOrEqual},
    {">", Comparison::kGreater},
    {">=", Comparison::kGreaterOrEqual},
    {"LIKE", Comparison::kLike},
}};

// Deeper nesting than any person writes; a bound for what a machine may send.
constexpr int kMaxDepth = 200;

class Parser {
 public:
  Parser(std::string_view text, const Repository& repository)
      : tokens_(CutWql(text)), repository_(repository) {}

  WqlQuery Run() {
    WqlQuery query;
    Expect("SELECT");
    std::vector<WqlToken> columns;
    if (!Take("*")) {
      do columns.push_back(Word("a column or *"));
      while (Take(","));
    }
    Expect("FROM");
    const WqlToken className = Word("a class name");
    info_ = repository_.FindClass(className.text);
    if (info_ == nullptr) {
      throw UnknownClassError("character " + std::to_string(className.position) +
                              ": there is no class '" + className.text + "'" +
                              repository_.DidYouMeanClass(className.text));
    }
    query.className = info_->name();
    for (const WqlToken& column : columns) {
      const std::optional<std::string> system = SystemPropertyName(column.text);
      query.columns.push_back(system ? *system
                                     : info_->declaration.properties[Property(column)].name);
    }
    if (Take("WHERE")) query.where = Or();
    if (tokens_[next_].kind != Kind::kEnd) Unexpected("the end of the query");
    return query;
  }

 private:
  ConditionPtr Or() { return Chain("OR", true, &Parser::And); }
  ConditionPtr And() { return Chain("AND", false, &Parser::Not); }

  ConditionPtr Chain(std::string_view word, bool decisive, ConditionPtr (Parser::*side)()) {
    std::vector<ConditionPtr> sides;
    do sides.push_back((this->*side)());
    while (Take(word));
    if (sides.size() == 1) return std::move(sides.front());
    return std::make_unique<ChainCondition>(decisive, std::move(sides));
  }

  ConditionPtr Not() {
    if (++depth_ > kMaxDepth) Fail(tokens_[next_], "the condition is nested too deeply");
    ConditionPtr condition;
    if (Take("NOT")) {
      condition = std::make_unique<NotCondition>(Not());
    } else if (Take("(")) {
      condition = Or();
      Expect(")");
    } else {
      condition = Compare();
    }
    --depth_;
    return condition;
  }

  ConditionPtr Compare() {
    const WqlToken name = Word("a property name");
    const std::size_t property = Property(name);
    if (Take("IS")) {
      const bool wanted = !Take("NOT");
      Expect("NULL");
      return std::make_unique<NullCondition>(property, wanted);
    }
    for (const auto& [symbol, comparison] : kComparisons) {
      if (!Take(symbol)) continue;
      const bool equality = comparison == Comparison::kEqual || comparison == Comparison::kUnequal;
      if (equality && Take("NULL")) {
        return std::make_unique<NullCondition>(property, comparison == Comparison::kEqual);
      }
      const WqlToken where = tokens_[next_];
      Json literal = Literal(comparison == Comparison::kLike);
      const CIMTYPE type = info_->declaration.properties[property].type;
      if (literal.is_string() && type == CIM_BOOLEAN) {
        Fail(where, name.text + " is a boolean; it is compared with TRUE or FALSE");
      }
      return std::make_unique<CompareCondition>(property, comparison, std::move(literal));
    }
    Unexpected("=, <>, <, <=, >, >=, LIKE or IS");
  }

  Json Literal(bool textOnly) {
    const WqlToken& token = tokens_[next_];
    if (token.kind == Kind::kText) {
      ++next_;
      return token.text;
    }
    if (textOnly) Unexpected("a text in quotes");
    if (token.kind == Kind::kNumber) return Number();
    if (Take("TRUE")) return true;
    if (Take("FALSE")) return false;
    Unexpected("a text in quotes, a whole number, TRUE, FALSE or NULL");
  }

  Json Number() {
    const WqlToken& token = tokens_[next_];
    const std::size_t sign = token.text.starts_with('+') ? 1 : 0;
    std::int64_t number = 0;
    const char* end = token.text.data() + token.text.size();
    if (std::from_chars(token.text.data() + sign, end, number).ec != std::errc()) {
      Fail(token, "the number " + token.text + " is too large");
    }
    ++next_;
    return number;
  }

  std::size_t Property(const WqlToken& name) {
    const std::optional<std::size_t> property = info_->FindProperty(name.text);
    if (!property) {
      Fail(name, info_->NoProperty(name.text));
    }
    return *property;
  }

  bool Take(std::string_view wordOrSymbol) {
    const WqlToken& token = tokens_[next_];
    const bool matches = (token.kind == Kind::kWord || token.kind == Kind::kSymbol) &&
                         SameName(token.text, wordOrSymbol);
    if (matches) ++next_;
    return matches;
  }
  void Expect(std::string_view wordOrSymbol) {
    if (!Take(wordOrSymbol)) Unexpected(std::string(wordOrSymbol));
  }
  const WqlToken& Word(const std::string& expected) {
    if (tokens_[next_].kind != Kind::kWord) Unexpected(expected);
    return tokens_[next_++];
  }

  [[noreturn]] void Unexpected(const std::string& expected) {
    Fail(tokens_[next_], "expected " + expected + ", found " + tokens_[next_].text);
  }
  [[noreturn]] static void Fail(const WqlToken& where, const std::string& what) {
    throw QueryError("character " + std::to_string(where.position) + ": " + what);
  }

  std::vector<WqlToken> tokens_;
  std::size_t next_ = 0;
  int depth_ = 0;
  const Repository& repository_;
  const ClassInfo* info_ = nullptr;
};

}  // namespace

WqlQuery ParseWql(std::string_view text, const Repository& repository) {
  return Parser(text, repository).Run();
}

}  // namespace host
