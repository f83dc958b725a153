// SPDX-License-Identifier: MIT
// Renders every effect at its reset settings, with its sliders low and with them high, and writes
// one sheet a group of effects: at a preview's size, and from a full-size render shrunk to it.
#include <QGuiApplication>
#include <cstdio>

#include "app/core/ApplicationServices.h"
#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/ImageFile.h"
#include "platform/pictures/Graphics.h"

namespace brivolant {
namespace {

constexpr int kPreview = 1600;
constexpr int kFull = 6000;
constexpr int kCell = 400;
constexpr int kLabel = 22;
constexpr int kLow = 15;
constexpr int kHigh = 85;

struct Look {
  const char* name;
  /// Position of all sliders; -1 leaves the reset settings.
  int sliders;
  int width;
};
constexpr Look kLooks[] = {{"reset", -1, kPreview},
                           {"low", kLow, kPreview},
                           {"high", kHigh, kPreview},
                           {"reset, full size", -1, kFull}};

Picture Rendered(const Picture& photo, const Services& services, int row, const Look& look) {
  using namespace SharedPictureEffects;
  brivolantProcessorLite processor(EffectRegistry(), services);
  processor.Startup();
  // What falls by dice falls alike in every cell.
  processor.Seed(1);
  effectModule& module = *processor.item(row);
  for (int i = 0; look.sliders >= 0 && i < module.ControlCount(); ++i) {
    if (module.Control(i).Type == kControlSlider) module.ControlValue(i, look.sliders);
  }
  for (int i = 0; i < module.ControlCount(); ++i) {
    // A menu without a choice takes its first item.
    const bool open = module.Control(i).Menu && module.ControlValue(i).ToInt() < 0;
    if (open) module.ControlValue(i, 0);
  }
  module.Enabled(true);
  const int height = photo.Height() * look.width / photo.Width();
  return Scale(processor.Process(Scale(photo, look.width, height, kScaleExactly), {}), kCell, kCell,
               kScaleToFit);
}

void Draw(Picture& sheet, const Picture& cell, const std::string& label, int column, int line,
          int lineHeight) {
  Graphics g(sheet);
  const int x = column * (kCell + 8) + 8;
  const int y = line * lineHeight + 8;
  g.DrawPicture(cell, x, y);
  g.TextSize = 14;
  g.DrawString(label, x, y + lineHeight - 14);
}

bool WriteSheet(const Picture& photo, const Services& services, const std::string& name,
                const std::vector<int>& rows, const std::string& folder) {
  const int columns = 1 + static_cast<int>(std::size(kLooks));
  const int lineHeight = photo.Height() * kCell / photo.Width() + kLabel + 8;
  Picture sheet =
      NewPicture(columns * (kCell + 8) + 8, static_cast<int>(rows.size()) * lineHeight + 8, 24);
  const Picture input =
      SharedPictureEffects::Scale(photo, kCell, kCell, SharedPictureEffects::kScaleToFit);
  brivolantProcessorLite names(EffectRegistry(), services);
  names.Startup();
  for (std::size_t line = 0; line < rows.size(); ++line) {
    const std::string module = names.item(rows[line])->Name();
    Draw(sheet, input, module, 0, static_cast<int>(line), lineHeight);
    int column = 1;
    for (const Look& look : kLooks) {
      Draw(sheet, Rendered(photo, services, rows[line], look), module + ", " + look.name, column,
           static_cast<int>(line), lineHeight);
      ++column;
    }
    std::printf("%s\n", module.c_str());
  }
  std::string error;
  if (!ImageIO::SaveAsJPEG(FolderItem(folder).Child(name + ".jpg"), sheet, 0.9, error)) {
    std::fprintf(stderr, "%s\n", error.c_str());
    return false;
  }
  return true;
}

int Run(const std::string& file, const std::string& folder) {
  const QuietServices quiet;
  const Services& services = quiet.All();
  std::string error;
  const Picture photo = ImageIO::OpenAsPictureUsingImageIO(FolderItem(file), error);
  if (photo.IsNil()) {
    std::fprintf(stderr, "%s\n", error.c_str());
    return 1;
  }
  brivolantProcessorLite processor(EffectRegistry(), services);
  processor.Startup();
  bool complete = true;
  std::string group;
  std::vector<int> rows;
  const auto finish = [&] {
    if (!rows.empty()) complete = WriteSheet(photo, services, group, rows, folder) && complete;
    rows.clear();
  };
  for (int i = 0; i <= processor.Count(); ++i) {
    const effectModule* module = processor.item(i);
    if (module == nullptr) continue;
    if (dynamic_cast<const EffectModuleDivider*>(module) != nullptr) {
      finish();
      group = module->Name();
    } else if (module->Complete()) {
      rows.push_back(i);
    }
  }
  finish();
  return complete ? 0 : 1;
}

}  // namespace
}  // namespace brivolant

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "usage: contact-sheet PHOTO FOLDER\n");
    return 2;
  }
  return brivolant::Run(argv[1], argv[2]);
}
