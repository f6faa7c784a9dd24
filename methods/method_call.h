#pragma once

#include <optional>
#include <string>

#include "provider/core/instance.h"

namespace wifi {

/// One running method. In-parameters that are missing, or hold another kind of value, read as none.
struct MethodCall {
  ProviderState& state;
  const ParsedPath& path;
  IWbemClassObject* inParameters;  ///< may be none
  const AdapterEntry* entry;       ///< whose key the path holds; none for profile methods

  adapterapi::AdapterNumber adapter() const { return entry->number; }

  /// The in-parameter as it stands.
  std::optional<platform::Variant> Value(const OLECHAR* name) const;
  /// A boolean as 1 or 0.
  std::optional<std::uint32_t> Flag(const OLECHAR* name) const;
  /// A text in the ANSI code page.
  std::optional<std::string> AnsiText(const OLECHAR* name) const;
};

/// What a method answers. As it starts: ReturnValue FALSE, nothing besides.
struct MethodResult {
  platform::Variant returnValue = platform::Variant::Boolean(false);
  std::optional<LONG> extra = {};  ///< the second out-parameter, where the method has one
};

/// ReturnValue TRUE or FALSE.
inline MethodResult Answer(bool succeeded) {
  return {platform::Variant::Boolean(succeeded)};
}

/// Runs one method. What it throws is for the caller, who answers FALSE.
using MethodBody = MethodResult (*)(const MethodCall&);

}  // namespace wifi
