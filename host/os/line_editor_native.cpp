#include <histedit.h>
#include <langinfo.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <filesystem>

#include "host/os/os.h"
#include "host/os/terminal_signals_native.h"

namespace host::os {
namespace {

constexpr int kKeptLines = 1000;
constexpr wchar_t kAbandonKey = 0x03;  // Ctrl-C

volatile std::sig_atomic_t warned = 0;

/// A provider cannot be stopped: to end its request a user has to end the shell.
void NoteInterrupt(int signal) {
  if (warned == 0) {
    warned = 1;
    constexpr char kText[] =
        "\nwmihost: a request cannot be interrupted; Ctrl-C again ends the shell\n";
    // Nothing can be done if it cannot be written.
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, kText, sizeof kText - 1);
  } else {
    std::signal(signal, SIG_DFL);
    std::raise(signal);
  }
}

/// Uses the user's locale, or one with UTF-8 if that has not: otherwise the editor takes only
/// ASCII.
void UseUtf8() {
  if (std::setlocale(LC_CTYPE, "") != nullptr && std::string(nl_langinfo(CODESET)) == "UTF-8") {
    return;
  }
  std::setlocale(LC_CTYPE, "C.UTF-8");
}

/// Makes the terminal send its interrupt key as an ordinary key until the editor restores the
/// terminal. As a signal it would discard the keys typed before it, and a signal between the check
/// for it and the wait for a key would be missed. Returns the key.
int TakeInterruptKey() {
  static int key = kAbandonKey;
  termios modes{};
  if (tcgetattr(STDIN_FILENO, &modes) == 0 && modes.c_cc[VINTR] != _POSIX_VDISABLE) {
    key = modes.c_cc[VINTR];
    modes.c_cc[VINTR] = _POSIX_VDISABLE;
    tcsetattr(STDIN_FILENO, TCSANOW, &modes);
  }
  return key;
}

/// The common beginning of all words.
std::string CommonStart(const std::vector<std::string>& words) {
  std::string common = words.front();
  for (const std::string& word : words) {
    const auto differ = std::mismatch(common.begin(), common.end(), word.begin(), word.end());
    common.erase(differ.first, common.end());
  }
  // Never half of a character.
  while (!common.empty() && common.size() < words.front().size() &&
         (static_cast<unsigned char>(words.front()[common.size()]) & 0xC0) == 0x80) {
    common.pop_back();
  }
  return common;
}

}  // namespace

struct LineEditor::State {
  Completer completer;
  std::string historyFile;
  std::string prompt;
  bool abandoned = false;
  EditLine* editor = nullptr;
  History* history = nullptr;
  struct sigaction before {};
  std::optional<TerminalSignals> signals;  ///< while a line is read

  static State& Of(EditLine* editor) {
    void* state = nullptr;
    el_get(editor, EL_CLIENTDATA, &state);
    return *static_cast<State*>(state);
  }
  static const char* Prompt(EditLine* editor) { return Of(editor).prompt.c_str(); }
  static unsigned char Abandon(EditLine* editor, int) {
    Of(editor).abandoned = true;
    return CC_EOF;
  }
  static unsigned char Complete(EditLine* editor, int);
  static int ReadCharacter(EditLine* editor, wchar_t* character);
};

/// Reads one UTF-8 character; an interrupt counts as the key that abandons the line.
int LineEditor::State::ReadCharacter(EditLine* editor, wchar_t* character) {
  std::mbstate_t state{};
  while (true) {
    const int interruptKey = TakeInterruptKey();
    const TerminalSignals::Event event = Of(editor).signals->Wait();
    if (event == TerminalSignals::Event::kRedraw) {
      std::fputc('\r', stdout);
      el_resize(editor);
      el_set(editor, EL_REFRESH);
      continue;
    }
    char byte = 0;
    const bool interrupted = event == TerminalSignals::Event::kInterrupt;
    const ssize_t count = interrupted ? 1 : read(STDIN_FILENO, &byte, 1);
    if (interrupted || (count == 1 && static_cast<unsigned char>(byte) == interruptKey)) {
      *character = kAbandonKey;
      return 1;
    }
    if (count <= 0) return static_cast<int>(count);
    const std::size_t used = std::mbrtowc(character, &byte, 1, &state);
    if (used == static_cast<std::size_t>(-2)) continue;  // more bytes follow
    if (used == static_cast<std::size_t>(-1)) {
      state = {};
      continue;
    }
    return 1;
  }
}

