#pragma once
// The schema for people: rows for the output formats.

#include <string>

#include "host/service/repository.h"
#include "host/service/value.h"

namespace host {

/// Name and Description of every class that the provider serves.
Json ClassList(const Repository& repository);
/// Kind, Name, Type, Access and Description of every property, method and parameter of a class.
Json MembersOf(const ClassInfo& info);
/// A class as a text to read: its description, then one paragraph for each member.
std::string ClassText(const ClassInfo& info);
/// "its methods are A, B", for messages.
std::string MethodNames(const ClassInfo& info);

}  // namespace host
