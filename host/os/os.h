#pragma once
// What the host needs of the operating system and what differs between Windows and elsewhere.
// Texts and paths are UTF-8.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace host::os {

/// The arguments after the program's name.
std::vector<std::string> Arguments(int argc, char** argv);

/// Makes standard output and standard error write bytes as they are, without line-end conversion.
void PrepareStreams();
bool IsTerminal(int standardStream);  ///< 0 input, 1 output, 2 error
/// Columns of the terminal on standard output, none if there is none.
std::optional<int> TerminalWidth();

/// The name of the provider's module, beside this program.
std::string DefaultModulePath();
/// Loads a module, and what it imports from its own folder and the system's, never from the current
/// one; null if that fails.
HMODULE LoadModule(const std::string& path);
/// The name of a library's file: QuarnApi.dll or libQuarnApi.so.
std::string LibraryFile(const std::string& name);

/// Keeps the registry in a file from now on; false where the system has its own, or if the file
/// cannot be used.
bool KeepRegistryIn(const std::string& file);
/// Whether the system itself makes objects of registered classes.
bool HasComRegistration();
/// The class factory of a registered class, where the system makes its objects.
HRESULT RegisteredClassFactory(REFCLSID classId, IClassFactory** factory);
/// A module that is loaded already, null otherwise.
HMODULE LoadedModule(const std::string& path);
/// Lets the system unload the modules of registered classes that nobody needs any more.
void UnloadUnusedModules();
/// A path in the form that the standard library's files and the environment take.
std::string FileName(const std::string& path);
void SetEnvironment(const char* name, const std::string& value);

/// Lets the version query of `module` (null: of this program) answer NT `major`.`minor` from now
/// on.
void SetOsVersion(HMODULE module, DWORD major, DWORD minor);

/// While it lives, HKEY_LOCAL_MACHINE of this process is an empty key of its own.
class PrivateLocalMachine {
 public:
  PrivateLocalMachine();
  PrivateLocalMachine(const PrivateLocalMachine&) = delete;
  PrivateLocalMachine& operator=(const PrivateLocalMachine&) = delete;
  ~PrivateLocalMachine();
};

/// While it lives, debug output of this process goes to standard error, one line each.
class DebugOutputToStderr {
 public:
  DebugOutputToStderr();
  DebugOutputToStderr(const DebugOutputToStderr&) = delete;
  DebugOutputToStderr& operator=(const DebugOutputToStderr&) = delete;
  ~DebugOutputToStderr();
};

/// While it lives, this thread may call COM objects of the apartment threading model.
class Apartment {
 public:
  Apartment();
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment();
};

/// Reads lines that a person types, with a history and completion where the system has them.
class LineEditor {
 public:
  /// `words` are offered as completions.
  explicit LineEditor(std::vector<std::string> words);
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;
  ~LineEditor();

  /// The next line without its end, none at the end of the input.
  std::optional<std::string> Read(const std::string& prompt);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace host::os
