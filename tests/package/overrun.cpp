// overrun.exe N: writes N bytes into a buffer of 8 on the stack.
#include <cstdlib>
#include <cstring>

int main(int, char** argv) {
  char buffer[8];
  volatile std::size_t size = std::strtoul(argv[1], nullptr, 10);
  std::memset(buffer, 1, size);
  return buffer[0] - 1;
}
