#pragma once
// ASSOCIATORS OF {path} and REFERENCES OF {path}, with ResultClass, AssocClass, Role and ResultRole
// in a WHERE that names each once, without AND, as the language has it.

#include <optional>
#include <string>
#include <string_view>

#include "host/service/cim_object.h"

namespace host {

struct AssociatorsQuery {
  bool references = false;  ///< the associations themselves, not what stands at their other ends
  std::string path;
  std::string assocClass;  ///< each empty for any
  std::string resultClass;
  std::string role;        ///< the property that refers to the path
  std::string resultRole;  ///< the property that refers to the result
};

/// Reads such a query; none for a text that is none. Throws QueryError.
std::optional<AssociatorsQuery> ParseAssociators(std::string_view text,
                                                 const Repository& repository);

/// The path of an object that a class with one key has by this reference: without a namespace, and
/// with the class's own key name, whatever name the reference gives it.
std::string CanonicalPath(std::string_view reference, const Repository& repository);

}  // namespace host
