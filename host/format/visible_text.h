#pragma once
// Texts that come from strangers, as they may reach a terminal or a page.

#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace host {

/// A text that can neither lead a terminal nor turn what stands beside it around: control
/// characters (C0, DEL, C1), ends of lines and marks of direction stand as \x1b or \u202e.
std::string VisibleText(std::string_view utf8);

/// The same, cut to about `most` bytes: of a longer text the middle is left out.
std::string ShortText(std::string_view utf8, std::size_t most);

/// While it lives, what is written to a stream that is a terminal reaches it as VisibleText, line
/// by line; every escape is \u0085, which JSON has too. For formats without colors of their own.
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

/// Writes one line about what is wrong, no longer than a screen.
void WriteError(std::ostream& errors, std::string_view message);

}  // namespace host
