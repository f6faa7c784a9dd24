#pragma once
// The written form of a parsed path, to compare paths by.

#include "provider/core/object_path.h"

namespace testing_support {

inline platform::OleString PathText(const wifi::ParsedPath& path) {
  platform::OleString text;
  if (path.server) text += OLESTR("\\\\") + *path.server;
  for (const platform::OleString& name : path.namespaces) {
    if (path.server || &name != &path.namespaces.front()) text += OLECHAR('\\');
    text += name;
  }
  if (!path.className) return text;
  if (!path.namespaces.empty()) text += OLECHAR(':');
  text += *path.className;
  if (path.singleton) text += OLESTR("=@");
  OLECHAR separator = '.';
  for (const wifi::PathKey& key : path.keys) {
    if (key.name) text += separator;
    const platform::OleString name = key.name.value_or(platform::OleString());
    text += wifi::ObjectPathText({}, name, key.value.get()).substr(1);  // without the dot
    separator = ',';
  }
  return text;
}

}  // namespace testing_support
