#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/variant.h"

namespace wifi {

/// One key of an object path. It has no name if the path contains only a value.
struct PathKey {
  std::optional<platform::OleString> name;
  platform::Variant value;
};

/// The parts of a management object path.
struct ParsedPath {
  std::optional<platform::OleString> server;  ///< without slashes
  std::vector<platform::OleString> namespaces;
  std::optional<platform::OleString> className;
  std::vector<PathKey> keys;  ///< sorted by name after parsing
  bool singleton = false;     ///< whether the path is CLASS=@

  /// The class name; null if the path names only a server or a namespace.
  const OLECHAR* class_text() const { return className ? className->c_str() : nullptr; }
  void AddKey(const OLECHAR* name, const VARIANT& value);
};

/// CLASS.KEY=VALUE. A text is quoted, with a backslash before each quote or backslash; a value of a
/// type that no key has is left out.
platform::OleString ObjectPathText(platform::OleStringView className, platform::OleStringView key,
                                   const VARIANT& value);

/// The paths that a parser accepts.
enum class PathFlag {
  kRelativeNamespace = 0,  ///< a namespace without a server is on this machine
  kAbsoluteNamespace = 1,  ///< a namespace needs a server
  kEverything = 2,         ///< as kRelativeNamespace, and a server alone is a path
};

enum class PathResult { kParsed = 0, kSyntaxError = 1, kInvalidArgument = 2 };

/// Parses object paths:
///   [\\SERVER\NAMESPACE[\NAMESPACE…]:]CLASS[=@ | .KEY=VALUE[,KEY=VALUE…] | =VALUE]
/// A value is a quoted text (with a backslash before each quote or backslash), a decimal or
/// hexadecimal integer, or TRUE or FALSE, which become the numbers 1 and 0.
///
///     std::unique_ptr<ParsedPath> path;
///     PathParser(PathFlag::kAbsoluteNamespace).Parse(OLESTR("CLASS.KEY=\"1\""), &path);
///     PathKeyText(*path, OLESTR("KEY"))  // "1"
class PathParser {
 public:
  explicit PathParser(PathFlag flag) : flag_(flag) {}

  /// On success `*path` owns the parts; otherwise it is null.
  PathResult Parse(const OLECHAR* text, std::unique_ptr<ParsedPath>* path) const;

 private:
  PathFlag flag_;
};

}  // namespace wifi
