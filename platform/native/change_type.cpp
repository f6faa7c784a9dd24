#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "platform/native/system.h"
#include "platform/native/value_types.h"

namespace {

struct Number {
  double real = 0;
  LONGLONG integer = 0;
  bool isReal = false;
  /// Integers of this size in bytes, signed or unsigned, take the bits unchanged.
  std::size_t sameBits = 0;
  bool isBoolean = false;
};

Number Integer(LONGLONG value, std::size_t sameBits) {
  return {static_cast<double>(value), value, false, sameBits, false};
}

bool IsBlank(OLECHAR unit) {
  return unit == u' ' || (unit >= 9 && unit <= 13) || unit == 0xA0;
}
bool IsDigit(char unit) {
  return unit >= '0' && unit <= '9';
}

// The text without leading and trailing blanks; nullopt if it is not ASCII.
std::optional<std::string> PlainText(BSTR text) {
  std::u16string_view view(text, SysStringLen(text));
  while (!view.empty() && IsBlank(view.front())) view.remove_prefix(1);
  while (!view.empty() && IsBlank(view.back())) view.remove_suffix(1);
  std::string plain;
  for (const OLECHAR unit : view) {
    if (unit >= 0x80) return std::nullopt;
    plain.push_back(static_cast<char>(unit));
  }
  return plain;
}

// Reads "&H1F" and "&O17". A number that fits in 16 bits, else one of 32, is taken as the bits of a
// signed integer of that size.
HRESULT ParseBits(std::string_view text, Number* number) {
  const char kind = text.size() < 2 ? '\0' : static_cast<char>(text[1] | 0x20);
  if (text.size() < 3 || (kind != 'h' && kind != 'o')) return DISP_E_TYPEMISMATCH;
  std::uint32_t bits = 0;
  const auto [end, error] =
      std::from_chars(text.data() + 2, text.data() + text.size(), bits, kind == 'h' ? 16 : 8);
  if (end != text.data() + text.size()) return DISP_E_TYPEMISMATCH;
  if (error == std::errc::result_out_of_range) return DISP_E_OVERFLOW;
  *number = Integer(bits, bits <= 0xFFFF ? 2 : 4);
  return S_OK;
}

// Removes one sign from the front or the end of the text. Returns 1 or -1, 0 if there is no sign.
int TakeSign(std::string_view* text) {
  const auto signOf = [](char unit) { return unit == '-' ? -1 : unit == '+' ? 1 : 0; };
  if (text->empty()) return 0;
  if (const int sign = signOf(text->front()); sign != 0) {
    text->remove_prefix(1);
    while (!text->empty() && IsBlank(static_cast<OLECHAR>(text->front()))) text->remove_prefix(1);
    return sign;
  }
  const int sign = signOf(text->back());
  if (sign != 0) text->remove_suffix(1);
  return sign;
}

HRESULT ParseDecimal(std::string_view text, Number* number) {
  const int sign = TakeSign(&text);
  // Commas group the digits before the point; they may follow every digit.
  std::string digits(text.substr(0, text.find_first_of(".eE")));
  if (!digits.empty() && digits.front() == ',') return DISP_E_TYPEMISMATCH;
  const std::size_t grouped = digits.size();
  std::erase(digits, ',');
  digits.append(text.substr(grouped));
  // std::from_chars would also accept a second sign and "inf" or "nan".
  if (digits.empty() || !(IsDigit(digits[0]) || digits[0] == '.')) return DISP_E_TYPEMISMATCH;
  double value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (end != digits.data() + digits.size()) return DISP_E_TYPEMISMATCH;
  if (error == std::errc::result_out_of_range) return DISP_E_OVERFLOW;
  if (error != std::errc()) return DISP_E_TYPEMISMATCH;
  *number = {sign < 0 ? -value : value, 0, true, 0, false};
  return S_OK;
}

HRESULT ParseNumber(BSTR text, Number* number) {
  const std::optional<std::string> plain = PlainText(text);
  if (!plain || plain->empty()) return DISP_E_TYPEMISMATCH;
  return plain->front() == '&' ? ParseBits(*plain, number) : ParseDecimal(*plain, number);
}

HRESULT NumberOf(const VARIANT& value, Number* number) {
  switch (value.vt) {
    case VT_EMPTY:
      return S_OK;
    case VT_I2:
      *number = Integer(value.iVal, 2);
      return S_OK;
    case VT_I4:
      *number = Integer(value.lVal, 4);
      return S_OK;
    case VT_UI1:
      *number = Integer(value.bVal, 1);
      return S_OK;
    case VT_UI2:
      *number = Integer(value.uiVal, 2);
      return S_OK;
    case VT_UI4:
      *number = Integer(value.ulVal, 4);
      return S_OK;
    case VT_R8:
      *number = {value.dblVal, 0, true, 0, false};
      return S_OK;
    case VT_BOOL:
      *number = Integer(value.boolVal, 2);
      number->isBoolean = true;
      return S_OK;
    case VT_BSTR:
      return ParseNumber(value.bstrVal, number);
    default:
      return DISP_E_TYPEMISMATCH;
  }
}

struct IntegerRange {
  VARTYPE type;
  LONGLONG least;
  LONGLONG most;
};
constexpr IntegerRange kIntegerRanges[] = {
    {VT_I2, -0x8000, 0x7FFF}, {VT_I4, -0x80000000LL, 0x7FFFFFFF}, {VT_UI1, 0, 0xFF},
    {VT_UI2, 0, 0xFFFF},      {VT_UI4, 0, 0xFFFFFFFFLL},
};

// Fractions are rounded to the nearest integer, halves to the even one.
HRESULT StoreInteger(const Number& number, const IntegerRange& range, VARIANT* value) {
  LONGLONG integer = number.integer;
  const std::size_t size = native::ElementSize(range.type);
  if (number.isReal) {
    const double rounded = std::nearbyint(number.real);
    if (!(rounded >= static_cast<double>(range.least) &&
          rounded <= static_cast<double>(range.most))) {
      return DISP_E_OVERFLOW;
    }
    integer = static_cast<LONGLONG>(rounded);
  } else if (!number.isBoolean && number.sameBits != size &&
             (integer < range.least || integer > range.most)) {
    return DISP_E_OVERFLOW;
  }
  std::memcpy(&value->bits, &integer, size);
  return S_OK;
}

// 15 digits. A small number is written out while 15 decimals hold it, where a single digit counts
// as two; else it has an exponent, as a large one has.
std::string RealText(double real) {
  constexpr int kDigits = 15;
  const auto write = [real](std::chars_format format, int precision) {
    char text[40];
    return std::string(text, std::to_chars(text, text + sizeof text, real, format, precision).ptr);
  };
  std::string text = write(std::chars_format::general, kDigits);
  const std::size_t exponent = text.find("e-");
  if (exponent == std::string::npos) {
    std::ranges::replace(text, 'e', 'E');
    return text;
  }
  const auto digits = static_cast<int>(std::ranges::count_if(text.substr(0, exponent), IsDigit));
  const int zeros = std::stoi(text.substr(exponent + 2));
  if (zeros + std::max(digits, 2) - 1 <= kDigits) {
    return write(std::chars_format::fixed, zeros + digits - 1);
  }
  text[exponent] = 'E';
  return text;
}

HRESULT StoreText(const VARIANT& source, VARIANT* value) {
  std::string text;
  if (source.vt != VT_EMPTY) {
    Number number;
    const HRESULT result = NumberOf(source, &number);
    if (FAILED(result)) return result;
    text = number.isReal ? RealText(number.real + 0.0) : std::to_string(number.integer);
  }
  const std::u16string wide(text.begin(), text.end());
  value->bstrVal = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  return value->bstrVal == nullptr ? E_OUTOFMEMORY : S_OK;
}

// Reads the words for a boolean; nullopt for any other value.
std::optional<VARIANT_BOOL> BooleanWord(const VARIANT& source) {
  if (source.vt != VT_BSTR) return std::nullopt;
  const std::u16string_view text(source.bstrVal, SysStringLen(source.bstrVal));
  const auto is = [text](std::u16string_view word) {
    return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, text.data(),
                          static_cast<int>(text.size()), word.data(),
                          static_cast<int>(word.size())) == CSTR_EQUAL;
  };
  if (text == u"#TRUE#" || is(u"True")) return VARIANT_TRUE;
  if (text == u"#FALSE#" || is(u"False")) return VARIANT_FALSE;
  return std::nullopt;
}

