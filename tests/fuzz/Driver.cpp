// SPDX-License-Identifier: MIT
// Runs a fuzz target without libFuzzer: every seed as it is, then changed copies of the seeds.
// The changes are drawn from a fixed generator and the seeds taken by name, so a failure repeats on
// every machine. The input lies in a file while it runs, and stays there if it ends the program.
#include <unistd.h>

#include <algorithm>
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

/// Where the input that runs can be found.
class Kept {
 public:
  explicit Kept(std::string path)
      : path_(std::move(path)), file_(std::fopen(path_.c_str(), "wbe")) {
    if (file_ == nullptr) {
      std::perror(path_.c_str());
      std::exit(2);
    }
    std::printf("The input that runs is kept in %s\n", path_.c_str());
    std::fflush(stdout);
  }
  ~Kept() {
    std::fclose(file_);
    std::filesystem::remove(path_);
  }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;

  void Run(const std::string& bytes) {
    std::rewind(file_);
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file_) == bytes.size() &&
                         std::fflush(file_) == 0 &&
                         ftruncate(fileno(file_), static_cast<off_t>(bytes.size())) == 0;
    if (!written) {
      std::perror(path_.c_str());
      std::exit(2);
    }
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }

 private:
  std::string path_;
  std::FILE* file_;
};

std::string Bytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// An empty one, then those of the folder by name: folders have an order of their own.
std::vector<std::string> Seeds(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  std::vector<std::string> seeds{std::string()};
  for (const auto& path : paths) seeds.push_back(Bytes(path));
  return seeds;
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
  if (argc == 2) {
    const std::string bytes = Bytes(argv[1]);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return 0;
  }
  if (argc != 3) {
    std::fprintf(stderr, "usage: %s RUNS SEEDS, or %s INPUT to repeat one\n", argv[0], argv[0]);
    return 2;
  }
  const std::vector<std::string> seeds = Seeds(argv[2]);
  const std::string program = argv[0];
  Kept kept(program + ".input");
  for (const std::string& seed : seeds) kept.Run(seed);
  std::mt19937_64 random(20090304);
  const int runs = std::atoi(argv[1]);
  for (int i = 0; i < runs; ++i) {
    const std::string& seed = seeds[random() % seeds.size()];
    kept.Run(Changed(seed, seeds, random));
  }
  std::printf("%zu seeds, %d changed copies\n", seeds.size(), runs);
  return seeds.size() > 1 ? 0 : 1;
}
