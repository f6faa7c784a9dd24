#include "platform/text.h"

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

OleString Widen(UINT codePage, std::string_view text) {
  const int length = static_cast<int>(text.size());
  if (length == 0) return {};
  const int size = MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
  OleString wide(static_cast<std::size_t>(size), OLECHAR{});
  MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), size);
  return wide;
}

}  // namespace

std::string AnsiText(const OLECHAR* text) {
  return Narrow(CP_ACP, ViewOf(text));
}
OleString WideText(std::string_view ansi) {
  return Widen(CP_ACP, ansi);
}
std::string Utf8Text(OleStringView text) {
  return Narrow(CP_UTF8, text);
}
OleString WideFromUtf8(std::string_view utf8) {
  return Widen(CP_UTF8, utf8);
}

}  // namespace platform
