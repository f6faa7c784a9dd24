#pragma once
// The conditions that a query is made of.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/query/wql.h"

namespace host {

enum class Comparison { kEqual, kUnequal, kLess, kLessOrEqual, kGreater, kGreaterOrEqual, kLike };

/// Compares a property with a literal: a text, a whole number or a boolean.
class CompareCondition final : public Condition {
 public:
  CompareCondition(std::size_t property, Comparison comparison, Json literal);
  std::optional<bool> Holds(const CimObject& instance) const override;

 private:
  std::size_t property_;
  Comparison comparison_;
  Json literal_;
};

class NullCondition final : public Condition {
 public:
  NullCondition(std::size_t property, bool wanted) : property_(property), wanted_(wanted) {}
  std::optional<bool> Holds(const CimObject& instance) const override {
    return (instance.Value(property_).vt == VT_NULL) == wanted_;
  }

 private:
  std::size_t property_;
  bool wanted_;
};

class NotCondition final : public Condition {
 public:
  explicit NotCondition(std::unique_ptr<Condition> inner) : inner_(std::move(inner)) {}
  std::optional<bool> Holds(const CimObject& instance) const override;

 private:
  std::unique_ptr<Condition> inner_;
};

/// AND or OR of any number of sides, side by side: however long the chain, nothing recurses over
/// it. `decisive` is the value of one side that decides the whole: false for AND.
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
