#include <iostream>

#include "host/cli/run_host.h"
#include "host/os/os.h"

int main(int argc, char** argv) {
  const host::os::StandardStreams streams;
  return host::RunProgram(host::os::Arguments(argc, argv), std::cout, std::cerr);
}
