#pragma once

#include <string_view>
#include <utility>

#include "platform/short_text.h"
#include "provider/core/instance.h"

namespace wifi {

/// What happens after a put that failed.
enum class PutRule {
  kStopAtFailure,  ///< the later puts are skipped; the result is that of the failed put
  kGoOn,           ///< the later puts are made; the result is that of the last put
};

/// Writes the properties of one instance after the other, under one rule for failing puts.
///
///     PropertyWriter writer(instance, PutRule::kStopAtFailure);
///     writer.PutText(kSettingId, entry.deviceId);
///     return writer.result();
class PropertyWriter {
 public:
  explicit PropertyWriter(PutRule rule) : rule_(rule) {}
  PropertyWriter(IWbemClassObject* instance, PutRule rule) : instance_(instance), rule_(rule) {}

  /// Starts with another instance.
  void Begin(IWbemClassObject* instance) {
    instance_ = instance;
    result_ = S_OK;
  }

  HRESULT Put(const OLECHAR* name, platform::Variant value) {
    if (open()) result_ = PutPropertyValue(instance_, name, value.in_place());
    return result_;
  }
  /// For the key, which is put first. An exception of the instance is thrown on and ends the
  /// request.
  void PutKey(const OLECHAR* name, platform::OleStringView text) {
    result_ = PutOrRethrow(instance_, name, platform::Variant::Text(text).get());
  }
  HRESULT PutText(const OLECHAR* name, platform::OleStringView text) {
    return open() ? Put(name, platform::Variant::Text(text)) : result_;
  }
  HRESULT PutAnsi(const OLECHAR* name, std::string_view text) {
    return open() ? Put(name, platform::Variant::AnsiText(text)) : result_;
  }
  /// Puts the number as decimal text.
  HRESULT PutDecimal(const OLECHAR* name, std::int32_t number) {
    return PutAnsi(name, platform::ShortText<16>().Decimal(number));
  }
  /// Puts a VT_I4. A number above 0x7FFFFFFF becomes negative.
  HRESULT PutNumber(const OLECHAR* name, std::uint32_t value) {
    return Put(name, platform::Variant::Integer(static_cast<LONG>(value)));
  }
  HRESULT PutFlag(const OLECHAR* name, std::uint32_t flag) {
    return Put(name, platform::Variant::Boolean(flag != 0));
  }

  /// Whether the next put will be made.
  bool open() const { return rule_ == PutRule::kGoOn || SUCCEEDED(result_); }
  HRESULT result() const { return result_; }

 private:
  IWbemClassObject* instance_ = nullptr;
  PutRule rule_;
  HRESULT result_ = S_OK;
};

}  // namespace wifi
