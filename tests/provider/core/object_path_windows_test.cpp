// Compares the reader of object paths with the platform's own path object, wherever both should
// agree.

#include <gtest/gtest.h>
#include <wmiutils.h>

#include "platform/com_ptr.h"
#include "platform/text.h"
#include "provider/core/object_path.h"

namespace wifi {
namespace {

using platform::ComPtr;
using platform::OleString;
using platform::Utf8Text;
using platform::Variant;

constexpr CLSID kPathClass = {
    0xcf4cc405, 0xe2c5, 0x4ddd, {0xb3, 0xce, 0x5e, 0x75, 0x82, 0xd8, 0xc9, 0xfa}};

constexpr IID kPathInterface = {
    0x3bc15af2, 0x736c, 0x477e, {0x9e, 0x51, 0x23, 0x8a, 0xf8, 0x66, 0x7d, 0xcc}};

// What both report about a path: CLASS, the number of keys, the server and the namespaces.
std::string Ours(const OleString& text) {
  std::unique_ptr<ParsedPath> path;
  PathParser(PathFlag::kRelativeNamespace).Parse(text.c_str(), &path);
  if (!path) return "refused";
  std::string parts =
      Utf8Text(path->className.value_or(OleString())) + " " + std::to_string(path->keys.size());
  if (path->server) parts += " " + Utf8Text(*path->server);
  for (const OleString& name : path->namespaces) parts += " " + Utf8Text(name);
  return parts;
}

std::string ThePlatforms(const OleString& text) {
  ComPtr<IWbemPath> path;
  if (FAILED(CoCreateInstance(kPathClass, nullptr, CLSCTX_INPROC_SERVER, kPathInterface,
                              path.put_void()))) {
    return "no path object";
  }
  if (FAILED(path->SetText(WBEMPATH_CREATE_ACCEPT_ALL, text.c_str()))) return "refused";
  OLECHAR name[128] = {};
  ULONG length = 128;
  path->GetClassName(&length, name);
  std::string parts = Utf8Text(name);
  ComPtr<IWbemPathKeyList> keys;
  ULONG count = 0;
  if (SUCCEEDED(path->GetKeyList(keys.put()))) keys->GetCount(&count);
  parts += " " + std::to_string(count);
  if (length = 128; SUCCEEDED(path->GetServer(&length, name))) parts += " " + Utf8Text(name);
  path->GetNamespaceCount(&count);
  for (ULONG index = 0; index < count; ++index) {
    if (length = 128; SUCCEEDED(path->GetNamespaceAt(index, &length, name))) {
      parts += " " + Utf8Text(name);
    }
  }
  return parts;
}

// Left out are paths for which they should not agree, or for which Wine's object is not a
// reference: it refuses nothing, cuts keys at every comma and paths at every backslash, even in a
// quoted value, and returns no names and values of keys.
TEST(PlatformPath, IsReadAlike) {
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  const char* const rows[] = {
      "WiFi_X",
      R"(WiFi_X.DeviceID="7")",
      R"(WiFi_X.A="7",B="8")",
      "WiFi_X.K=12",
      R"(WiFi_X.K="")",
      R"(WiFi_X.K="a b.c=d")",
      R"(\\.\root\cimv2:WiFi_X.K="7")",
      R"(\\.\root:WiFi_X)",
      R"(//HOST/root/cimv2:WiFi_X.K="7",L=1)",
  };
  for (const char* row : rows) {
    const OleString text = platform::WideFromUtf8(row);
    EXPECT_EQ(Ours(text), ThePlatforms(text)) << row;
  }
  CoUninitialize();
}

}  // namespace
}  // namespace wifi