unsigned char LineEditor::State::Complete(EditLine* editor, int) {
  const LineInfo* line = el_line(editor);
  const std::string before(line->buffer, line->cursor);
  Completion found = Of(editor).completer(before);
  if (found.words.empty()) return CC_REFRESH_BEEP;
  const std::string typed = before.substr(found.start);
  const std::string common = CommonStart(found.words);
  const bool only = found.words.size() == 1;
  if (common != typed) {
    // Its letters may have been typed in another case.
    std::size_t characters = 0;
    for (const char byte : typed) {
      characters += (static_cast<unsigned char>(byte) & 0xC0) != 0x80 ? 1 : 0;
    }
    if (characters > 0) el_deletestr(editor, static_cast<int>(characters));
    el_insertstr(editor, common.c_str());
  }
  const bool goesOn = common.ends_with('=') || common.ends_with('.') || common.ends_with('/');
  if (only && !goesOn) el_insertstr(editor, " ");
  if (only || common.size() > typed.size()) return CC_REFRESH;
  std::fputc('\n', stdout);
  for (const std::string& word : found.words) std::printf("%s\n", word.c_str());
  std::fflush(stdout);
  return CC_REDISPLAY;
}

LineEditor::LineEditor(Completer completer, const std::string& history)
    : state_(std::make_unique<State>()) {
  state_->completer = std::move(completer);
  state_->historyFile = history;
  UseUtf8();
  state_->editor = el_init("wmihost", stdin, stdout, stderr);
  state_->history = history_init();
  HistEvent event;
  ::history(state_->history, &event, H_SETSIZE, kKeptLines);
  ::history(state_->history, &event, H_SETUNIQUE, 1);
  if (!history.empty()) ::history(state_->history, &event, H_LOAD, history.c_str());
  EditLine* editor = state_->editor;
  el_set(editor, EL_CLIENTDATA, state_.get());
  el_set(editor, EL_PROMPT, &State::Prompt);
  el_set(editor, EL_EDITOR, "emacs");
  el_set(editor, EL_SIGNAL, 0);
  el_set(editor, EL_HIST, &::history, state_->history);
  el_set(editor, EL_GETCFN, &State::ReadCharacter);
  el_set(editor, EL_ADDFN, "wmihost-complete", "Complete the word", &State::Complete);
  el_set(editor, EL_ADDFN, "wmihost-abandon", "Abandon the line", &State::Abandon);
  el_set(editor, EL_BIND, "^I", "wmihost-complete", nullptr);
  el_set(editor, EL_BIND, "^C", "wmihost-abandon", nullptr);
  el_set(editor, EL_BIND, "^R", "em-inc-search-prev", nullptr);
  struct sigaction action {};
  action.sa_handler = &NoteInterrupt;
  sigaction(SIGINT, &action, &state_->before);
}

LineEditor::~LineEditor() {
  history_end(state_->history);
  el_end(state_->editor);
  sigaction(SIGINT, &state_->before, nullptr);
}

std::optional<std::string> LineEditor::Read(const std::string& prompt) {
  state_->prompt = prompt;
  state_->abandoned = false;
  warned = 0;
  EditLine* editor = state_->editor;
  state_->signals.emplace([editor] { el_set(editor, EL_PREP_TERM, 0); },
                          [editor] { el_set(editor, EL_PREP_TERM, 1); });
  el_resize(editor);
  int length = 0;
  const char* typed = el_gets(editor, &length);
  state_->signals.reset();
  if (state_->abandoned) {
    std::printf("^C\n");
    std::fflush(stdout);
    return "";
  }
  if (typed == nullptr || length <= 0) {
    std::printf("\n");
    std::fflush(stdout);
    return std::nullopt;
  }
  std::string line(typed, static_cast<std::size_t>(length));
  if (line.ends_with('\n')) line.pop_back();
  if (line.find_first_not_of(' ') == std::string::npos) return line;
  HistEvent event;
  ::history(state_->history, &event, H_ENTER, line.c_str());
  if (!state_->historyFile.empty()) {
    ::history(state_->history, &event, H_SAVE, state_->historyFile.c_str());
    chmod(state_->historyFile.c_str(), S_IRUSR | S_IWUSR);
  }
  return line;
}

std::string HistoryFile() {
  const char* state = std::getenv("XDG_STATE_HOME");
  const char* home = std::getenv("HOME");
  std::filesystem::path folder;
  if (state != nullptr && *state == '/') {
    folder = state;
  } else if (home != nullptr && *home == '/') {
    folder = std::filesystem::path(home) / ".local" / "state";
  } else {
    return "";
  }
  folder /= "wmihost";
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  return error ? "" : (folder / "history").string();
}

}  // namespace host::os