HRESULT Convert(const VARIANT& source, VARTYPE type, VARIANT* value) {
  if (source.vt == type) return VariantCopy(value, &source);
  if ((source.vt & VT_ARRAY) != 0 || source.vt == VT_NULL || source.vt == VT_ERROR) {
    return DISP_E_TYPEMISMATCH;
  }
  value->vt = type;
  switch (type) {
    case VT_EMPTY:
    case VT_NULL:
      return S_OK;
    case VT_BSTR:
      return StoreText(source, value);
    case VT_BOOL:
      if (const std::optional<VARIANT_BOOL> word = BooleanWord(source)) {
        value->boolVal = *word;
        return S_OK;
      }
      break;
    default:
      break;
  }
  Number number;
  const HRESULT result = NumberOf(source, &number);
  if (FAILED(result)) return result;
  if (type == VT_R8) {
    value->dblVal = number.real;
    return S_OK;
  }
  if (type == VT_BOOL) {
    value->boolVal = number.real != 0 ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  }
  for (const IntegerRange& range : kIntegerRanges) {
    if (range.type == type) return StoreInteger(number, range, value);
  }
  return DISP_E_TYPEMISMATCH;
}

}  // namespace

HRESULT VariantChangeType(VARIANT* destination, const VARIANT* source, USHORT, VARTYPE type) {
  if (destination == nullptr || source == nullptr) return E_INVALIDARG;
  if (!native::IsKnownType(source->vt) || !native::IsKnownType(type)) return DISP_E_BADVARTYPE;
  VARIANT converted{};
  HRESULT result = Convert(*source, type, &converted);
  if (FAILED(result)) return result;
  result = VariantClear(destination);
  if (FAILED(result)) {
    VariantClear(&converted);
    return result;
  }
  *destination = converted;
  return S_OK;
}
