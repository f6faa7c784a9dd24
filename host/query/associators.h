#pragma once
// ASSOCIATORS OF {path} and REFERENCES OF {path}. Their WHERE may give each of ResultClass,
// AssocClass, Role and ResultRole once, without AND between them, as the language requires.

#include <optional>
#include <string>
#include <string_view>

#include "host/service/cim_object.h"

namespace host {

struct AssociatorsQuery {
  bool references = false;  ///< the associations themselves, not the objects at their other ends
  std::string path;
  std::string assocClass;  ///< this and the following ones: empty if not given
  std::string resultClass;
  std::string role;        ///< the property that refers to the path
  std::string resultRole;  ///< the property that refers to the result
};

/// Reads such a query; nullopt for other texts. Throws QueryError.
std::optional<AssociatorsQuery> ParseAssociators(std::string_view text,
                                                 const Repository& repository);

/// The path that an object of a class with one key has in this reference: without a namespace, and
/// with the class's own key name, whatever name the reference uses.
std::string CanonicalPath(std::string_view reference, const Repository& repository);

}  // namespace host
