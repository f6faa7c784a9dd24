#pragma once
// What the instances of a schema tell the service about the provider.

#include "host/mof/schema.h"

namespace host {

std::vector<const InstanceDeclaration*> InstancesOf(const Schema& schema,
                                                    std::string_view className);

/// The text of an instance's property, empty if it has no such text.
std::string TextOf(const InstanceDeclaration& instance, std::string_view property);
/// The flag of an instance's property, false if it has no such flag.
bool FlagOf(const InstanceDeclaration& instance, std::string_view property);

/// The class identifier under which the schema registers its provider, "{…}"; empty if it does not.
std::string ProviderClassId(const Schema& schema);

}  // namespace host
