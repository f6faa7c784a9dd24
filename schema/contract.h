#pragma once
// The management schema as tables, made from wifi_adapter_provider.mof when the build is
// configured. The tables of the product are checked against it at compile time; tests, fuzzers and
// benchmarks iterate over it.
//
//     for (const contract::Method& row : contract::kMethods) Call(row.className, row.name);
//     static_assert(!contract::FindClass("WiFi_AdapterFeatures").name.empty());

#include <cstddef>
#include <iterator>
#include <string_view>

#include "platform/platform.h"

namespace contract {

/// A name, from narrow or wide characters. As a template argument it is shown in compiler messages.
struct Name {
  char letters[96] = {};

  constexpr Name() = default;
  constexpr Name(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) letters[at] = text[at];
  }
  constexpr Name(const char* text) : Name(std::string_view(text)) {}
  constexpr Name(const OLECHAR* text) {
    for (std::size_t at = 0; text[at] != 0; ++at) letters[at] = static_cast<char>(text[at]);
  }
  /// CLASS.MEMBER
  constexpr Name(const Name& className, const Name& member) : Name(className.view()) {
    std::size_t end = className.view().size();
    letters[end] = '.';
    for (const char letter : member.view()) letters[++end] = letter;
  }
  constexpr std::string_view view() const { return letters; }
  constexpr bool operator==(const Name& other) const { return view() == other.view(); }
};

struct Class {
  std::string_view name;
  std::string_view keys;  ///< the names of the keys, separated by blanks
  bool isWritten;         ///< whether a property of the class can be written
};

struct Property {
  std::string_view className;
  std::string_view name;
  CIMTYPE type;  ///< with CIM_FLAG_ARRAY for an array
  bool isKey;
  bool isWritten;
};

struct Method {
  std::string_view className;
  std::string_view name;
  CIMTYPE returnType;
};

struct Parameter {
  std::string_view className;
  std::string_view method;
  std::string_view name;
  CIMTYPE type;
  bool isOut;
};

inline constexpr Class kClasses[] = {
#define CONTRACT_CLASS(name, keys, isWritten) {#name, keys, isWritten},
#include "schema/contract.inc"
};
inline constexpr Property kProperties[] = {
#define CONTRACT_PROPERTY(className, name, type, isKey, isWritten) \
  {#className, #name, type, isKey, isWritten},
#include "schema/contract.inc"
};
inline constexpr Method kMethods[] = {
#define CONTRACT_METHOD(className, name, returnType) {#className, #name, returnType},
#include "schema/contract.inc"
};
inline constexpr Parameter kParameters[] = {
#define CONTRACT_PARAMETER(className, method, name, type, isOut) \
  {#className, #method, #name, type, isOut},
#include "schema/contract.inc"
};

// Rows are returned by value, without a name if the schema has no such row. Not by address: with
// UndefinedBehaviorSanitizer GCC does not take a comparison with null for a constant.

constexpr Class FindClass(const Name& name) {
  for (const Class& row : kClasses) {
    if (row.name == name.view()) return row;
  }
  return {};
}

/// A property or method of a class by its name.
template <class Row, std::size_t Count>
constexpr Row FindMember(const Row (&rows)[Count], const Name& className, const Name& name) {
  const std::string_view wantedClass = className.view();
  const std::string_view wanted = name.view();
  for (const Row& row : rows) {
    if (row.name == wanted && row.className == wantedClass) return row;
  }
  return {};
}
constexpr Property FindProperty(const Name& className, const Name& name) {
  return FindMember(kProperties, className, name);
}
constexpr Method FindMethod(const Name& className, const Name& name) {
  return FindMember(kMethods, className, name);
}

/// The out-parameter of a method.
constexpr Parameter FindOut(const Name& className, const Name& method) {
  for (const Parameter& row : kParameters) {
    if (row.isOut && row.className == className.view() && row.method == method.view()) return row;
  }
  return {};
}

/// Whether the table has a row with this className.
template <class Row, std::size_t Count>
constexpr bool HasRow(const Row (&rows)[Count], const Name& className) {
  for (const Row& row : rows) {
    if (Name(row.className) == className) return true;
  }
  return false;
}

/// The first className of a table that the schema does not have; empty if it has all of them.
template <class Row, std::size_t Count>
constexpr Name UnknownClass(const Row (&rows)[Count]) {
  for (const Row& row : rows) {
    if (FindClass(row.className).name.empty()) return row.className;
  }
  return {};
}

/// Compiles only if `Unknown` is empty. Otherwise the compiler shows the name that the schema does
/// not have.
template <Name Unknown>
constexpr bool IsKnown() {
  static_assert(Unknown.view().empty(),
                "a row of this table names what the schema lacks: declare it in "
                "schema/wifi_adapter_provider.mof");
  return true;
}

}  // namespace contract
