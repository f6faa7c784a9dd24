#pragma once

#include <string_view>
#include <utility>

#include "provider/core/instance.h"

namespace wifi {

/// What becomes of the later puts once one has failed.
enum class PutRule {
  kStopAtFailure,  ///< none is made; the result is the failure's
  kGoOn,           ///< all are made; the result is the last one's
};

/// Writes the properties of one instance, a line each, under one rule for failing puts.
class PropertyWriter {
 public:
  PropertyWriter(IWbemClassObject* instance, PutRule rule) : instance_(instance), rule_(rule) {}

  HRESULT Put(const OLECHAR* name, platform::Variant value) {
    if (open()) result_ = PutPropertyValue(instance_, name, std::move(value));
    return result_;
  }
  /// For the key: what the instance throws ends the request.
  HRESULT PutKey(const OLECHAR* name, const platform::Variant& value) {
    if (open()) result_ = PutDirectly(instance_, name, value.get());
    return result_;
  }
  HRESULT PutText(const OLECHAR* name, platform::OleStringView text) {
    return Put(name, platform::Variant::Text(text));
  }
  HRESULT PutAnsi(const OLECHAR* name, std::string_view text) {
    return Put(name, platform::Variant::AnsiText(text));
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
  IWbemClassObject* instance_;
  PutRule rule_;
  HRESULT result_ = S_OK;
};

}  // namespace wifi
