#pragma once
// The part of WQL that selects instances of one class:
//   SELECT * | column, … FROM class [WHERE condition] [;]
// with AND, OR, NOT, parentheses, = <> != < <= > >= with the constant on either side, LIKE (% _
// [set] [^set]), IS [NOT] NULL, __this ISA "class", and literals: text, whole numbers, TRUE, FALSE
// and NULL. FROM meta_class selects classes, by their system properties. Keywords, names and texts
// are compared without regard to the case of ASCII letters. A comparison with a missing value is
// neither true nor false.

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/service/cim_object.h"

namespace host {

/// Says what is wrong in a query, and at which character, counted from 1.
class QueryError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A query for a class that does not exist.
class UnknownClassError : public QueryError {
 public:
  using QueryError::QueryError;
};

/// A condition on one instance: true, false, or nullopt if a missing value decides.
class Condition {
 public:
  virtual ~Condition() = default;
  virtual std::optional<bool> Holds(const CimObject& instance) const = 0;
};

struct WqlQuery {
  std::string className;
  bool ofClasses = false;            ///< selects classes of the schema: FROM meta_class
  std::vector<std::string> columns;  ///< empty for all columns
  std::unique_ptr<Condition> where;  ///< null without a condition

  bool Selects(const CimObject& object) const {
    return where == nullptr || where->Holds(object).value_or(false);
  }
};

/// Reads a query; its property names must exist in its class. Throws QueryError.
WqlQuery ParseWql(std::string_view text, const Repository& repository);

/// Whether a text matches a LIKE pattern.
bool MatchesLike(std::string_view text, std::string_view pattern);

}  // namespace host
