#include <exception>
#include <iostream>

#include "host/cli/command_line.h"
#include "host/cli/run_host.h"
#include "host/os/os.h"

namespace {

host::ExitStatus Run(int argc, char** argv) {
  try {
    const host::CommandLine commandLine = host::ParseCommandLine(host::os::Arguments(argc, argv));
    if (commandLine.information) {
      std::cout << *commandLine.information;
      return host::kSuccess;
    }
    return host::RunHost(commandLine.command, std::cout, std::cerr);
  } catch (const host::CommandLineError& error) {
    std::cerr << "wmihost: " << error.what() << '\n';
    return host::kBadInput;
  } catch (const std::exception& error) {
    std::cerr << "wmihost: " << error.what() << '\n';
    return host::kUnexpected;
  }
}

}  // namespace

int main(int argc, char** argv) {
  host::os::PrepareStreams();
  const host::ExitStatus status = Run(argc, argv);
  // The one end of every command: what was shown counts only if it was written.
  if (std::cout.flush()) return status;
  std::cerr << "wmihost: standard output could not be written whole\n";
  return host::kNotWritten;
}
