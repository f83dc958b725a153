// SPDX-License-Identifier: MIT
#include "Helpers.h"

#include <QGuiApplication>
#include <QLocale>
#include <memory>

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "platform/files/AtomicFile.h"
#include "platform/values/Numbers.h"

namespace {

/// Effects that draw texts need fonts, and fonts an application. The tests of windows bring theirs.
class Fonts final : public testing::Environment {
 public:
  void SetUp() override {
    if (QCoreApplication::instance() != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = std::make_unique<QGuiApplication>(count_, arguments_);
    // As the programs do. Numbers stay the user's, to find out who reads them with the C library.
    brivolant::KeepLibraryLettersPlain();
  }
  void TearDown() override { application_.reset(); }

 private:
  int count_ = 1;
  char name_[16] = "brivolant-tests";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QGuiApplication> application_;
};

[[maybe_unused]] const testing::Environment* const fonts =
    testing::AddGlobalTestEnvironment(new Fonts);

}  // namespace

namespace brivolant::test {

EnglishNumbers::EnglishNumbers() {
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
}

EnglishNumbers::~EnglishNumbers() {
  QLocale::setDefault(QLocale::system());
}

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "brivolant-test.XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) ADD_FAILURE() << "no temporary folder";
  folder_ = FolderItem(std::filesystem::path(pattern));
}

TemporaryFolder::~TemporaryFolder() {
  (void)folder_.DeleteFolder();
}

FolderItem TemporaryFolder::Write(std::string_view name, std::string_view bytes) const {
  const FolderItem file = Child(name);
  EXPECT_FALSE(WriteFileAtomically(file, bytes));
  return file;
}

std::vector<std::string> TemporaryFolder::Names() const {
  std::vector<std::string> names;
  for (const FolderItem& child : folder_.Children()) names.push_back(child.Name());
  std::sort(names.begin(), names.end());
  return names;
}

TestServices::TestServices() {
  EXPECT_TRUE(temporary.Configure(folder.Child("CleanOnQuit")));
}

Picture TestPicture(int width, int height, std::uint32_t seed) {
  std::mt19937 random(seed);
  Picture picture = Picture::Uninitialized(width, height);
  const Pixels pixels = picture.Edit();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      std::uint8_t* p = pixels.Row(y) + std::ptrdiff_t{4} * x;
      const std::uint32_t noise = random();
      // Extremes are where formulas break: every eighth pixel is one.
      const bool extreme = (noise >> 24) % 8 == 0;
      for (int c = 0; c < 3; ++c) {
        const auto n = static_cast<int>(noise >> (8 * c) & 0xFF);
        const int slope = (x * 255 / std::max(1, width - 1) + y * (c + 1) * 3) % 256;
        p[c] = static_cast<std::uint8_t>(extreme ? (n > 127 ? 255 : 0) : (slope * 3 + n) / 4);
      }
      p[3] = 255;
    }
  }
  return picture;
}

Plane TestPlane(int width, int height, std::uint32_t seed) {
  const Picture picture = TestPicture(width, height, seed);
  Plane plane(width, height, 0);
  const Grey grey = plane.Edit();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) grey.Row(y)[x] = picture.At(x, y).Green;
  }
  return plane;
}

Picture PlainPicture(int width, int height, Color color) {
  Picture picture = NewPicture(width, height, 24);
  const Pixels pixels = picture.Edit();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      std::uint8_t* p = pixels.Row(y) + std::ptrdiff_t{4} * x;
      p[0] = color.Blue;
      p[1] = color.Green;
      p[2] = color.Red;
    }
  }
  return picture;
}

int LargestDifference(const Picture& a, const Picture& b) {
  if (a.Width() != b.Width() || a.Height() != b.Height()) return 1000;
  int largest = 0;
  for (int y = 0; y < a.Height(); ++y) {
    for (int x = 0; x < a.Width(); ++x) {
      const Color p = a.At(x, y);
      const Color q = b.At(x, y);
      largest = std::max({largest, std::abs(p.Red - q.Red), std::abs(p.Green - q.Green),
                          std::abs(p.Blue - q.Blue)});
    }
  }
  return largest;
}

int LargestDifference(const Plane& a, const Plane& b) {
  if (a.Width() != b.Width() || a.Height() != b.Height()) return 1000;
  int largest = 0;
  for (int y = 0; y < a.Height(); ++y) {
    for (int x = 0; x < a.Width(); ++x)
      largest = std::max(largest, std::abs(a.At(x, y) - b.At(x, y)));
  }
  return largest;
}

std::string Bytes(std::string_view hexadecimal) {
  std::string bytes;
  std::string digits;
  for (const char c : hexadecimal) {
    if (c == ' ') continue;
    digits += c;
    if (digits.size() == 2) {
      bytes += static_cast<char>(std::stoi(digits, nullptr, 16));
      digits.clear();
    }
  }
  return bytes;
}

}  // namespace brivolant::test
