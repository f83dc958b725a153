// SPDX-License-Identifier: MIT
// Shows every style of a folder on some photos, one sheet a category: for eyes to look at.
// style-sheet STYLES FOLDER PHOTO...
#include <QGuiApplication>
#include <cstdio>

#include "app/core/ApplicationServices.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "effects/styles/StyleSource.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/ImageFile.h"
#include "platform/pictures/Graphics.h"

namespace brivolant {
namespace {

constexpr int kRender = 900;
constexpr int kCell = 260;
constexpr int kLabel = 22;
/// Styles beside one another.
constexpr int kAcross = 2;

int Run(const FolderItem& styles, const FolderItem& folder, const std::vector<Picture>& photos,
        const Services& services) {
  OneClickWonderStorage storage(services);
  storage.DefaultWondersFolder = styles;
  storage.usersCustomWondersFolder = folder;
  storage.Load();
  const int line = kCell + kLabel;
  const auto across = static_cast<int>(photos.size());
  for (int category = 0; category < storage.CategoryCount(); ++category) {
    storage.currentCategory = category;
    const int rows = (storage.Count() + 1 + kAcross - 1) / kAcross;
    Picture sheet = NewPicture(kAcross * across * (kCell + 6), rows * line, 24);
    for (int i = 0; i <= storage.Count(); ++i) {
      // The photos themselves come first.
      const auto style = i == 0 ? nullptr : storage.item(i - 1);
      const int x = i % kAcross * across * (kCell + 6);
      const int y = i / kAcross * line;
      for (int k = 0; k < across; ++k) {
        const Picture cell = SharedPictureEffects::Scale(
            StyleSource::Render(style == nullptr ? std::string() : style->StyleData,
                                photos[static_cast<std::size_t>(k)], kRender, services),
            kCell, kCell, SharedPictureEffects::kScaleToFit);
        Graphics g(sheet);
        g.DrawPicture(cell, x + k * (kCell + 6), y);
        g.TextSize = 14;
        if (k == 0 && style != nullptr) g.DrawString(style->Name(0), x, y + kCell + 15);
      }
    }
    std::string error;
    const FolderItem file = folder.Child(
        OneClickWonderStorage::CategoryName.at(static_cast<std::size_t>(category)).English +
        std::string(".jpg"));
    if (!ImageIO::SaveAsJPEG(file, sheet, 0.9, error)) {
      std::fprintf(stderr, "%s\n", error.c_str());
      return 1;
    }
  }
  return 0;
}

}  // namespace
}  // namespace brivolant

int main(int argc, char** argv) {
  using namespace brivolant;
  const QGuiApplication application(argc, argv);
  if (argc < 4) {
    std::fprintf(stderr, "usage: style-sheet STYLES FOLDER PHOTO...\n");
    return 2;
  }
  const QuietServices quiet;
  std::vector<Picture> photos;
  for (int i = 3; i < argc; ++i) {
    std::string error;
    photos.push_back(ImageIO::OpenAsPictureUsingImageIO(FolderItem(argv[i]), error));
    if (photos.back().IsNil()) {
      std::fprintf(stderr, "%s\n", error.c_str());
      return 1;
    }
  }
  return Run(FolderItem(argv[1]), FolderItem(argv[2]), photos, quiet.All());
}
