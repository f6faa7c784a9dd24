#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/native/letter_case.h"
#include "platform/native/system.h"
#include "platform/tables/code_page_1252.h"

namespace {

struct BestFitRun {
  OLECHAR first;
  const char* bytes;
};
constexpr BestFitRun kBestFit[] = {
#include "platform/native/best_fit_1252.inc"
};

constexpr OLECHAR WideOf(BYTE byte) {
  return byte >= 0x80 && byte < 0xA0 ? platform::kCodePage1252Controls[byte - 0x80] : byte;
}

// The byte for each character, exact or best fit; 0 if it has neither.
const std::array<BYTE, 0x10000>& ByteTable() {
  static const auto table = [] {
    std::array<BYTE, 0x10000> bytes{};
    for (const BestFitRun& run : kBestFit) {
      for (std::size_t i = 0; run.bytes[i] != '\0'; ++i) {
        bytes[run.first + i] = static_cast<BYTE>(run.bytes[i]);
      }
    }
    for (unsigned byte = 0; byte < 0x100; ++byte) {
      bytes[WideOf(static_cast<BYTE>(byte))] = static_cast<BYTE>(byte);
    }
    return bytes;
  }();
  return table;
}

// Counts all units, and writes those that fit in the caller's buffer.
template <class Unit>
class Output {
 public:
  Output(Unit* room, int size) : room_(room), size_(size) {}

  void Put(unsigned unit) {
    if (count_ < size_) room_[count_] = static_cast<Unit>(unit);
    ++count_;
  }

  // The result for the caller. A size of 0 asks for the length only.
  int Finish() const {
    if (size_ != 0 && count_ > size_) {
      SetLastError(ERROR_INSUFFICIENT_BUFFER);
      return 0;
    }
    return static_cast<int>(count_);
  }

