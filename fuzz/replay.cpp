// replay FOLDER: tries every input of FOLDER/NAME.txt, one a line in hexadecimal digits, with each
// fuzzer, without the fuzzing library.

#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.h"

namespace {

constexpr struct {
  const char* name;
  void (*target)(FuzzInput);
} kTargets[] = {
#define FUZZ_TARGET(name) {#name, Fuzz_##name},
#include "fuzz/targets.inc"
#undef FUZZ_TARGET
};

std::vector<std::uint8_t> BytesOf(const std::string& digits) {
  std::vector<std::uint8_t> bytes;
  for (std::size_t at = 0; at + 2 <= digits.size(); at += 2) {
    bytes.push_back(static_cast<std::uint8_t>(std::stoul(digits.substr(at, 2), nullptr, 16)));
  }
  return bytes;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  for (const auto& [name, target] : kTargets) {
    std::ifstream corpus(std::string(arguments[1]) + "/" + name + ".txt");
    int inputs = 0;
    for (std::string line; std::getline(corpus, line); ++inputs) {
      const std::vector<std::uint8_t> bytes = BytesOf(line);
      target(bytes);
    }
    std::cout << name << ": " << inputs << " inputs" << std::endl;
    if (inputs == 0) return 1;
  }
  return 0;
}
