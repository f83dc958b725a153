// SPDX-License-Identifier: MIT
// What one enabled effect takes at the size of a preview and of a 24-megapixel photo, at its most
// expensive setting: reset, all sliders low, all sliders high, and every item of its menus with the
// sliders high. Below, filters beside the same ones of other programs.
#include <QGuiApplication>
#include <array>
#include <cstdio>
#include <string>

#include "Peers.h"
#include "app/core/ApplicationServices.h"
#include "effects/FindEffect.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/ImageFile.h"

namespace brivolant::bench {
namespace {

constexpr int kPreviewWidth = 1600;
constexpr int kPreviewHeight = 1000;
constexpr int kLow = 10;
constexpr int kHigh = 100;

/// Positions of the sliders, and one menu's item.
struct Choice {
  int sliders = -1;
  int menu = -1;
  int item = 0;
};

std::string NameOf(const Choice& choice, effectModule& module) {
  if (choice.sliders < 0) return "reset";
  std::string name = "sliders at " + std::to_string(choice.sliders);
  if (choice.menu < 0) return name;
  const auto& items = module.Control(choice.menu).Menu->Children;
  return name + ", " + items.at(static_cast<std::size_t>(choice.item)).Text;
}

std::vector<Choice> ChoicesOf(effectModule& module) {
  std::vector<Choice> choices{{}, {kLow}, {kHigh}};
  for (int i = 0; i < module.ControlCount(); ++i) {
    if (module.Control(i).Type != kControlMenu) continue;
    const auto items = static_cast<int>(module.Control(i).Menu->Children.size());
    for (int k = 0; k < items; ++k) choices.push_back({kHigh, i, k});
  }
  return choices;
}

/// Fastest of a few runs, in milliseconds, with the choice set.
double TimeOf(brivolantProcessorLite& processor, effectModule& module, const Choice& choice,
              const Picture& photo, int rounds) {
  module.Enabled(false);
  module.ResetSettings();
  for (int i = 0; choice.sliders >= 0 && i < module.ControlCount(); ++i) {
    if (module.Control(i).Type == kControlSlider) module.ControlValue(i, choice.sliders);
  }
  if (choice.menu >= 0) module.ControlValue(choice.menu, choice.item);
  module.Enabled(true);
  return Fastest({[&] {
                   processor.ResetEffectCache();
                   (void)processor.Process(photo, {});
                 }},
                 rounds)[0];
}

bool MayTakeLonger(const std::string& name) {
  return name == "Oil Painting" || name == "Water Drops" || name == "Mosaic" || name == "Strings";
}

void ModuleRows(const Picture& photo, const Services& services, const std::string& only) {
  const Picture preview =
      SharedPictureEffects::Scale(photo, Count(kPreviewWidth, 160), Count(kPreviewHeight, 100),
                                  SharedPictureEffects::kScaleExactly);
  std::printf("%-24s %10s %8s  %10s %8s  %s\n", "effect", "1600x1000", "at most", "24 MP",
              "at most", "dearest setting");
  brivolantProcessorLite processor(EffectRegistry(), services);
  processor.Startup();
  for (int row = 0; row <= processor.Count(); ++row) {
    effectModule* const item = processor.item(row);
    if (item == nullptr || dynamic_cast<const EffectModuleDivider*>(item) != nullptr) continue;
    effectModule& module = *item;
    if (!module.Complete()) continue;
    if (!only.empty() && module.Name() != only) continue;
    double small = 0;
    Choice dearest;
    for (const Choice& choice : ChoicesOf(module)) {
      const double time = TimeOf(processor, module, choice, preview, 3);
      if (time > small) {
        small = time;
        dearest = choice;
      }
    }
    const double large = TimeOf(processor, module, dearest, photo, 2);
    const double aim = MayTakeLonger(module.Name()) ? 120 : 33;
    const double largeAim = MayTakeLonger(module.Name()) ? 1500 : 500;
    std::printf("%-24s %10.2f %8.0f  %10.1f %8.0f  %s%s\n", module.Name().c_str(), small, aim,
                large, largeAim, NameOf(dearest, module).c_str(),
                !Smoke() && (small > aim || large > largeAim) ? "  MISSED" : "");
    std::fflush(stdout);
    module.Enabled(false);
    module.ResetSettings();
  }
}

/// One filter of ours beside the same of others, at 24 megapixels.
struct Pair {
  const char* effect;
  /// Slider rows and their positions.
  std::vector<std::pair<int, double>> rows;
  /// ImageMagick's option and argument; empty if it has none.
  std::vector<std::string> magick;
  void (OpenCvPeer::*opencv)() const;
};

void PeerRows(const Picture& photo, const Services& services, const OpenCvPeer& opencv,
              const std::string& scratch) {
  const std::vector<Pair> pairs{
      {"Sepia", {{0, 100}}, {"-sepia-tone", "80%"}, &OpenCvPeer::Sepia},
      {"Posterize", {{0, 10}}, {"-posterize", "6"}, &OpenCvPeer::Lookup},
      {"Vignette", {}, {"-vignette", "0x20"}, nullptr},
      {"Motion Blur", {}, {"-motion-blur", "0x6+45"}, &OpenCvPeer::MotionBlur},
      {"Wave", {{0, 50}}, {"-wave", "40x1500"}, &OpenCvPeer::Warp},
      {"Oil Painting", {}, {"-paint", "3"}, nullptr},
      {"Diffuse", {}, {"-spread", "20"}, nullptr},
      {"Barrel Distortion", {{0, 70}}, {"-distort", "Barrel", "0.1 0 0 0.9"}, &OpenCvPeer::Warp}};
  const std::string photoFile = scratch + "/photo.ppm";
  const std::string cached = scratch + "/photo.mpc";
  RunProgram({"convert", scratch + "/photo.jpg", photoFile});
  RunProgram({"convert", photoFile, cached});
  Heading();
  for (const Pair& pair : pairs) {
    brivolantProcessorLite processor(EffectRegistry(), services);
    processor.Startup();
    effectModule& module = ModuleNamed(processor, pair.effect);
    for (const auto& [control, position] : pair.rows) module.ControlValue(control, position);
    module.Enabled(true);
    std::vector<std::string> command{"convert", cached};
    command.insert(command.end(), pair.magick.begin(), pair.magick.end());
    command.emplace_back("null:");
    const double ours = Fastest({[&] {
                                  processor.ResetEffectCache();
                                  (void)processor.Process(photo, {});
                                }},
                                3)[0];
    // The image lies mapped in memory: starting the program with it is taken off.
    const double start = Fastest({[&] { RunProgram({"convert", cached, "null:"}); }}, 3)[0];
    const double magick = Fastest({[&] { RunProgram(command); }}, 1)[0] - start;
    Row(pair.effect, ours, "ImageMagick " + pair.magick[0], magick, 1);
    if (pair.opencv == nullptr) continue;
    const double other = Fastest({[&] { (opencv.*pair.opencv)(); }}, 3)[0];
    Row(pair.effect, ours, "OpenCV", other, 1);
  }
}

}  // namespace
}  // namespace brivolant::bench

int main(int argc, char** argv) {
  using namespace brivolant;
  using namespace brivolant::bench;
  const QGuiApplication application(argc, argv);
  TakeSmoke(argc, argv);
  if (argc < 2 || argc > 3) {
    std::fprintf(stderr, "usage: module-table [--smoke] FOLDER-WITH-photo.jpg [EFFECT]\n");
    return 2;
  }
  const std::string scratch = argv[1];
  const QuietServices quiet;
  const Services& services = quiet.All();
  std::string error;
  const Picture photo =
      ImageIO::OpenAsPictureUsingImageIO(FolderItem(scratch).Child("photo.jpg"), error);
  if (photo.IsNil()) {
    std::fprintf(stderr, "%s\n", error.c_str());
    return 1;
  }
  ModuleRows(photo, services, argc == 3 ? argv[2] : "");
  if (argc == 2) PeerRows(photo, services, OpenCvPeer(photo), scratch);
  return 0;
}
