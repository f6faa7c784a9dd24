#pragma once
// A dump whose instances can be found by adapter, and the reason why an instance is missing.

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/service/value.h"

namespace host {

/// The member of a dump that is not a class: also an array, with one object that says where the
/// dump comes from.
inline constexpr const char* kOriginMember = "wmihost";

/// The content of a dump, as `dump --format json` writes it. The JSON must outlive the object.
class Dump {
 public:
  explicit Dump(const Json& json);

  const Json& json() const { return json_; }
  /// The object that says where the dump comes from; empty if there is none.
  const Json& origin() const;
  /// The instances of a class, empty if the class is missing.
  const Json& Rows(std::string_view className) const;
  /// The first instance of a class for this adapter; an empty object if there is none.
  const Json& Row(std::string_view className, std::string_view adapter) const;
  /// The keys of all adapters that any class names, in the order in which the provider visits them:
  /// sorted as texts.
  const std::vector<std::string>& adapters() const { return adapters_; }

  /// Whether the dump contains the class.
  bool Has(std::string_view className) const { return readings_.contains(className); }
  /// The code with which the enumeration of a class ended.
  HRESULT Status(std::string_view className) const;
  /// The adapter at which the enumeration of a class ended early; empty if it reached all adapters,
  /// or if no single adapter is the cause.
  std::string EndedAt(std::string_view className) const;
  /// Why the class has no instance of this adapter, or not all of them, as words that follow a
  /// colon; empty if its instances are known.
  std::string WhyUnknown(std::string_view className, std::string_view adapter) const;
  /// The adapters that the enumeration of a class did not reach: those without an instance, or
  /// those with some, which were asked for by name.
  std::vector<std::string> NotReached(std::string_view className, bool withInstances) const;
  /// Whether instances that no enumeration reached were asked for by name, all that other classes
  /// of the dump name.
  bool AskedByName(std::string_view className) const;

 private:
  /// For searching texts by string views.
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };

  struct Reading {
    const Json* rows = nullptr;
    HRESULT status = S_OK;
    std::optional<std::size_t> ended = {};  ///< index in adapters_
    std::unordered_map<std::string, const Json*, TextHash, std::equal_to<>> first = {};
  };

  const Reading* Find(std::string_view className) const;
  void ReadFailures();
  void ReadEnds();
  void CollectAdapters();
  void FindEnd(std::string_view className, Reading& reading) const;

  const Json& json_;
  std::map<std::string, Reading, std::less<>> readings_;
  std::vector<std::string> adapters_;
};

/// The property with the adapter's key in each class with instances of adapters; null for other
/// classes.
const char* AdapterKeyOf(std::string_view className);
/// Whether a class shows a list for each adapter. Its enumeration ends at the first empty list.
bool ShowsLists(std::string_view className);

/// A property as text, empty if the row has none.
std::string TextOf(const Json& row, const char* name);
/// A property as a number, even if it is a text, with or without a unit after it.
std::optional<int> NumberOf(const Json& row, const char* name);

}  // namespace host
