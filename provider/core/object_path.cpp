#include "provider/core/object_path.h"

#include <algorithm>
#include <concepts>
#include <new>

#include "platform/ascii.h"
#include "platform/short_text.h"
#include "platform/text.h"
#include "provider/core/path_lexer.h"

namespace wifi {
namespace {

using platform::OleString;
using platform::OleStringView;
using platform::Variant;

bool IsSlash(OLECHAR character) {
  return character == OLECHAR('\\') || character == OLECHAR('/');
}

bool NameLess(const PathKey& left, const PathKey& right) {
  const OleString none;
  const OleString& first = left.name ? *left.name : none;
  const OleString& second = right.name ? *right.name : none;
  return std::lexicographical_compare(
      first.begin(), first.end(), second.begin(), second.end(), [](OLECHAR one, OLECHAR other) {
        return platform::AsciiLower(one) < platform::AsciiLower(other);
      });
}

void AppendQuoted(OleString& path, OleStringView text) {
  path += OLECHAR('"');
  for (const OLECHAR character : text) {
    if (character == OLECHAR('"') || character == OLECHAR('\\')) path += OLECHAR('\\');
    path += character;
  }
  path += OLECHAR('"');
}

void AppendNumber(OleString& path, std::integral auto number) {
  const auto text = platform::ShortText<16>().Decimal(number);
  const std::string_view digits = text;
  path.append(digits.begin(), digits.end());
}

void AppendValue(OleString& path, const VARIANT& value) {
  switch (value.vt) {
    case VT_BSTR:
      return AppendQuoted(path, platform::ViewOf(value.bstrVal));
    case VT_I4:
      return AppendNumber(path, value.lVal);
    case VT_UI4:
      return AppendNumber(path, value.ulVal);
    case VT_I2:
      return AppendNumber(path, value.iVal);
    case VT_UI2:
      return AppendNumber(path, value.uiVal);
    case VT_ERROR:
      throw std::bad_alloc();  // as in AddKey
    default:
      return;  // not a type of a key
  }
}

/// Recursive-descent parser for the text after the server name.
class PathGrammar {
 public:
  PathGrammar(OleStringView text, ParsedPath& path) : lexer_(text), path_(path) { Advance(); }

  /// Parses the rest of a path with a server: at least one namespace, then optionally an object.
  bool AfterServer() {
    if (!Accept(PathToken::kSlash)) return false;
    return Namespaces() && (AtEnd() || (Accept(PathToken::kColon) && Object()));
  }

  bool WithoutServer() {
    if (Accept(PathToken::kSlash)) {
      return Namespaces() && Accept(PathToken::kColon) && Object();
    }
    if (token_.kind != PathToken::kWord) return false;
    OleString first = token_.text;
    Advance();
    if (token_.kind != PathToken::kSlash && token_.kind != PathToken::kColon) {
      path_.className = std::move(first);
      return Keys();
    }
    path_.namespaces.push_back(std::move(first));
    if (Accept(PathToken::kSlash) && !Namespaces()) return false;
    return Accept(PathToken::kColon) && Object();
  }

 private:
  void Advance() { token_ = lexer_.Next(); }
  bool AtEnd() const { return token_.kind == PathToken::kEnd; }
  bool Accept(PathToken::Kind kind) {
    if (token_.kind != kind) return false;
    Advance();
    return true;
  }

  bool Namespaces() {
    do {
      if (token_.kind != PathToken::kWord) return false;
      path_.namespaces.push_back(token_.text);
      Advance();
    } while (Accept(PathToken::kSlash));
    return true;
  }

  bool Object() {
    if (token_.kind != PathToken::kWord) return false;
    path_.className = token_.text;
    Advance();
    return Keys();
  }

  bool Keys() {
    if (AtEnd()) return true;
    if (Accept(PathToken::kEquals)) {
      if (!Accept(PathToken::kAt)) return Value(nullptr) && AtEnd();
      path_.singleton = true;
      return AtEnd();
    }
    if (!Accept(PathToken::kDot)) return false;
    if (token_.kind != PathToken::kWord || !lexer_.NextIs(PathToken::kEquals)) {
      return Value(nullptr) && AtEnd();
    }
    do {
      if (token_.kind != PathToken::kWord) return false;
      const OleString name = token_.text;
      Advance();
      if (!Accept(PathToken::kEquals) || !Value(name.c_str())) return false;
    } while (Accept(PathToken::kComma));
    return AtEnd();
  }

  bool Value(const OLECHAR* name) {
    Variant value;
    if (token_.kind == PathToken::kText) {
      value = Variant::Text(token_.text);
    } else if (token_.kind == PathToken::kInteger) {
      value = Variant::Integer(token_.number);
    } else if (token_.IsWord(OLESTR("true"))) {
      value = Variant::Integer(1);
    } else if (token_.IsWord(OLESTR("false"))) {
      value = Variant::Integer(0);
    } else {
      return false;
    }
    path_.AddKey(name, value.get());
    Advance();
    return true;
  }

  PathLexer lexer_;
  PathToken token_;
  ParsedPath& path_;
};

bool ParseInto(OleStringView text, PathFlag flag, ParsedPath& path) {
  if (text.size() >= 2 && IsSlash(text[0]) && text[1] == text[0]) {
    const OleStringView rest = text.substr(2);
    const auto end = std::find_if(rest.begin(), rest.end(), IsSlash);
    path.server.emplace(rest.begin(), end);
    if (path.server->empty()) return false;
    if (end == rest.end()) return flag == PathFlag::kEverything;
    return PathGrammar(rest.substr(static_cast<std::size_t>(end - rest.begin())), path)
        .AfterServer();
  }
  if (!PathGrammar(text, path).WithoutServer()) return false;
  if (!path.namespaces.empty()) {
    if (flag == PathFlag::kAbsoluteNamespace) return false;
    path.server.emplace(OLESTR("."));
  }
  return true;
}

}  // namespace

void ParsedPath::AddKey(const OLECHAR* name, const VARIANT& value) {
  PathKey& key = keys.emplace_back();
  if (name != nullptr) key.name.emplace(name);
  key.value = Variant::CopyOf(value);
  // Out of memory: fail, because a path with a missing value would name a different object.
  if (key.value.type() == VT_ERROR) throw std::bad_alloc();
}

OleString ObjectPathText(OleStringView className, OleStringView key, const VARIANT& value) {
  OleString path;
  path.reserve(96);  // one allocation for all but the longest keys
  path += className;
  path += OLECHAR('.');
  path += key;
  path += OLECHAR('=');
  AppendValue(path, value);
  return path;
}

PathResult PathParser::Parse(const OLECHAR* text, std::unique_ptr<ParsedPath>* path) const {
  if (path == nullptr) return PathResult::kInvalidArgument;
  path->reset();
  const OleStringView view = platform::ViewOf(text);
  if (view.empty() || IsPathBlank(view.front()) || IsPathBlank(view.back())) {
    return PathResult::kInvalidArgument;
  }
  auto parsed = std::make_unique<ParsedPath>();
  if (!ParseInto(view, flag_, *parsed)) return PathResult::kSyntaxError;
  std::stable_sort(parsed->keys.begin(), parsed->keys.end(), NameLess);
  *path = std::move(parsed);
  return PathResult::kParsed;
}

}  // namespace wifi
