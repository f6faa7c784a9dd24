#pragma once
// The schema as rows for the output formats.

#include <string>

#include "host/service/repository.h"
#include "host/service/value.h"

namespace host {

/// Name and Description of every class that the provider serves.
Json ClassList(const Repository& repository);
/// Kind, Name, Type, Access, Units, Range, Values and Description of every property, method and
/// parameter of a class.
Json MembersOf(const ClassInfo& info);
/// The message that a class has no such method, with the names of its methods.
std::string NoMethod(const ClassInfo& info, const std::string& method);

}  // namespace host
