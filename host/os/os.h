#pragma once
// What the host needs of the operating system and what differs between Windows and elsewhere.
// Texts and paths are UTF-8.

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/com_ptr.h"
#include "platform/platform.h"

namespace host::os {

/// The arguments after the program's name.
std::vector<std::string> Arguments(int argc, char** argv);

/// While it lives, standard output and standard error take bytes as they are, UTF-8 without
/// conversion of line ends, and show them as characters where they are a console. It gives back
/// what consoles had.
class StandardStreams {
 public:
  StandardStreams();
  StandardStreams(const StandardStreams&) = delete;
  StandardStreams& operator=(const StandardStreams&) = delete;
  ~StandardStreams();

 private:
  struct State;
  std::unique_ptr<State> state_;
};
// The standard streams are 0 for input, 1 for output, 2 for error.
bool IsTerminal(int standardStream);
/// Whether it is a terminal that understands escape sequences.
bool ShowsEscapes(int standardStream);
/// Columns of the terminal on standard output, none if there is none.
std::optional<int> TerminalWidth();

/// The name of the provider's module, beside this program.
std::string DefaultModulePath();
/// Loads a module, and what it imports from its own folder and the system's, never from the current
/// one; null if that fails.
HMODULE LoadModule(const std::string& path);
/// Why LoadModule failed just now, in words.
std::string LoadProblem(const std::string& path);
/// The name of a library's file: QuarnApi.dll or libQuarnApi.so.
std::string LibraryFile(const std::string& name);

/// Whether the system itself makes objects of registered classes.
bool HasComRegistration();
/// The class factory of a registered class, where the system makes its objects.
HRESULT RegisteredClassFactory(REFCLSID classId, IClassFactory** factory);
/// A module that is loaded already, null otherwise.
HMODULE LoadedModule(const std::string& path);
/// A function that a module exports by its ordinal, elsewhere by a symbol; null if it does not.
FARPROC FunctionByOrdinal(HMODULE module, WORD ordinal, const char* symbol);
/// Lets the system unload the modules of registered classes that nobody needs any more.
void UnloadUnusedModules();

/// While it lives, debug output of this process goes to standard error, one line each.
class DebugOutputToStderr {
 public:
  DebugOutputToStderr();
  DebugOutputToStderr(const DebugOutputToStderr&) = delete;
  DebugOutputToStderr& operator=(const DebugOutputToStderr&) = delete;
  ~DebugOutputToStderr();
};

/// Which management service, and as whom: an empty user is the one of this process.
struct ServiceLogon {
  std::string namespacePath;  ///< root\\cimv2, or \\\\HOST\\root\\cimv2
  std::string user;
  std::string password;
};

/// A connection with a management service. Needs an apartment.
class ServiceConnection {
 public:
  explicit ServiceConnection(const ServiceLogon& logon);
  ServiceConnection(const ServiceConnection&) = delete;
  ServiceConnection& operator=(const ServiceConnection&) = delete;
  ~ServiceConnection();

  /// Whether the system has such a service at all.
  static bool Exists();

  HRESULT status() const { return status_; }
  IWbemServices* get() const { return services_.get(); }
  /// Lets calls of what the service gave go as the same user.
  void Secure(IUnknown* proxy) const;

 private:
  struct Identity;

  std::unique_ptr<Identity> identity_;
  platform::ComPtr<IWbemServices> services_;
  HRESULT status_ = S_OK;
};

/// A password that a person types unseen, or else the first line of standard input.
std::string ReadPassword(const std::string& prompt);

/// Reads lines that a person types. Ctrl-C abandons the line, and while it lives ends nothing else.
class LineEditor {
 public:
  struct Completion {
    std::size_t start = 0;           ///< of what is completed, in bytes from the start of the line
    std::vector<std::string> words;  ///< what may stand from there to the cursor
  };
  /// Gives what may follow the text before the cursor.
  using Completer = std::function<Completion(const std::string& before)>;

  /// `history` is the file that keeps the lines across sessions, empty for none. Completion and the
  /// file are only where the system has line editing of its own.
  LineEditor(Completer completer, const std::string& history);
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;
  ~LineEditor();

  /// The next line without its end, empty for one that was abandoned, none at the end of the input.
  std::optional<std::string> Read(const std::string& prompt);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The file of the user's own state that keeps the shell's history, empty if there is none; its
/// folder exists.
std::string HistoryFile();

}  // namespace host::os
