#pragma once
// The services of the operating system that the host needs and that differ between Windows and
// other systems. Texts and paths are UTF-8.

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

/// During its lifetime standard output and standard error take UTF-8 bytes without conversion of
/// line ends, and show them as characters if they are a console. The destructor restores the
/// consoles.
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
/// Whether the stream is a terminal that understands escape sequences.
bool ShowsEscapes(int standardStream);
/// Columns of the terminal on standard output, nullopt if it is not a terminal.
std::optional<int> TerminalWidth();

/// The name of the provider's module in this program's folder.
std::string DefaultModulePath();
/// Loads a module, and its imports from its own folder and the system's, never from the current
/// folder; null if that fails.
HMODULE LoadModule(const std::string& path);
/// Why the last LoadModule failed, in words.
std::string LoadProblem(const std::string& path);
/// The name of a library's file: QuarnApi.dll or libQuarnApi.so.
std::string LibraryFile(const std::string& name);

/// Whether the system itself creates objects of registered classes.
bool HasComRegistration();
/// The class factory of a registered class, on systems that create its objects.
HRESULT RegisteredClassFactory(REFCLSID classId, IClassFactory** factory);
/// A module that is already loaded, or null.
HMODULE LoadedModule(const std::string& path);
/// A function that a module exports by ordinal, on other systems by symbol; null if there is none.
FARPROC FunctionByOrdinal(HMODULE module, WORD ordinal, const char* symbol);
/// Lets the system unload modules of registered classes that are no longer used.
void UnloadUnusedModules();

/// During its lifetime debug output of this process goes to standard error, one line each.
class DebugOutputToStderr {
 public:
  DebugOutputToStderr();
  DebugOutputToStderr(const DebugOutputToStderr&) = delete;
  DebugOutputToStderr& operator=(const DebugOutputToStderr&) = delete;
  ~DebugOutputToStderr();
};

/// The management service, and the user of the connection: empty for the user of this process.
struct ServiceLogon {
  std::string namespacePath;  ///< root\\cimv2, or \\\\HOST\\root\\cimv2
  std::string user;
  std::string password;
};

/// A connection to a management service. Needs a COM apartment.
class ServiceConnection {
 public:
  explicit ServiceConnection(const ServiceLogon& logon);
  /// A service of this process.
  explicit ServiceConnection(platform::ComPtr<IWbemServices> services);
  ServiceConnection(const ServiceConnection&) = delete;
  ServiceConnection& operator=(const ServiceConnection&) = delete;
  ~ServiceConnection();

  /// Whether the system has such a service.
  static bool Exists();

  HRESULT status() const { return status_; }
  IWbemServices* get() const { return services_.get(); }
  /// Makes calls to an object of the service use the same user.
  void Secure(IUnknown* proxy) const;

 private:
  struct Identity;

  std::unique_ptr<Identity> identity_;
  platform::ComPtr<IWbemServices> services_;
  HRESULT status_ = S_OK;
};

/// A password typed without echo, or else the first line of standard input.
std::string ReadPassword(const std::string& prompt);

/// Reads lines that a user types. Ctrl-C abandons the line. Between the lines, while a request
/// runs, the first Ctrl-C says that it cannot be interrupted, and the second ends the program.
class LineEditor {
 public:
  struct Completion {
    std::size_t start = 0;           ///< byte offset of the completed part in the line
    std::vector<std::string> words;  ///< possible texts from there to the cursor
  };
  /// Returns the possible continuations of the text before the cursor.
  using Completer = std::function<Completion(const std::string& before)>;

  /// `history` is the file that keeps the lines across sessions, or empty. Completion and the file
  /// are used only on systems without line editing of their own.
  LineEditor(Completer completer, const std::string& history);
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;
  ~LineEditor();

  /// The next line without its line end; empty if it was abandoned, nullopt at the end of the
  /// input.
  std::optional<std::string> Read(const std::string& prompt);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The file among the user's own state that keeps the shell's history, or empty; its folder exists.
std::string HistoryFile();

}  // namespace host::os
