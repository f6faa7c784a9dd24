#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/variant.h"

namespace wifi {

/// One key of an object path; without a name where the path gives one value alone.
struct PathKey {
  std::optional<platform::OleString> name;
  platform::Variant value;
};

/// A management object path in parts.
struct ParsedPath {
  std::optional<platform::OleString> server;  ///< without its slashes
  std::vector<platform::OleString> namespaces;
  std::optional<platform::OleString> className;
  std::vector<PathKey> keys;  ///< sorted by name after parsing
  bool singleton = false;     ///< CLASS=@

  /// The class name; none where the path names only a server or a namespace.
  const OLECHAR* class_text() const { return className ? className->c_str() : nullptr; }
  void AddKey(const OLECHAR* name, const VARIANT& value);
  /// NAME=VALUE joined by commas.
  platform::OleString KeyListText() const;
  /// The whole path.
  platform::OleString Text() const;
};

/// Which paths a parser accepts.
enum class PathFlag {
  kRelativeNamespace = 0,  ///< namespaces without a server are of this machine
  kAbsoluteNamespace = 1,  ///< namespaces need a server
  kEverything = 2,         ///< also a path that is only a server
};

enum class PathResult { kParsed = 0, kSyntaxError = 1, kInvalidArgument = 2 };

/// Reads object path texts:
///   [\\SERVER\NAMESPACE[\NAMESPACE…]:]CLASS[=@ | .KEY=VALUE[,KEY=VALUE…] | =VALUE]
/// Values are quoted texts (a backslash before a quote or a backslash), decimal or hexadecimal
/// integers, and the words TRUE and FALSE, which become the numbers 1 and 0.
class PathParser {
 public:
  explicit PathParser(PathFlag flag) : flag_(flag) {}

  /// On success `*path` owns the parts; otherwise it is none.
  PathResult Parse(const OLECHAR* text, std::unique_ptr<ParsedPath>* path) const;

 private:
  PathFlag flag_;
};

}  // namespace wifi
