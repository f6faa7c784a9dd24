#include "host/format/visible_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

#include "host/format/utf8.h"

namespace host {
namespace {

constexpr std::size_t kMostOfError = 1800;  ///< bytes; a screen has 80 times 24 characters

struct Range {
  char32_t first;
  char32_t last;
};

// In ascending order.
constexpr Range kEscaped[] = {
    {0x00, 0x1F},      // C0
    {0x7F, 0x9F},      // DEL and C1
    {0x061C, 0x061C},  // Arabic letter mark
    {0x200E, 0x200F},  // left-to-right and right-to-left mark
    {0x2028, 0x202E},  // line and paragraph separator, direction embeddings and overrides
    {0x2066, 0x2069},  // direction isolates
};

bool IsEscaped(char32_t character) {
  const Range* range = std::ranges::lower_bound(kEscaped, character, {}, &Range::last);
  return range != std::end(kEscaped) && character >= range->first;
}

/// `ofByte` is the format of the escape for a one-byte character.
std::string Escaped(std::string_view utf8, const char* ofByte) {
  std::string text;
  for (std::size_t next = 0; next < utf8.size();) {
    const std::size_t start = next;
    const char32_t character = NextCharacter(utf8, &next);
    if (!IsEscaped(character)) {
      text += utf8.substr(start, next - start);
      continue;
    }
    std::array<char, 16> escape{};
    std::snprintf(escape.data(), escape.size(), next - start == 1 ? ofByte : "\\u%04x",
                  static_cast<unsigned>(character));
    text += escape.data();
  }
  return text;
}

}  // namespace

std::string VisibleText(std::string_view utf8) {
  return Escaped(utf8, "\\x%02x");
}

std::string ShortText(std::string_view utf8, std::size_t most) {
  std::string text = VisibleText(utf8);
  if (text.size() <= most) return text;
  const auto isWithin = [&text](std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
  };
  // Two thirds of it are the beginning; the end says what to do.
  std::size_t head = most * 2 / 3;
  std::size_t tail = text.size() - most / 4;
  while (head > 0 && isWithin(head)) --head;
  while (tail < text.size() && isWithin(tail)) ++tail;
  return text.replace(head, tail - head, " ... ");
}

TerminalGuard::~TerminalGuard() {
  WriteLine();
  terminal_.rdbuf(inner_);
}

bool TerminalGuard::WriteLine() {
  const std::string text = Escaped(line_, "\\u%04x");
  line_.clear();
  const auto size = static_cast<std::streamsize>(text.size());
  return inner_->sputn(text.data(), size) == size;
}

int TerminalGuard::overflow(int character) {
  if (character != '\n') {
    line_ += static_cast<char>(character);
    return character;
  }
  return WriteLine() ? inner_->sputc('\n') : traits_type::eof();
}

int TerminalGuard::sync() {
  return WriteLine() ? inner_->pubsync() : -1;
}

void WriteError(std::ostream& errors, std::string_view message) {
  errors << "wmihost: " << ShortText(message, kMostOfError) << '\n';
}

}  // namespace host
