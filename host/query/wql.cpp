#include "host/query/wql.h"

#include <charconv>
#include <cstdint>
#include <utility>

#include "host/query/condition.h"
#include "host/query/wql_lexer.h"

namespace host {
namespace {

using ConditionPtr = std::unique_ptr<Condition>;
using Kind = WqlToken::Kind;

struct ComparisonRow {
  std::string_view symbol;
  Comparison comparison;
  Comparison mirrored;  ///< the comparison with exchanged operands
};
constexpr ComparisonRow kComparisons[] = {
    {"=", Comparison::kEqual, Comparison::kEqual},
    {"<>", Comparison::kUnequal, Comparison::kUnequal},
    {"!=", Comparison::kUnequal, Comparison::kUnequal},
    {"<", Comparison::kLess, Comparison::kGreater},
    {"<=", Comparison::kLessOrEqual, Comparison::kGreaterOrEqual},
    {">", Comparison::kGreater, Comparison::kLess},
    {">=", Comparison::kGreaterOrEqual, Comparison::kLessOrEqual},
};

/// The class that stands for all classes after FROM; it has only system properties.
const ClassInfo& MetaClass() {
  static const ClassInfo info = [] {
    ClassInfo made;
    made.declaration.name = "meta_class";
    return made;
  }();
  return info;
}

// Deeper than any user nests; a limit for what a program may send.
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
    query.ofClasses = SameIgnoringAsciiCase(className.text, MetaClass().name());
    info_ = query.ofClasses ? &MetaClass() : repository_.FindClass(className.text);
    if (info_ == nullptr) FailOnClass(className);
    query.className = info_->name();
    for (const WqlToken& column : columns) {
      const Operand operand = OperandOf(column);
      query.columns.push_back(operand.system.empty()
                                  ? info_->declaration.properties[operand.property].name
                                  : operand.system);
    }
    if (Take("WHERE")) query.where = Or();
    Take(";");
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
    if (Take("__THIS")) return Isa();
    if (IsConstant()) return CompareWithConstant();
    const WqlToken name = Word("a property name");
    Operand operand = OperandOf(name);
    if (Take("IS")) {
      const bool wanted = !Take("NOT");
      Expect("NULL");
      return std::make_unique<NullCondition>(std::move(operand), wanted);
    }
    if (Take("LIKE")) {
      return std::make_unique<CompareCondition>(std::move(operand), Comparison::kLike,
                                                Literal(true));
    }
    const ComparisonRow& row = Symbol("=, <>, <, <=, >, >=, LIKE or IS");
    const WqlToken where = tokens_[next_];
    return Compared(name, std::move(operand), row.comparison, where, Literal(false));
  }

  /// "802.11g" = Band
  ConditionPtr CompareWithConstant() {
    const WqlToken where = tokens_[next_];
    Json literal = Literal(false);
    const Comparison mirrored = Symbol("=, <>, <, <=, > or >=").mirrored;
    const WqlToken name = Word("a property name");
    return Compared(name, OperandOf(name), mirrored, where, std::move(literal));
  }

  ConditionPtr Compared(const WqlToken& name, Operand operand, Comparison comparison,
                        const WqlToken& where, Json literal) {
    const bool equality = comparison == Comparison::kEqual || comparison == Comparison::kUnequal;
    if (literal.is_null()) {
      if (!equality) Fail(where, "NULL is compared by =, <>, IS or IS NOT");
      return std::make_unique<NullCondition>(std::move(operand), comparison == Comparison::kEqual);
    }
    const bool isFlag = operand.system.empty() &&
                        info_->declaration.properties[operand.property].type == CIM_BOOLEAN;
    if (literal.is_string() && isFlag) {
      Fail(where, name.text + " is a boolean; it is compared with TRUE or FALSE");
    }
    return std::make_unique<CompareCondition>(std::move(operand), comparison, std::move(literal));
  }

  ConditionPtr Isa() {
    Expect("ISA");
    const WqlToken& name = tokens_[next_];
    if (name.kind != Kind::kText && name.kind != Kind::kWord) Unexpected("a class name in quotes");
    const ClassInfo* wanted = repository_.FindClass(name.text);
    if (wanted == nullptr) FailOnClass(name);
    ++next_;
    return std::make_unique<IsaCondition>(*wanted);
  }

  /// Whether the next token is a literal, and not a property with a literal's name.
  bool IsConstant() const {
    const WqlToken& token = tokens_[next_];
    if (token.kind == Kind::kText || token.kind == Kind::kNumber) return true;
    const bool isNamed = SameIgnoringAsciiCase(token.text, "TRUE") ||
                         SameIgnoringAsciiCase(token.text, "FALSE") ||
                         SameIgnoringAsciiCase(token.text, "NULL");
    return token.kind == Kind::kWord && isNamed && !info_->FindProperty(token.text);
  }

  const ComparisonRow& Symbol(const std::string& expected) {
    for (const ComparisonRow& row : kComparisons) {
      if (Take(row.symbol)) return row;
    }
    Unexpected(expected);
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
    if (Take("NULL")) return nullptr;
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

  Operand OperandOf(const WqlToken& name) {
    if (const auto system = SystemPropertyName(name.text)) return {0, *system};
    const std::optional<std::size_t> property = info_->FindProperty(name.text);
    if (!property && info_ == &MetaClass()) {
      Fail(name,
           "meta_class has __CLASS, __SUPERCLASS, __RELPATH and __PATH, no '" + name.text + "'");
    }
    if (!property) Fail(name, info_->NoProperty(name.text));
    return {*property};
  }

  bool Take(std::string_view wordOrSymbol) {
    const WqlToken& token = tokens_[next_];
    const bool matches = (token.kind == Kind::kWord || token.kind == Kind::kSymbol) &&
                         SameIgnoringAsciiCase(token.text, wordOrSymbol);
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
  [[noreturn]] void FailOnClass(const WqlToken& name) const {
    throw UnknownClassError("character " + std::to_string(name.position) + ": there is no class '" +
                            name.text + "'" + repository_.DidYouMeanClass(name.text));
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
