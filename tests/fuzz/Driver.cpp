// SPDX-License-Identifier: MIT
// Runs a fuzz target without libFuzzer: every seed as it is, then changed copies of the seeds.
// The changes are drawn from a fixed generator, so a failure repeats.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void RunOn(const std::string& bytes) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

std::string Changed(std::string bytes, const std::vector<std::string>& seeds,
                    std::mt19937_64& random) {
  const int changes = 1 + static_cast<int>(random() % 6);
  for (int i = 0; i < changes; ++i) {
    const std::size_t at = bytes.empty() ? 0 : random() % bytes.size();
    switch (random() % 6) {
      case 0:
        if (!bytes.empty()) bytes[at] = static_cast<char>(random());
        break;
      case 1:
        bytes.resize(at);
        break;
      case 2:
        // Lengths and counts live in four bytes: extremes find missing checks.
        for (std::size_t k = at; k < bytes.size() && k < at + 4; ++k) {
          bytes[k] = static_cast<char>(random() % 2 == 0 ? 0xFF : 0x7F);
        }
        break;
      case 3:
        bytes.insert(at, std::string(random() % 9, static_cast<char>(random())));
        break;
      case 4:
        bytes.erase(at, random() % 9);
        break;
      default: {
        const std::string& other = seeds[random() % seeds.size()];
        if (!other.empty()) bytes.insert(at, other.substr(random() % other.size(), 64));
        break;
      }
    }
  }
  return bytes;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: %s RUNS SEEDS\n", argv[0]);
    return 2;
  }
  std::vector<std::string> seeds{std::string()};
  for (const auto& entry : std::filesystem::directory_iterator(argv[2])) {
    std::ifstream file(entry.path(), std::ios::binary);
    seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  for (const std::string& seed : seeds) RunOn(seed);
  std::mt19937_64 random(20090304);
  const int runs = std::atoi(argv[1]);
  for (int i = 0; i < runs; ++i) RunOn(Changed(seeds[random() % seeds.size()], seeds, random));
  std::printf("%zu seeds, %d changed copies\n", seeds.size(), runs);
  return seeds.size() > 1 ? 0 : 1;
}
