#pragma once
// Conversions of values between the declared types of the schema, VARIANT, JSON and typed text.

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/mof/schema.h"
#include "platform/variant.h"
#include "scenario/json.h"

namespace host {

using Json = nlohmann::ordered_json;

/// Converts `value` to the declared type as the service does for a put with type 0: NULL fits every
/// type, integers fit integer types that can hold them and become decimal text in a string, a text
/// fits only texts, a boolean only booleans. Anything else gives WBEM_E_TYPE_MISMATCH, an integer
/// that does not fit WBEM_E_VALUE_OUT_OF_RANGE; then `converted` is not changed.
HRESULT Convert(CIMTYPE type, const VARIANT& value, platform::Variant* converted);

/// A value of a MOF file in the declared type. Throws ValueError.
platform::Variant FromMof(CIMTYPE type, const std::vector<MofScalar>& values);

/// A value that a user types: text as it is typed, true or false, a decimal number, "null"; the
/// elements of an array are separated by commas. Throws ValueError, which says what is accepted.
platform::Variant FromTypedText(CIMTYPE type, std::string_view text);

/// Text (lone surrogates become U+FFFD), number, boolean, null or an array of those.
Json ToJson(CIMTYPE type, const VARIANT& value);

class ValueError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace host
