#pragma once
// What the host needs of the operating system and what differs between Windows and elsewhere.
// Texts and paths are UTF-8.

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
/// Loads a module; null if that fails.
HMODULE LoadModule(const std::string& path);
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

}  // namespace host::os
