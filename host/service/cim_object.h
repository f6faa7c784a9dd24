#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/service/repository.h"
#include "host/service/value.h"
#include "platform/variant.h"

namespace host {

/// A text as object paths and MOF write it: in double quotes, with \ before each quote and \.
std::string Quoted(std::string_view text);

/// The spelling of a system property that can be shown with a class's own: __CLASS, __SUPERCLASS,
/// __RELPATH or __PATH; nullopt for any other name.
std::optional<std::string> SystemPropertyName(std::string_view name);

/// A class definition or an instance as a value: the properties that were put, their order and
/// their values. The class outlives it.
class CimObject {
 public:
  enum class Kind { kClass, kInstance };

  explicit CimObject(const ClassInfo& info, Kind kind = Kind::kInstance);
  CimObject(const CimObject& other);
  CimObject(CimObject&&) noexcept = default;
  CimObject& operator=(CimObject other) noexcept;

  const ClassInfo& info() const { return *info_; }
  bool IsClass() const { return kind_ == Kind::kClass; }

  /// Writes a property as the service does (see Convert); a failure changes nothing.
  HRESULT Put(std::size_t property, const VARIANT& value);
  /// Restores a property's default; it then counts as never put.
  void Reset(std::size_t property);
  /// The value that was put, else the default of the class, else VT_NULL.
  const VARIANT& Value(std::size_t property) const { return values_[property].get(); }
  /// The properties that were put, in the order of their first puts.
  const std::vector<std::size_t>& order() const { return order_; }

  /// Class.Key="value"; nullopt if a key has no value.
  std::optional<std::string> RelativePath() const;
  /// \\.\root\cimv2:Class.Key="value"
  std::optional<std::string> Path() const;
  /// The value of a system property that SystemPropertyName knows; null if it has no value.
  Json SystemValue(const std::string& name) const;
  /// The object as MOF text.
  std::string Text() const;

  /// The properties that were put, name to value, in the order of their first puts.
  Json ToJson() const;

 private:
  const ClassInfo* info_;
  Kind kind_;
  std::vector<platform::Variant> values_;
  std::vector<std::size_t> order_;
};

}  // namespace host
