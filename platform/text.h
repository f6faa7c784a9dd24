#pragma once
// Texts between the ANSI code page, UTF-8 and the platform's wide characters.

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/bstr.h"

namespace platform {

/// The ANSI form of a wide text; a missing text is empty. Characters that the code page lacks
/// become what the platform makes of them, without a default character of ours.
std::string AnsiText(const OLECHAR* text);
/// The wide form of an ANSI text.
OleString WideText(std::string_view ansi);
/// The same, into room for as many characters as the text has bytes; answers how many there are.
std::size_t WidenAnsi(std::string_view ansi, OLECHAR* wide) noexcept;
/// The same as a BSTR, converted straight into it; none if there is no memory for it.
Bstr AnsiBstr(std::string_view ansi) noexcept;

/// Whether a wide text, which may be missing, is this one of ASCII characters.
inline bool EqualsAscii(const OLECHAR* text, std::string_view ascii) {
  const OleStringView wide = ViewOf(text);
  return text != nullptr && std::equal(wide.begin(), wide.end(), ascii.begin(), ascii.end(),
                                       [](OLECHAR one, char other) {
                                         return one == static_cast<unsigned char>(other);
                                       });
}

std::string Utf8Text(OleStringView text);
/// The wide form of a UTF-8 text; bytes that are no UTF-8 become U+FFFD.
OleString WideFromUtf8(std::string_view utf8);

}  // namespace platform
