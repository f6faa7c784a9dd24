#pragma once

#include <string_view>
#include <utility>

#include "platform/reused_text.h"
#include "platform/short_text.h"
#include "provider/core/instance.h"

namespace wifi {

/// What becomes of the later puts once one has failed.
enum class PutRule {
  kStopAtFailure,  ///< none is made; the result is the failure's
  kGoOn,           ///< all are made; the result is the last one's
};

/// Writes the properties of an instance, a line each, under one rule for failing puts, then those
/// of the next. All its texts share one allocation.
class PropertyWriter {
 public:
  explicit PropertyWriter(PutRule rule) : rule_(rule) {}
  PropertyWriter(IWbemClassObject* instance, PutRule rule) : instance_(instance), rule_(rule) {}

  /// Goes on with another instance.
  void Begin(IWbemClassObject* instance) {
    instance_ = instance;
    result_ = S_OK;
  }

  HRESULT Put(const OLECHAR* name, platform::Variant value) {
    return PutInPlace(name, value.in_place());
  }
  /// For the key, which comes first: what the instance throws ends the request.
  void PutKey(const OLECHAR* name, platform::OleStringView text) {
    result_ = PutOrRethrow(instance_, name, *text_.Text(text));
  }
  HRESULT PutText(const OLECHAR* name, platform::OleStringView text) {
    return open() ? PutInPlace(name, text_.Text(text)) : result_;
  }
  HRESULT PutAnsi(const OLECHAR* name, std::string_view text) {
    return open() ? PutInPlace(name, text_.AnsiText(text)) : result_;
  }
  /// Decimal text.
  HRESULT PutDecimal(const OLECHAR* name, std::int32_t number) {
    return PutAnsi(name, platform::ShortText<16>().Decimal(number));
  }
  /// A 32-bit number; one above 0x7FFFFFFF comes out negative.
  HRESULT PutNumber(const OLECHAR* name, std::uint32_t value) {
    return Put(name, platform::Variant::Integer(static_cast<LONG>(value)));
  }
  HRESULT PutFlag(const OLECHAR* name, std::uint32_t flag) {
    return Put(name, platform::Variant::Boolean(flag != 0));
  }

  /// Whether the next put is made.
  bool open() const { return rule_ == PutRule::kGoOn || SUCCEEDED(result_); }
  HRESULT result() const { return result_; }

 private:
  HRESULT PutInPlace(const OLECHAR* name, VARIANT* value) {
    if (open()) result_ = PutPropertyValue(instance_, name, value);
    return result_;
  }

  IWbemClassObject* instance_ = nullptr;
  PutRule rule_;
  HRESULT result_ = S_OK;
  platform::ReusedText text_;
};

}  // namespace wifi
