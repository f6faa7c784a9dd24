#include "methods/method_call.h"

#include "platform/text.h"
#include "provider/core/flag_value.h"

namespace wifi {

using platform::Variant;

std::optional<Variant> MethodCall::Value(const OLECHAR* name) const {
  Variant value;
  if (inParameters == nullptr || FAILED(GetPropertyValue(*inParameters, name, value))) {
    return std::nullopt;
  }
  return value;
}

std::optional<std::uint32_t> MethodCall::Flag(const OLECHAR* name) const {
  const std::optional<Variant> value = Value(name);
  const auto bits = value ? FlagBits(value->get()) : std::nullopt;
  if (!bits) return std::nullopt;
  return *bits != 0 ? 1 : 0;
}

std::optional<std::string> MethodCall::AnsiText(const OLECHAR* name) const {
  const std::optional<Variant> value = Value(name);
  if (!value || value->text() == nullptr) return std::nullopt;
  return platform::AnsiText(value->text());
}

}  // namespace wifi
