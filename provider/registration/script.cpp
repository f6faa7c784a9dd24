#include "provider/registration/script.h"

#include <algorithm>

#include "platform/text.h"

namespace wifi {
namespace {

using platform::OleString;
using platform::OleStringView;

/// Recursive-descent parser for the script: words, braces, equals signs and quoted texts.
class ScriptParser {
 public:
  ScriptParser(std::string_view text, OleStringView modulePath)
      : rest_(text), modulePath_(modulePath) {
    Advance();
  }

  std::vector<ScriptKey> Root() {
    Expect("HKCR");
    ScriptKey root;
    Expect("{");
    Members(root);
    if (!root.values.empty()) Fail("no value beside the keys");
    if (!word_.empty()) Fail("the end");
    return std::move(root.keys);
  }

 private:
  [[noreturn]] void Fail(const std::string& expected) const {
    throw ScriptError("registration script, line " + std::to_string(line_) + ": expected " +
                      expected + ", found '" + word_ + "'");
  }

  void Advance() {
    while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t' ||
                              rest_.front() == '\r' || rest_.front() == '\n')) {
      if (rest_.front() == '\n') ++line_;
      rest_.remove_prefix(1);
    }
    quoted_ = false;
    std::size_t length = 0;
    if (rest_.empty()) {
      word_.clear();
      return;
    }
    if (rest_.front() == '\'') {
      length = rest_.find('\'', 1);
      if (length == std::string_view::npos) {
        word_ = std::string(rest_);
        Fail("a closing quote");
      }
      word_ = rest_.substr(1, length - 1);
      quoted_ = true;
      rest_.remove_prefix(length + 1);
      return;
    }
    // A brace alone begins or ends a block. A word may begin with a brace, as class identifiers do.
    length = std::min(rest_.find_first_of(" \t\r\n"), rest_.size());
    word_ = rest_.substr(0, length);
    rest_.remove_prefix(length);
  }

  bool Accept(const char* word) {
    if (quoted_ || word_ != word) return false;
    Advance();
    return true;
  }
  void Expect(const char* word) {
    if (!Accept(word)) Fail(word);
  }
  OleString Name() {
    if (quoted_ || word_.empty() || word_ == "{" || word_ == "}" || word_ == "=") Fail("a name");
    OleString name = platform::WideFromUtf8(word_);
    Advance();
    return name;
  }
  OleString Text() {
    Expect("s");
    if (!quoted_) Fail("a quoted text");
    constexpr OleStringView kModule = OLESTR("%MODULE%");
    OleString text = platform::WideFromUtf8(word_);
    const std::size_t position = text.find(kModule);
    if (position != OleString::npos) text.replace(position, kModule.size(), modulePath_);
    Advance();
    return text;
  }

  void Members(ScriptKey& key) {
    while (!Accept("}")) {
      if (Accept("val")) {
        OleString name = Name();
        Expect("=");
        key.values.emplace_back(std::move(name), Text());
      } else {
        key.keys.push_back(Key());
      }
    }
  }

  ScriptKey Key() {
    ScriptKey key;
    if (Accept("NoRemove")) {
      key.rule = RemovalRule::kNever;
    } else if (Accept("ForceRemove")) {
      key.rule = RemovalRule::kWithSubkeys;
    }
    key.name = Name();
    if (Accept("=")) key.defaultValue = Text();
    if (Accept("{")) Members(key);
    return key;
  }

  std::string_view rest_;
  OleStringView modulePath_;
  std::string word_;
  bool quoted_ = false;
  int line_ = 1;
};

}  // namespace

std::vector<ScriptKey> ParseRegistrationScript(std::string_view text, OleStringView modulePath) {
  return ScriptParser(text, modulePath).Root();
}

}  // namespace wifi
