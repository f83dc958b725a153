// SPDX-License-Identifier: MIT
// Builds the program's own 1-Click styles from their sources: make-styles SOURCES FOLDER
// EXAMPLE.jpg.
#include <QGuiApplication>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "app/core/ApplicationServices.h"
#include "effects/styles/StyleSource.h"
#include "formats/ImageFile.h"
#include "platform/values/SharedComponents.h"

namespace brivolant {
namespace {

constexpr int kPreviewSide = 100;

class Silent final : public Log, public Dialogs {
 public:
  void Write(std::string_view) override {}
  void Message(const std::string&, const std::string&) override {}
};

/// The same files whoever builds them, and whenever.
class Builder final : public UserDetails, public Clock {
 public:
  std::string FullName() const override { return "Quillmere"; }
  std::string ContactLink() const override { return {}; }
  std::string Copyright() const override { return {}; }
  std::string CreatedWith() const override { return "Brivolant Photos"; }
  Date Now() override { return {2026, 1, 1, 0, 0, 0}; }
};

int Run(const FolderItem& sources, const FolderItem& folder, const FolderItem& exampleFile) {
  Silent silent;
  Builder builder;
  SystemRandom random(1);
  LazyTemporaryFiles files(random);
  const Services services{silent, silent, builder, files, builder, random};
  std::string error;
  const Picture example = ImageIO::OpenAsPictureUsingImageIO(exampleFile, error);
  if (example.IsNil()) {
    std::fprintf(stderr, "%s\n", error.c_str());
    return 1;
  }
  for (const FolderItem& old : folder.Children()) (void)old.Delete();
  std::vector<FolderItem> children = sources.Children();
  std::sort(children.begin(), children.end(),
            [](const FolderItem& a, const FolderItem& b) { return a.Name() < b.Name(); });
  int made = 0;
  for (const FolderItem& source : children) {
    if (!source.Name().ends_with(".style")) continue;
    const auto text = ReadFile(source);
    OneClickWonder style(services);
    style.Creator = builder.FullName();
    if (!text || !StyleSource::Read(*text, services, style, error)) {
      std::fprintf(stderr, "%s: %s\n", source.DisplayName().c_str(), error.c_str());
      return 1;
    }
    style.Preview(StyleSource::Render(style.StyleData, example, kPreviewSide, services));
    style.GenerateFile(folder);
    if (!style.Save({})) {
      std::fprintf(stderr, "%s\n", style.LastErrorMessage.c_str());
      return 1;
    }
    ++made;
  }
  std::printf("%d styles\n", made);
  return made > 0 ? 0 : 1;
}

}  // namespace
}  // namespace brivolant

int main(int argc, char** argv) {
  // Fonts without a screen.
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const QGuiApplication application(argc, argv);
  if (argc != 4) {
    std::fprintf(stderr, "usage: make-styles SOURCES FOLDER EXAMPLE.jpg\n");
    return 2;
  }
  using brivolant::FolderItem;
  return brivolant::Run(FolderItem(argv[1]), FolderItem(argv[2]), FolderItem(argv[3]));
}
