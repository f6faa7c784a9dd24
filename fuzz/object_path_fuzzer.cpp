// Any text is an object path or is refused. The written form of a path is read as the same path.

#include <memory>

#include "fuzz/byte_source.h"
#include "provider/core/object_path.h"
#include "tests/support/path_text.h"

namespace {

using testing_support::PathText;
using wifi::ParsedPath;
using wifi::PathFlag;
using wifi::PathResult;

bool SameValue(const VARIANT& left, const VARIANT& right) {
  if (left.vt != right.vt) return false;
  if (left.vt == VT_BSTR) {
    return platform::ViewOf(left.bstrVal) == platform::ViewOf(right.bstrVal);
  }
  return left.lVal == right.lVal;
}

bool SamePath(const ParsedPath& left, const ParsedPath& right) {
  return left.server == right.server && left.namespaces == right.namespaces &&
         left.className == right.className && left.singleton == right.singleton &&
         std::equal(left.keys.begin(), left.keys.end(), right.keys.begin(), right.keys.end(),
                    [](const wifi::PathKey& one, const wifi::PathKey& other) {
                      return one.name == other.name &&
                             SameValue(one.value.get(), other.value.get());
                    });
}

}  // namespace

void Fuzz_object_path(FuzzInput bytes) {
  ByteSource source(bytes);
  const auto flag = static_cast<PathFlag>(source.Below(3));
  const platform::OleString text = source.TextToTheEnd();
  const wifi::PathParser parser(flag);
  std::unique_ptr<ParsedPath> path;
  const PathResult result = parser.Parse(text.c_str(), &path);
  Require((result == PathResult::kParsed) == (path != nullptr),
          "a path is parsed or there is none");
  if (!path) return;
  const platform::OleString written = PathText(*path);
  std::unique_ptr<ParsedPath> again;
  Require(
      wifi::PathParser(PathFlag::kEverything).Parse(written.c_str(), &again) == PathResult::kParsed,
      "a written path can be read");
  Require(SamePath(*path, *again), "a written path reads as the same");
  Require(PathText(*again) == written, "and is written as the same");
}
