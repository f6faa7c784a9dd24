#pragma once

#include <algorithm>
#include <string_view>

#include "platform/text.h"
#include "platform/variant.h"

namespace platform {

/// Texts that are handed out one after the other, each in the memory of the one before it, which is
/// a BSTR like any other: whoever is handed one may even take it over.
class ReusedText {
 public:
  ReusedText() noexcept = default;
  ReusedText(const ReusedText&) = delete;
  ReusedText& operator=(const ReusedText&) = delete;
  ~ReusedText() { Restore(); }

  /// The text as VT_BSTR, until the next one; VT_ERROR with E_OUTOFMEMORY if there is no memory.
  VARIANT* Text(OleStringView text) noexcept {
    if (!MakeRoom(text.size())) return value_.in_place();
    std::copy(text.begin(), text.end(), room_);
    return HandOut(text.size());
  }
  /// The same of an ANSI text.
  VARIANT* AnsiText(std::string_view ansi) noexcept {
    return MakeRoom(ansi.size()) ? HandOut(WidenAnsi(ansi, room_)) : value_.in_place();
  }

 private:
  static constexpr std::size_t kLeastRoom = 64;  // characters; nearly all texts are shorter

  /// Whether the text that was handed out last came back as it was.
  bool IsOurs() const noexcept {
    return room_ != nullptr && value_.text() == room_ && SysStringLen(room_) == length_;
  }
  /// What goes back to the platform has the length that it was made with.
  void Restore() noexcept {
    if (IsOurs()) SetTextLength(room_, size_);
  }
  bool MakeRoom(std::size_t length) noexcept {
    if (IsOurs() && length <= size_) return true;
    Restore();
    size_ = static_cast<UINT>(std::max(length, kLeastRoom));
    value_ = Variant::Owning(Bstr::OfLength(size_));
    room_ = value_.text();
    return room_ != nullptr;
  }
  VARIANT* HandOut(std::size_t length) noexcept {
    length_ = static_cast<UINT>(length);
    SetTextLength(room_, length_);
    return value_.in_place();
  }

  Variant value_;
  BSTR room_ = nullptr;  ///< of `value_`, as long as nobody took it over
  UINT size_ = 0;        ///< characters that it has room for
  UINT length_ = 0;      ///< of the text that was handed out
};

}  // namespace platform
