#include <atomic>
#include <iostream>

#include "host/os/os.h"
#include "platform/text.h"

namespace host::os {
namespace {

std::atomic<bool> interrupted = false;
std::atomic<bool> reading = false;
std::atomic<bool> warned = false;

/// A provider cannot be stopped: to end its request a user has to end the shell, which the system
/// does if no handler handles the key.
BOOL WINAPI NoteInterrupt(DWORD event) {
  if (event != CTRL_C_EVENT) return FALSE;
  if (reading) {
    interrupted = true;
    return TRUE;
  }
  if (warned.exchange(true)) return FALSE;
  constexpr char kText[] =
      "\r\nwmihost: a request cannot be interrupted; Ctrl-C again ends the shell\r\n";
  DWORD written = 0;
  WriteFile(GetStdHandle(STD_ERROR_HANDLE), kText, sizeof kText - 1, &written, nullptr);
  return TRUE;
}

/// During its lifetime a line is being read.
struct Reading {
  Reading() {
    warned = false;
    reading = true;
  }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;
  ~Reading() { reading = false; }
};

/// One line of a console, in UTF-8; nullopt at the end of input, or if it is not a console.
std::optional<std::string> ReadConsole(HANDLE input) {
  std::wstring line;
  while (!line.ends_with(L'\n')) {
    wchar_t part[512];
    DWORD count = 0;
    SetLastError(ERROR_SUCCESS);
    if (!ReadConsoleW(input, part, static_cast<DWORD>(std::size(part)), &count, nullptr) ||
        count == 0) {
      // An interrupt ends the read without a line; its handler runs in another thread.
      const bool aborted = GetLastError() == ERROR_OPERATION_ABORTED;
      if (interrupted.exchange(false) || aborted) return "";
      if (line.empty()) return std::nullopt;
      break;
    }
    line.append(part, count);
  }
  while (line.ends_with(L'\n') || line.ends_with(L'\r')) line.pop_back();
  if (line.starts_with(L'\x1A')) return std::nullopt;  // Ctrl-Z
  return platform::Utf8Text(line);
}

}  // namespace

// The console itself edits lines and keeps their history; there is no completion.
struct LineEditor::State {};

LineEditor::LineEditor(Completer, const std::string&) {
  SetConsoleCtrlHandler(&NoteInterrupt, TRUE);
}
LineEditor::~LineEditor() {
  SetConsoleCtrlHandler(&NoteInterrupt, FALSE);
}

std::optional<std::string> LineEditor::Read(const std::string& prompt) {
  const Reading whileHere;
  std::cout << prompt << std::flush;
  const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  DWORD mode = 0;
  if (GetConsoleMode(input, &mode)) return ReadConsole(input);
  std::string line;
  if (!std::getline(std::cin, line)) return std::nullopt;
  return line;
}

std::string HistoryFile() {
  return "";
}

}  // namespace host::os
