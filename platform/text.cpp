#include "platform/text.h"

#include <cstdint>
#include <cstring>

namespace platform {
namespace {

std::string Narrow(UINT codePage, OleStringView text) {
  const int length = static_cast<int>(text.size());
  if (length == 0) return {};
  const int size =
      WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(codePage, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
  return narrow;
}

/// Converts `text` and returns the number of wide characters. `wide` must have room for one
/// character per byte of `text`.
UINT WidenInto(UINT codePage, std::string_view text, OLECHAR* wide) noexcept {
  const int length = static_cast<int>(text.size());
  if (length == 0) return 0;
  return static_cast<UINT>(MultiByteToWideChar(codePage, 0, text.data(), length, wide, length));
}

OleString Widen(UINT codePage, std::string_view text) {
  // A text never has more wide characters than bytes.
  OleString wide(text.size(), OLECHAR{});
  wide.resize(WidenInto(codePage, text, wide.data()));
  return wide;
}

/// The same for an ANSI text.
std::size_t WidenAnsiInto(std::string_view ansi, OLECHAR* wide) noexcept {
  // ASCII is copied without the converter: eight characters at a time, then the rest one by one.
  std::size_t ascii = 0;
  for (std::uint64_t eight; ascii + sizeof(eight) <= ansi.size(); ascii += sizeof(eight)) {
    char narrow[sizeof(eight)];
    OLECHAR widened[sizeof(eight)];
    std::memcpy(narrow, ansi.data() + ascii, sizeof(eight));
    std::memcpy(&eight, narrow, sizeof(eight));
    if ((eight & 0x8080808080808080) != 0) break;
    std::copy(std::begin(narrow), std::end(narrow), widened);
    std::memcpy(wide + ascii, widened, sizeof(widened));
  }
  for (; ascii < ansi.size() && static_cast<unsigned char>(ansi[ascii]) < 0x80; ++ascii) {
    wide[ascii] = static_cast<OLECHAR>(ansi[ascii]);
  }
  return ascii + WidenInto(CP_ACP, ansi.substr(ascii), wide + ascii);
}

}  // namespace

std::string AnsiText(const OLECHAR* text) {
  return Narrow(CP_ACP, ViewOf(text));
}
Bstr ThroughAnsi(OleStringView text) {
  // Most texts are ASCII, which the conversion does not change.
  const bool ascii = std::none_of(text.begin(), text.end(), [](OLECHAR c) { return c >= 0x80; });
  return ascii ? Bstr(text) : AnsiBstr(Narrow(CP_ACP, text));
}
OleString WideText(std::string_view ansi) {
  return Widen(CP_ACP, ansi);
}
Bstr AnsiBstr(std::string_view ansi) noexcept {
  Bstr wide = Bstr::OfLength(static_cast<UINT>(ansi.size()));
  if (!wide) return wide;
  const std::size_t length = WidenAnsiInto(ansi, wide.get());
  // The text is shorter than its buffer only if some characters have several bytes.
  return length == ansi.size() ? std::move(wide) : Bstr(OleStringView(wide.get(), length));
}
std::string Utf8Text(OleStringView text) {
  return Narrow(CP_UTF8, text);
}
OleString WideFromUtf8(std::string_view utf8) {
  return Widen(CP_UTF8, utf8);
}

}  // namespace platform
