#pragma once
// Conversions between the ANSI code page, UTF-8 and the platform's wide characters.

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/bstr.h"

namespace platform {

/// The ANSI form of a wide text; empty if `text` is null. Characters outside the code page get the
/// platform's best fit or default character.
std::string AnsiText(const OLECHAR* text);
/// The wide form of an ANSI text.
OleString WideText(std::string_view ansi);
/// The wide form as a BSTR, converted in place; null if out of memory.
Bstr AnsiBstr(std::string_view ansi) noexcept;
/// A wide text after conversion to the ANSI code page and back; null if out of memory.
Bstr ThroughAnsi(OleStringView text);

/// Whether `text` equals `ascii`; false if `text` is null.
inline bool EqualsAscii(const OLECHAR* text, std::string_view ascii) {
  const OleStringView wide = ViewOf(text);
  return text != nullptr && std::equal(wide.begin(), wide.end(), ascii.begin(), ascii.end(),
                                       [](OLECHAR one, char other) {
                                         return one == static_cast<unsigned char>(other);
                                       });
}

std::string Utf8Text(OleStringView text);
/// The wide form of a UTF-8 text. Invalid bytes become U+FFFD.
OleString WideFromUtf8(std::string_view utf8);

}  // namespace platform
