#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <iostream>
#include <mutex>
#include <streambuf>
#include <string>
#include <string_view>

#include "host/os/os.h"
#include "platform/text.h"

namespace host::os {
namespace {

constexpr std::size_t kHeld = 4096;  // bytes of one call

/// The number of bytes that are whole UTF-8 characters; at most the last character is incomplete.
std::size_t WholeCharacters(std::string_view bytes) {
  constexpr std::size_t kMost = 4;
  for (std::size_t back = 1; back <= std::min(kMost, bytes.size()); ++back) {
    const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
    if ((byte & 0xC0) == 0x80) continue;  // not the first byte of its character
    const std::size_t length = byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
    return length > back ? bytes.size() - back : bytes.size();
  }
  return bytes.size();
}

}  // namespace

/// Writes a stream to a console as characters: whatever its code page, characters of every language
/// are shown, and a character is never written in parts.
class ConsoleOutput : public std::streambuf {
 public:
  explicit ConsoleOutput(HANDLE console) : console_(console) {}

 protected:
  int_type overflow(int_type character) override {
    if (traits_type::eq_int_type(character, traits_type::eof()))
      return traits_type::not_eof(character);
    const char byte = traits_type::to_char_type(character);
    return xsputn(&byte, 1) == 1 ? character : traits_type::eof();
  }
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    const std::lock_guard lock(mutex_);
    held_.append(bytes, static_cast<std::size_t>(count));
    return held_.size() < kHeld || Write() ? count : 0;
  }
  int sync() override {
    const std::lock_guard lock(mutex_);
    return Write() ? 0 : -1;
  }

 private:
  bool Write() {
    std::string_view rest = held_;
    while (const std::size_t whole = WholeCharacters(rest.substr(0, kHeld))) {
      const std::wstring text = platform::WideFromUtf8(rest.substr(0, whole));
      DWORD written = 0;
      if (!WriteConsoleW(console_, text.data(), static_cast<DWORD>(text.size()), &written,
                         nullptr) ||
          written != text.size()) {
        held_.clear();
        return false;
      }
      rest.remove_prefix(whole);
    }
    held_.erase(0, held_.size() - rest.size());
    return true;
  }

  HANDLE console_;
  std::mutex mutex_;  // progress and trace lines come from two threads
  std::string held_;
};

namespace {

/// A console on a standard handle, and the mode to restore.
struct Console {
  HANDLE handle = nullptr;
  DWORD before = 0;
  bool changed = false;
};
Console consoles[3];

HANDLE StandardHandle(int standardStream) {
  constexpr DWORD kHandles[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
  return GetStdHandle(kHandles[standardStream]);
}

/// Restores the consoles: Ctrl-C ends the process without calling destructors.
BOOL WINAPI GiveModesBack(DWORD) {
  for (Console& console : consoles) {
    if (console.changed) SetConsoleMode(console.handle, console.before);
  }
  return FALSE;
}

}  // namespace

struct StandardStreams::State {
  /// Redirects the stream to its console, if it has one.
  class Redirection {
   public:
    Redirection(std::ostream& stream, int number)
        : stream_(stream), buffer_(StandardHandle(number)) {
      if (IsTerminal(number)) before_ = stream.rdbuf(&buffer_);
    }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;
    ~Redirection() {
      if (before_ == nullptr) return;
      stream_.flush();
      stream_.rdbuf(before_);
    }

   private:
    std::ostream& stream_;
    ConsoleOutput buffer_;
    std::streambuf* before_ = nullptr;
  };
  Redirection output{std::cout, 1};
  Redirection errors{std::cerr, 2};
};

StandardStreams::StandardStreams() : state_(std::make_unique<State>()) {
  for (const int stream : {0, 1, 2}) _setmode(stream, _O_BINARY);
  SetConsoleCtrlHandler(&GiveModesBack, TRUE);
}

StandardStreams::~StandardStreams() {
  state_.reset();
  GiveModesBack(0);
}

bool IsTerminal(int standardStream) {
  DWORD mode = 0;  // the null device, a character device, has none
  return GetConsoleMode(StandardHandle(standardStream), &mode) != 0;
}

bool ShowsEscapes(int standardStream) {
  Console& console = consoles[standardStream];
  const HANDLE handle = StandardHandle(standardStream);
  DWORD mode = 0;
  if (!GetConsoleMode(handle, &mode)) return false;
  if ((mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0) return true;
  console.handle = handle;
  console.before = mode;
  console.changed = SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
  return console.changed;
}

std::string ReadPassword(const std::string& prompt) {
  constexpr DWORD kLongest = 512;
  std::string password;
  Console& console = consoles[0];
  const HANDLE handle = StandardHandle(0);
  if (GetConsoleMode(handle, &console.before)) {
    std::cerr << prompt << std::flush;
    console.handle = handle;
    console.changed = true;  // an interrupt restores the echo too
    SetConsoleMode(handle, console.before & ~static_cast<DWORD>(ENABLE_ECHO_INPUT));
    wchar_t typed[kLongest];
    DWORD count = 0;
    ReadConsoleW(handle, typed, kLongest, &count, nullptr);
    SetConsoleMode(handle, console.before);
    std::cerr << std::endl;
    password = platform::Utf8Text({typed, count});
  } else {
    std::getline(std::cin, password);
  }
  while (password.ends_with('\n') || password.ends_with('\r')) password.pop_back();
  return password;
}

std::optional<int> TerminalWidth() {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (!GetConsoleScreenBufferInfo(StandardHandle(1), &info)) return std::nullopt;
  return info.srWindow.Right - info.srWindow.Left + 1;
}

}  // namespace host::os