 private:
  Unit* room_;
  int size_;
  LONGLONG count_ = 0;
};

// Checks the arguments of both directions. A negative length includes the terminator.
template <class From, class To>
bool CheckArguments(UINT codePage, const From* from, int fromLength, const To* to, int toLength,
                    std::basic_string_view<From>* input) {
  if ((codePage != CP_ACP && codePage != CP_UTF8) || from == nullptr || fromLength == 0 ||
      toLength < 0 || (to == nullptr && toLength != 0)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return false;
  }
  *input = {from, fromLength < 0 ? std::char_traits<From>::length(from) + 1
                                 : static_cast<std::size_t>(fromLength)};
  return true;
}

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kInvalid = 0xFFFFFFFF;

// Removes one character from the text, which is not empty. From a broken sequence it removes the
// bytes up to and including the one that makes it invalid, but never a byte that may begin a
// character.
char32_t TakeUtf8(std::string_view* text) {
  const auto next = [text] {
    const auto byte = static_cast<BYTE>(text->front());
    text->remove_prefix(1);
    return byte;
  };
  const BYTE lead = next();
  if (lead < 0x80) return lead;
  if (lead < 0xC2 || lead > 0xF4) return kInvalid;
  const int more = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  const BYTE least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const BYTE most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  char32_t character = lead & (0x3Fu >> more);
  for (int i = 0; i < more; ++i) {
    if (text->empty() || (static_cast<BYTE>(text->front()) & 0xC0) != 0x80) return kInvalid;
    const BYTE byte = next();
    if (i == 0 && (byte < least || byte > most)) return kInvalid;
    character = (character << 6) | (byte & 0x3Fu);
  }
  return character;
}

// Removes one character from the text, which is not empty.
char32_t TakeUtf16(std::u16string_view* text) {
  // cppcheck-suppress containerOutOfBounds
  const char32_t unit = text->front();
  text->remove_prefix(1);
  if (unit < 0xD800 || unit > 0xDFFF) return unit;
  if (unit > 0xDBFF || text->empty() || (text->front() & 0xFC00) != 0xDC00) return kInvalid;
  const char32_t low = text->front();
  text->remove_prefix(1);
  return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

void PutUtf8(char32_t character, Output<char>* output) {
  if (character < 0x80) {
    output->Put(character);
    return;
  }
  const int more = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
  constexpr BYTE kLeads[] = {0, 0xC0, 0xE0, 0xF0};
  output->Put(kLeads[more] | (character >> (6 * more)));
  for (int i = more - 1; i >= 0; --i) output->Put(0x80 | (character >> (6 * i) & 0x3F));
}

}  // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int length, LPWSTR wide,
                        int wideLength) {
  std::string_view input;
  if (!CheckArguments(codePage, text, length, wide, wideLength, &input)) return 0;
  Output<OLECHAR> output(wide, wideLength);
  if (codePage == CP_ACP) {
    for (const char byte : input) output.Put(WideOf(static_cast<BYTE>(byte)));
    return output.Finish();
  }
  while (!input.empty()) {
    char32_t character = TakeUtf8(&input);
    if (character == kInvalid) {
      if ((flags & MB_ERR_INVALID_CHARS) != 0) {
        SetLastError(ERROR_NO_UNICODE_TRANSLATION);
        return 0;
      }
      character = kReplacement;
    }
    if (character < 0x10000) {
      output.Put(character);
    } else {
      output.Put(0xD800 + ((character - 0x10000) >> 10));
      output.Put(0xDC00 + (character & 0x3FF));
    }
  }
  return output.Finish();
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int wideLength, LPSTR text,
                        int length, LPCSTR defaultChar, BOOL* usedDefaultChar) {
  std::u16string_view input;
  if (!CheckArguments(codePage, wide, wideLength, text, length, &input)) return 0;
  Output<char> output(text, length);
  BOOL used = FALSE;
  if (codePage == CP_ACP) {
    const BYTE substitute = static_cast<BYTE>(defaultChar == nullptr ? '?' : *defaultChar);
    for (const OLECHAR unit : input) {
      const BYTE byte = ByteTable()[unit];
      const bool exact = WideOf(byte) == unit;
      const bool fits = exact || (byte != 0 && (flags & WC_NO_BEST_FIT_CHARS) == 0);
      used |= !fits;
      output.Put(fits ? byte : substitute);
    }
  } else {
    while (!input.empty()) {
      const char32_t character = TakeUtf16(&input);
      PutUtf8(character == kInvalid ? kReplacement : character, &output);
    }
  }
  if (usedDefaultChar != nullptr) *usedDefaultChar = used;
  return output.Finish();
}

int CompareStringW(LCID, DWORD flags, LPCWSTR left, int leftLength, LPCWSTR right,
                   int rightLength) {
  if (left == nullptr || right == nullptr) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  const auto view = [](LPCWSTR text, int length) {
    return length < 0 ? std::u16string_view(text)
                      : std::u16string_view(text, static_cast<std::size_t>(length));
  };
  const bool fold = (flags & NORM_IGNORECASE) != 0;
  const auto unitOf = [fold](OLECHAR unit) { return fold ? native::Capital(unit) : unit; };
  const std::u16string_view first = view(left, leftLength);
  const std::u16string_view second = view(right, rightLength);
  const auto order = std::lexicographical_compare_three_way(
      first.begin(), first.end(), second.begin(), second.end(),
      [&](OLECHAR one, OLECHAR other) { return unitOf(one) <=> unitOf(other); });
  return order < 0 ? CSTR_LESS_THAN : order > 0 ? CSTR_GREATER_THAN : CSTR_EQUAL;
}

int LCMapStringW(LCID, DWORD flags, LPCWSTR text, int length, LPWSTR mapped, int mappedLength) {
  if (flags != LCMAP_UPPERCASE || text == nullptr || length <= 0 || mappedLength < length) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  std::transform(text, text + length, mapped, native::Capital);
  return length;
}
