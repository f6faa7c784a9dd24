#include "host/mof/schema.h"

#include <algorithm>

namespace host {
namespace {

template <typename Item>
const Item* FindNamed(const std::vector<Item>& items, std::string_view name) {
  const auto found = std::ranges::find_if(
      items, [name](const Item& item) { return SameIgnoringAsciiCase(item.name, name); });
  return found == items.end() ? nullptr : &*found;
}

/// The one value of a scalar qualifier if it is of this kind.
template <typename Kind>
Kind ScalarOf(const Qualifier* qualifier) {
  if (qualifier == nullptr || qualifier->isArray || qualifier->values.empty()) return {};
  const Kind* value = std::get_if<Kind>(&qualifier->values.front());
  return value == nullptr ? Kind{} : *value;
}

}  // namespace

const Qualifier* Qualifiers::Find(std::string_view name) const {
  return FindNamed(list, name);
}

bool Qualifiers::Flag(std::string_view name) const {
  return ScalarOf<bool>(Find(name));
}

std::string Qualifiers::Text(std::string_view name) const {
  return ScalarOf<std::string>(Find(name));
}

const PropertyDeclaration* ClassDeclaration::FindProperty(std::string_view propertyName) const {
  return FindNamed(properties, propertyName);
}

}  // namespace host
