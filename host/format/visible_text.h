#pragma once
// Makes untrusted texts safe for a terminal or a page.

#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace host {

/// A text that can neither control a terminal nor change the direction of the text around it:
/// control characters (C0, DEL, C1), line ends and direction marks become \x1b or \u202e.
std::string VisibleText(std::string_view utf8);

/// The same, shortened to about `most` bytes by leaving out the middle.
std::string ShortText(std::string_view utf8, std::size_t most);

/// During its lifetime, output to a stream that is a terminal goes through VisibleText, line by
/// line; every escape has the form \u0085, which is also valid in JSON. For formats without colors
/// of their own.
class TerminalGuard final : private std::streambuf {
 public:
  explicit TerminalGuard(std::ostream& terminal)
      : terminal_(terminal), inner_(terminal.rdbuf(this)) {}
  TerminalGuard(const TerminalGuard&) = delete;
  TerminalGuard& operator=(const TerminalGuard&) = delete;
  ~TerminalGuard() override;

 private:
  int overflow(int character) override;
  int sync() override;
  bool WriteLine();

  std::ostream& terminal_;
  std::streambuf* inner_;
  std::string line_;
};

/// Writes one line with an error, no longer than a screen.
void WriteError(std::ostream& errors, std::string_view message);

}  // namespace host
