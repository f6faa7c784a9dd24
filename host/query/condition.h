#pragma once
// The conditions of which a query consists.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/query/wql.h"

namespace host {

enum class Comparison { kEqual, kUnequal, kLess, kLessOrEqual, kGreater, kGreaterOrEqual, kLike };

/// The compared property: one of the class, or a system property.
struct Operand {
  std::size_t property = 0;
  std::string system = {};  ///< such as "__CLASS"; empty for a property of the class

  Json ValueIn(const CimObject& object) const;
};

/// Compares an operand with a literal: a text, a whole number or a boolean.
class CompareCondition final : public Condition {
 public:
  CompareCondition(Operand operand, Comparison comparison, Json literal);
  std::optional<bool> Holds(const CimObject& instance) const override;

 private:
  Operand operand_;
  Comparison comparison_;
  Json literal_;
};

class NullCondition final : public Condition {
 public:
  NullCondition(Operand operand, bool wanted) : operand_(std::move(operand)), wanted_(wanted) {}
  std::optional<bool> Holds(const CimObject& instance) const override {
    return operand_.ValueIn(instance).is_null() == wanted_;
  }

 private:
  Operand operand_;
  bool wanted_;
};

/// Whether an object belongs to a class or to one derived from it; also true for a class itself.
class IsaCondition final : public Condition {
 public:
  explicit IsaCondition(const ClassInfo& wanted) : wanted_(wanted) {}
  std::optional<bool> Holds(const CimObject& object) const override;

 private:
  const ClassInfo& wanted_;
};

class NotCondition final : public Condition {
 public:
  explicit NotCondition(std::unique_ptr<Condition> inner) : inner_(std::move(inner)) {}
  std::optional<bool> Holds(const CimObject& instance) const override;

 private:
  std::unique_ptr<Condition> inner_;
};

/// AND or OR of any number of operands: however long the chain, there is no recursion over it.
/// `decisive` is the value of one operand that decides the result: false for AND.
class ChainCondition final : public Condition {
 public:
  ChainCondition(bool decisive, std::vector<std::unique_ptr<Condition>> sides)
      : decisive_(decisive), sides_(std::move(sides)) {}
  std::optional<bool> Holds(const CimObject& instance) const override;

 private:
  bool decisive_;
  std::vector<std::unique_ptr<Condition>> sides_;
};

}  // namespace host
