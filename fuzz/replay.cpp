// replay FOLDER VARIATIONS: tries every input of FOLDER/NAME.txt, one per line in hexadecimal
// digits, with each fuzzer, without the fuzzing library: unchanged, and then changed at random, the
// same way in every run. A finding prints its input, a line to add to the corpus.

#include <sanitizer/common_interface_defs.h>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr struct {
  const char* name;
  void (*target)(FuzzInput);
} kTargets[] = {
#define FUZZ_TARGET(name) {#name, Fuzz_##name},
#include "fuzz/targets.inc"
#undef FUZZ_TARGET
};

std::vector<Bytes> ReadCorpus(const std::string& path) {
  std::ifstream file(path);
  std::vector<Bytes> inputs;
  for (std::string line; std::getline(file, line);) {
    Bytes& bytes = inputs.emplace_back();
    for (std::size_t at = 0; at + 2 <= line.size(); at += 2) {
      bytes.push_back(static_cast<std::uint8_t>(std::stoul(line.substr(at, 2), nullptr, 16)));
    }
  }
  return inputs;
}

Bytes tried;

void PrintTried() {
  std::fputs("found with the input ", stderr);
  for (const std::uint8_t byte : tried) std::fprintf(stderr, "%02X", byte);
  std::fputs("\n", stderr);
}

class Variations {
 public:
  explicit Variations(const std::vector<Bytes>& corpus) : corpus_(corpus) {}

  /// The input with up to four changes.
  Bytes Of(Bytes bytes) {
    for (std::size_t left = 1 + Below(4); left > 0; --left) Change(bytes);
    return bytes;
  }

 private:
  std::size_t Below(std::size_t end) { return random_() % end; }

  void Change(Bytes& bytes) {
    constexpr std::uint8_t kTelling[] = {0, 1, 0x7F, 0x80, 0xFF, '"', '\\', '.', ',', '='};
    const auto at = bytes.begin() + static_cast<std::ptrdiff_t>(Below(bytes.size() + 1));
    const auto end =
        at + static_cast<std::ptrdiff_t>(Below(static_cast<std::size_t>(bytes.end() - at) + 1));
    switch (Below(5)) {
      case 0:
        bytes.insert(at, kTelling[Below(std::size(kTelling))]);
        break;
      case 1:
        if (at != bytes.end()) *at ^= static_cast<std::uint8_t>(1 << Below(8));
        break;
      case 2:
        bytes.erase(at, end);
        break;
      case 3: {
        const Bytes repeated(at, end);
        bytes.insert(at, repeated.begin(), repeated.end());
        break;
      }
      default: {
        const Bytes& other = corpus_[Below(corpus_.size())];
        bytes.erase(at, bytes.end());
        bytes.insert(bytes.end(),
                     other.begin() + static_cast<std::ptrdiff_t>(Below(other.size() + 1)),
                     other.end());
      }
    }
  }

  const std::vector<Bytes>& corpus_;
  std::mt19937 random_;  // NOLINT(cert-msc51-cpp): every run tries the same inputs
};

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) return 2;
  const int variations = std::stoi(arguments[2]);
  std::signal(SIGABRT, [](int) { PrintTried(); });
  __sanitizer_set_death_callback(PrintTried);
  for (const auto& [name, target] : kTargets) {
    const std::string file = std::string(name) + ".txt";
    const std::vector<Bytes> corpus = ReadCorpus(std::string(arguments[1]) + "/" + file);
    if (corpus.empty()) {
      std::cerr << file << ": no inputs\n";
      return 1;
    }
    const auto attempt = [run = target](Bytes bytes) {
      tried = std::move(bytes);
      run(tried);
    };
    Variations varied(corpus);
    for (const Bytes& bytes : corpus) {
      attempt(bytes);
      for (int left = variations; left > 0; --left) attempt(varied.Of(bytes));
    }
    std::cout << name << ": " << corpus.size() * static_cast<std::size_t>(1 + variations)
              << " inputs" << std::endl;
  }
  return 0;
}
