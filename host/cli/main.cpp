#include <exception>
#include <iostream>

#include "host/cli/run_host.h"
#include "host/os/os.h"

int main(int argc, char** argv) {
  host::os::PrepareStreams();
  try {
    const host::CommandLine commandLine = host::ParseCommandLine(host::os::Arguments(argc, argv));
    if (commandLine.information) {
      std::cout << *commandLine.information;
      return host::kSuccess;
    }
    return host::RunHost(commandLine, std::cout, std::cerr);
  } catch (const host::CommandLineError& error) {
    std::cerr << "wmihost: " << error.what() << '\n';
    return host::kBadInput;
  } catch (const std::exception& error) {
    std::cerr << "wmihost: " << error.what() << '\n';
    return host::kUnexpected;
  }
}
