#pragma once
// A dump whose instances are found by their adapter, and why an instance is missing.

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/service/value.h"

namespace host {

/// The member of a dump that is no class: like one, an array, with one object that says where the
/// dump comes from.
inline constexpr const char* kOriginMember = "wmihost";

/// What `dump --format json` writes, or reads of it. The JSON outlives the object.
class Dump {
 public:
  explicit Dump(const Json& json);

  const Json& json() const { return json_; }
  /// The object that says where the dump comes from; empty if it does not say.
  const Json& origin() const;
  /// The instances of a class, none if it is not there.
  const Json& Rows(std::string_view className) const;
  /// The first instance of a class that is this adapter's; an empty object without one.
  const Json& Row(std::string_view className, std::string_view adapter) const;
  /// The keys of all adapters that any class names, in the order in which the provider walks over
  /// them: that of their texts.
  const std::vector<std::string>& adapters() const { return adapters_; }

  /// Whether the dump has the class at all.
  bool Has(std::string_view className) const { return readings_.contains(className); }
  /// The code with which the enumeration of a class ended.
  HRESULT Status(std::string_view className) const;
  /// The adapter at which the enumeration of a class ended early; empty if it reached all, or if
  /// no adapter can be blamed.
  std::string EndedAt(std::string_view className) const;
  /// Why the class has no instance of this adapter, or not all: in words that follow a colon; empty
  /// if its instances are known.
  std::string WhyUnknown(std::string_view className, std::string_view adapter) const;
  /// The adapters of which the enumeration of a class was to say something and did not get to.
  std::vector<std::string> NotReached(std::string_view className) const;

 private:
  /// Finds texts by views of them.
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };

  struct Reading {
    const Json* rows = nullptr;
    HRESULT status = S_OK;
    std::optional<std::size_t> ended = {};  ///< place in adapters_
    std::unordered_map<std::string, const Json*, TextHash, std::equal_to<>> first = {};
  };

  const Reading* Find(std::string_view className) const;
  void ReadFailures();
  void CollectAdapters();
  void FindEnd(std::string_view className, Reading& reading) const;

  const Json& json_;
  std::map<std::string, Reading, std::less<>> readings_;
  std::vector<std::string> adapters_;
};

/// The property that holds the adapter's key in each class with instances of adapters; null for the
/// other classes.
const char* AdapterKeyOf(std::string_view className);
/// Whether a class shows a list of each adapter. Its enumeration ends at the first that is empty.
bool ShowsLists(std::string_view className);

/// A property as text, empty if the row has none.
std::string TextOf(const Json& row, const char* name);
/// A property as a number, also one that stands as text, with or without a unit behind it.
std::optional<int> NumberOf(const Json& row, const char* name);

}  // namespace host
