#include <editline/readline.h>

#include <cstdlib>
#include <memory>

#include "host/os/os.h"

namespace host::os {
namespace {

// The library's own state is the process's too.
const std::vector<std::string>* completions = nullptr;

/// The next completion of `start` each time it is called, null behind the last; `call` is 0 first.
char* NextCompletion(const char* start, int call) {
  static std::size_t next = 0;
  if (call == 0) next = 0;
  const std::string_view prefix = start;
  while (completions != nullptr && next < completions->size()) {
    const std::string& word = (*completions)[next++];
    if (word.starts_with(prefix)) return strdup(word.c_str());
  }
  return nullptr;
}

char** Complete(const char* start, int, int) {
  rl_attempted_completion_over = 1;  // never file names
  return rl_completion_matches(start, NextCompletion);
}

}  // namespace

struct LineEditor::State {
  std::vector<std::string> words;
};

LineEditor::LineEditor(std::vector<std::string> words)
    : state_(std::make_unique<State>(State{std::move(words)})) {
  completions = &state_->words;
  rl_attempted_completion_function = Complete;
  using_history();
}

LineEditor::~LineEditor() {
  completions = nullptr;
}

std::optional<std::string> LineEditor::Read(const std::string& prompt) {
  const std::unique_ptr<char, decltype(&std::free)> line(readline(prompt.c_str()), &std::free);
  if (line == nullptr) return std::nullopt;
  if (*line != '\0') add_history(line.get());
  return std::string(line.get());
}

}  // namespace host::os
