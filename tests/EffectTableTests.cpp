// SPDX-License-Identifier: MIT
// Rows, keys and defaults of looks, geometry, renderers and finishes: stored styles and the panel
// rely on each. The fixes have a table of their own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string_view>
#include <vector>

#include "EffectTables.h"
#include "Helpers.h"
#include "effects/FindEffect.h"
#include "engine/ModuleParameter.h"

namespace brivolant::test {
namespace {

struct Row {
  const char* caption;
  int type;
  float tick;
};

/// Values as texts; a reset of "-" leaves what was there.
struct Key {
  const char* key;
  const char* type;
  const char* onRead;
  const char* reset;
};

struct Effect {
  const char* className;
  std::vector<Row> rows;
  std::vector<Key> keys;
};

const std::vector<Effect>& Effects() {
  static const std::vector<Effect> effects{
      {"EffectModuleColorize",
       {{"Color:", 4, 0.0F}, {"Color Shift", 2, 0.0F}},
       {{"useColor", "colour", "&cFF8000", "&cFF0080"},
        {"ShiftInstead", "boolean", "False", "False"}}},
      {"EffectModuleGreyScale",
       {{"Method:", 5, 0.0F}, {"Use a Focal Point", 2, 0.0F}, {"Diameter:", 1, 0.0F}},
       {{"Type", "integer", "1", "0"},
        {"isFocal", "boolean", "False", "False"},
        {"focalRadius", "single", "0.4", "0.4"},
        {"focalXOffset", "single", "0.5", "0.5"},
        {"focalYOffset", "single", "0.5", "0.5"}}},
      {"EffectModuleSepia", {{"Strength:", 1, 0.0F}}, {{"Strength", "single", "1", "0.3"}}},
      {"EffectModuleDuoTone",
       {{"Black:", 4, 0.0F}, {"White:", 4, 0.0F}, {"Threshold:", 1, 0.5F}},
       {{"darkTone", "colour", "&c000000", "&c000000"},
        {"lightTone", "colour", "&cFFFFFF", "&cFFFFFF"},
        {"Threshold", "single", "0.5", "0.5"}}},
      {"EffectModuleTechnicolor", {}, {}},
      {"EffectModuleInverse",
       {{"Only light", 2, 0.0F}},
       {{"OnlyLight", "boolean", "False", "False"}}},
      {"EffectModulePosterize", {{"Strength:", 1, 0.0F}}, {{"Levels", "integer", "255", "16"}}},
      {"EffectModuleBitDepth",
       {{"Bit Depth:", 5, 0.0F}, {"Threshold:", 1, 0.5F}},
       {{"Depth", "integer", "0", "0"}, {"Threshold", "single", "1", "0.5"}}},
      {"EffectModuleOverBurn", {{"Strength:", 1, 0.5F}}, {{"Strength", "single", "0.5", "0.5"}}},
      {"EffectModulePopArt", {{"Threshold:", 1, 0.0F}}, {{"Threshold", "single", "0.5", "0.5"}}},
      {"EffectModuleGaussianBlur",
       {{"Radius:", 1, 0.0F}, {"Use a Focal Point", 2, 0.0F}, {"Diameter:", 1, 0.0F}},
       {{"GaussianRadius", "integer", "0", "5"},
        {"isFocal", "boolean", "False", "False"},
        {"focalRadius", "single", "0.4", "0.4"},
        {"focalXOffset", "single", "0.5", "0.5"},
        {"focalYOffset", "single", "0.5", "0.5"}}},
      {"EffectModuleMotionBlur",
       {{"Type:", 5, 0.0F},
        {"Radius:", 1, 0.0F},
        {"Angle:", 1, 0.0F},
        {"Distance:", 1, 0.0F},
        {"Repetitions:", 1, 0.0F}},
       {{"blurKind", "integer", "0", "0"},
        {"GaussianRadius", "double", "0", "5"},
        {"motionAngle", "double", "0", "0"},
        {"motionDistance", "integer", "0", "0"},
        {"motionRepetitions", "integer", "0", "0"}}},
      {"EffectModuleSharpen", {}, {}},
      {"EffectModuleDiffuse",
       {{"Radius:", 1, 0.0F}, {"Blur:", 2, 0.0F}},
       {{"Blur", "boolean", "True", "True"}, {"Radius", "integer", "10", "10"}}},
      {"EffectModuleBarrelDistortion",
       {{"Distortion:", 1, 0.5F}},
       {{"Distortion", "double", "0", "0"}}},
      {"EffectModuleWave",
       {{"Waves:", 1, 0.0F}, {"Back Color:", 4, 0.0F}},
       {{"backColor", "colour", "&c000000", "&c000000"}, {"Waves", "single", "0", "0"}}},
      {"EffectModuleWaterdrops",
       {{"Quantity:", 1, 0.0F}, {"Max Size:", 1, 0.0F}},
       {{"DropCount", "integer", "50", "50"}, {"DropSize", "integer", "50", "50"}}},
      {"EffectModuleFlip", {{"Direction:", 5, 0.0F}}, {{"Direction", "integer", "0", "0"}}},
      {"EffectModuleBackgroundScale",
       {{"Scale:", 1, 0.5F}},
       {{"Scale", "single", "1", "1"},
        {"xOffSet", "single", "0.5", "0.5"},
        {"yOffset", "single", "0.5", "0.5"}}},
      {"EffectModuleForegroundScale",
       {{"Scale:", 1, 0.5F}},
       {{"Scale", "single", "1", "1"},
        {"xOffSet", "single", "0.5", "0.5"},
        {"yOffset", "single", "0.5", "0.5"}}},
      {"EffectModuleInterlace", {}, {}},
      {"EffectModuleMosaic",
       {{"Shape:", 5, 0.0F},
        {"Tiles:", 1, 0.0F},
        {"Use Back Color:", 2, 0.0F},
        {"Back Color:", 4, 0.0F},
        {"Opacity:", 1, 0.0F},
        {"Vary:", 1, 0.0F},
        {"Drop Shadow:", 2, 0.0F}},
       {{"TileCount", "integer", "66", "60"},
        {"BackColor", "colour", "&cFFDFA6", "&cFFDFA6"},
        {"Background", "boolean", "True", "True"},
        {"shapes", "integer", "1", "1"},
        {"Transparency", "single", "1", "1"},
        {"varyPlacement", "single", "0.25", "0.25"},
        {"DropShadow", "boolean", "True", "True"}}},
      {"EffectModuleString",
       {{"Shape:", 5, 0.0F}, {"Back Color:", 4, 0.0F}, {"Drop Shadow:", 2, 0.0F}},
       {{"backColor", "colour", "&c000000", "&c404040"},
        {"DropShadow", "boolean", "False", "-"},
        {"Shape", "integer", "0", "0"}}},
      {"EffectModuleConfetti",
       {{"Type:", 5, 0.0F},
        {"Quantity:", 1, 0.0F},
        {"Random Color", 2, 0.0F},
        {"Color:", 4, 0.0F},
        {"Max Size:", 1, 0.0F}},
       {{"kind", "integer", "2", "-"},
        {"Opacity", "integer", "1", "-"},
        {"RandomColor", "boolean", "False", "False"},
        {"StarColor", "colour", "&cFFFFFF", "-"},
        {"StarCount", "integer", "10", "-"},
        {"maxSize", "single", "1", "1"}}},
      {"EffectModuleSegment",
       {{"Segments:", 1, 0.0F},
        {"Gap:", 1, 0.0F},
        {"Back Color:", 4, 0.0F},
        {"Drop Shadow:", 2, 0.0F}},
       {{"backColor", "colour", "&c000000", "&cFFFFFF"},
        {"Distance", "integer", "5", "10"},
        {"tileCount", "integer", "0", "1"},
        {"DropShadow", "boolean", "False", "True"}}},
      {"EffectModuleOilPainting",
       {{"Brush Size:", 1, 0.0F}, {"Smoothness", 1, 0.0F}},
       {{"BrushSize", "integer", "1", "1"}, {"Smoothness", "integer", "10", "10"}}},
      {"EffectModuleLineArt", {{"Type:", 5, 0.0F}}, {{"Mode", "integer", "0", "0"}}},
      {"EffectModuleText",
       {{"Font:", 5, 0.0F}, {"Color:", 4, 0.0F}, {"Caption:", 5, 0.0F}, {"", 3, 0.0F}},
       {{"myTextEngine", "texts", "-", "-"}}},
      {"EffectModuleTexture",
       {{"Texture:", 5, 0.0F}, {"Strength:", 1, 0.0F}, {"Scale:", 1, 0.5F}},
       {{"loadedtextureName", "string", "", ""},
        {"Strength", "single", "1", "1"},
        {"Scale", "single", "1", "1"}}},
      {"EffectModuleStraighten", {{"Angle:", 1, 0.5F}}, {{"Angle", "integer", "0", "0"}}},
      {"EffectModuleOutline",
       {{"Shape:", 5, 0.0F}, {"Size:", 1, 0.0F}, {"Color:", 4, 0.0F}, {"Effect:", 5, 0.0F}},
       {{"outlineColor", "colour", "&cFFFFFF", "&cFFFFFF"},
        {"shape", "integer", "0", "0"},
        {"Size", "single", "0.1", "0.1"},
        {"Effect", "integer", "0", "0"}}},
      {"EffectModuleVignette",
       {{"Color:", 4, 0.0F}, {"Radius:", 1, 0.5F}},
       {{"VignetteColor", "colour", "&c000000", "&c000000"},
        {"vignetteRadius", "single", "1", "0.5"}}},
      {"EffectModuleGloss", {{"Strength:", 1, 0.0F}}, {{"Power", "integer", "25", "25"}}},
      {"EffectModuleReflection",
       {{"Mode:", 5, 0.0F}, {"Color:", 4, 0.0F}},
       {{"mode", "integer", "0", "4"},
        {"Percent", "single", "33", "-"},
        {"backColor", "colour", "&c000000", "&c000000"}}},
      {"EffectModuleOverlay",
       {{"Type:", 5, 0.0F},
        {"Color:", 4, 0.0F},
        {"2nd Color:", 4, 0.0F},
        {"Opacity:", 1, 0.0F},
        {"", 3, 0.0F},
        {"Scale:", 1, 0.5F}},
       {{"overlayType", "integer", "0", "0"},
        {"overlayColor", "colour", "&c000000", "&cFF8000"},
        {"overlaySecondColor", "colour", "&c000000", "&c0080FF"},
        {"Alpha", "single", "1", "1"},
        {"myPIctureID", "string", "", "-"},
        {"PictureOffSetX", "single", "0.5", "0.5"},
        {"PictureOffsetY", "single", "0.5", "0.5"},
        {"PIctureScale", "single", "1", "1"}}},
  };
  return effects;
}

std::unique_ptr<effectModule> Make(std::string_view className) {
  const ModuleEntry& entry = EntryOf(className);
  auto module = entry.create(entry.foregroundClass == className ? kForeground : kBackground);
  module->Constructor();
  return module;
}

/// A value other than the given one.
Variant Other(const Variant& value) {
  if (const bool* yes = value.As<bool>()) return !*yes;
  if (value.Is<Color>()) return Color{1, 2, 3};
  if (value.Is<std::string>()) return "other";
  return value.ToDouble() + 1;
}

TEST(EffectTables, EveryEffectHasItsRow) {
  std::set<std::string_view> described;
  for (const Effect& effect : Effects()) described.insert(effect.className);
  for (const std::string_view name : ClassesOfModuleTable()) described.insert(name);
  std::vector<std::string> missing;
  for (const ModuleEntry& entry : EffectRegistry()) {
    const auto module = entry.create(kForeground);
    if (!module->Complete() || dynamic_cast<EffectModuleDivider*>(module.get()) != nullptr)
      continue;
    for (const std::string_view name : {entry.foregroundClass, entry.backgroundClass}) {
      if (!described.contains(name)) missing.emplace_back(name);
    }
  }
  EXPECT_THAT(missing, testing::IsEmpty()) << "add a row to Effects() for each";
}

TEST(EffectTables, RowsAreWhatThePanelShows) {
  for (const Effect& effect : Effects()) {
    SCOPED_TRACE(effect.className);
    const auto module = Make(effect.className);
    ASSERT_NE(module, nullptr);
    ASSERT_EQ(module->ControlCount(), static_cast<int>(effect.rows.size()));
    for (int i = 0; i < module->ControlCount(); ++i) {
      const Row& row = effect.rows[static_cast<std::size_t>(i)];
      const EffectModuleControl& control = module->Control(i);
      // A row without a caption holds a blank.
      EXPECT_EQ(Trim(control.Caption), row.caption);
      EXPECT_EQ(control.Type, row.type) << row.caption;
      EXPECT_EQ(control.DrawLine, row.tick) << row.caption;
      // The menu of fonts is the window's own.
      const bool hasItems = row.type == kControlMenu && std::string_view(row.caption) != "Font:";
      EXPECT_EQ(control.Menu.has_value(), hasItems) << row.caption;
      if (row.type != kControlSlider) continue;
      // Every position of a slider comes back as it was set, but for what whole numbers lose.
      module->ResetSettings();
      module->ControlValue(i, 60);
      EXPECT_NEAR(module->ControlValue(i).ToDouble(), 60, 17) << row.caption;
    }
  }
}

TEST(EffectTables, KeysHoldTheirDefaults) {
  for (const Effect& effect : Effects()) {
    SCOPED_TRACE(effect.className);
    const auto module = Make(effect.className);
    ASSERT_NE(module, nullptr);
    module->ResetSettings();
    const Dictionary fresh = module->Settings();
    // What the dice follow from is the same for all that play them, and tested there.
    EXPECT_EQ(fresh.Count(), static_cast<int>(effect.keys.size()) + (module->PlaysDice() ? 1 : 0));
    // A style that holds no key gives the defaults on read.
    module->Settings(Dictionary());
    const Dictionary read = module->Settings();
    // A style that holds others gives those, and a reset the reset values.
    Dictionary others;
    for (const Key& key : effect.keys) others.Value(key.key, Other(fresh.Value(key.key)));
    module->Settings(others);
    const Dictionary stored = module->Settings();
    module->ResetSettings();
    const Dictionary reset = module->Settings();
    for (const Key& key : effect.keys) {
      SCOPED_TRACE(key.key);
      const auto& parameters = module->Parameters();
      const auto found =
          std::find_if(parameters.begin(), parameters.end(),
                       [&](const ParameterBase* parameter) { return parameter->Key() == key.key; });
      ASSERT_NE(found, parameters.end());
      EXPECT_EQ((*found)->TypeName(), key.type);
      // Boxes of text are no simple value and have tests of their own.
      if ((*found)->TypeName() == "texts") continue;
      EXPECT_EQ(read.Value(key.key).ToText(), key.onRead);
      EXPECT_NE(stored.Value(key.key).ToText(), fresh.Value(key.key).ToText());
      EXPECT_EQ(reset.Value(key.key).ToText(),
                std::string_view(key.reset) == "-" ? stored.Value(key.key).ToText() : key.reset);
    }
  }
}

}  // namespace
}  // namespace brivolant::test
