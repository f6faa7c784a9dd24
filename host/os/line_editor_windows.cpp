#include <iostream>

#include "host/os/os.h"

namespace host::os {

// The console edits lines and keeps their history itself; it completes nothing.
struct LineEditor::State {};

LineEditor::LineEditor(std::vector<std::string>) {}
LineEditor::~LineEditor() = default;

std::optional<std::string> LineEditor::Read(const std::string& prompt) {
  std::cout << prompt << std::flush;
  std::string line;
  if (!std::getline(std::cin, line)) return std::nullopt;
  return line;
}

}  // namespace host::os
