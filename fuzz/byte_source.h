#pragma once

#include <algorithm>
#include <cstring>
#include <string>

#include "fuzz/fuzz_target.h"
#include "platform/bstr.h"
#include "platform/text.h"
#include "platform/variant.h"

/// Takes an input apart piece by piece; zeros after its end.
class ByteSource {
 public:
  explicit ByteSource(FuzzInput bytes) : rest_(bytes) {}

  bool empty() const { return rest_.empty(); }

  void Fill(void* room, std::size_t size) {
    std::memset(room, 0, size);
    const std::size_t count = std::min(size, rest_.size());
    if (count != 0) std::memcpy(room, rest_.data(), count);
    rest_ = rest_.subspan(count);
  }
  /// A record: arbitrary bytes, or the same byte throughout, so that no text in it is terminated.
  void Record(void* room, std::size_t size) {
    if (Below(4) == 3) {
      std::memset(room, Take<std::uint8_t>(), size);
    } else {
      Fill(room, size);
    }
  }
  template <class Number>
  Number Take() {
    Number number;
    Fill(&number, sizeof(number));
    return number;
  }
  /// A number below `end`.
  unsigned Below(unsigned end) { return Take<std::uint8_t>() % end; }

  /// Bytes; the first one is their number.
  std::string Bytes() {
    std::string text(std::min<std::size_t>(Take<std::uint8_t>(), rest_.size()), '\0');
    Fill(text.data(), text.size());
    return text;
  }
  platform::OleString Text() { return platform::WideText(Bytes()); }
  /// The rest of the input, one character per byte.
  platform::OleString TextToTheEnd() {
    platform::OleString text(rest_.begin(), rest_.end());
    rest_ = {};
    return text;
  }

  /// A value of any type, owned by `value`.
  void Value(VARIANT& value) {
    static constexpr VARTYPE kPointing[] = {VT_BSTR, VT_ARRAY | VT_BSTR, VT_ARRAY | VT_I4,
                                            VT_UNKNOWN};
    VariantInit(&value);
    const auto type = Take<std::uint16_t>();
    switch (type % 8) {
      case 0:
        value.vt = VT_BSTR;
        value.bstrVal = type < 0x8000 ? platform::Bstr(Text()).release() : nullptr;
        return;
      case 1:
        value.vt = VT_ARRAY | VT_BSTR;
        value.parray = NewArray(VT_BSTR);
        return;
      case 2:
        value.vt = VT_ARRAY | VT_I4;
        value.parray = NewArray(VT_I4);
        return;
      default:
        value.vt = static_cast<VARTYPE>(type >> 3 & 0x1F);
        for (const VARTYPE pointing : kPointing) {
          if (value.vt == pointing) return;  // to nothing
        }
        value.bits[0] = Take<std::uint64_t>();
    }
  }

 private:
  SAFEARRAY* NewArray(VARTYPE type) {
    SAFEARRAYBOUND bound = {Below(4), 0};
    return SafeArrayCreate(type, 1, &bound);
  }

  FuzzInput rest_;
};
