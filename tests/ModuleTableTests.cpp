// SPDX-License-Identifier: MIT
// The rows, keys and defaults of the fixes: stored styles and the panel rely on each.
#include <gtest/gtest.h>

#include "EffectTables.h"
#include "Helpers.h"
#include "effects/FindEffect.h"
#include "engine/ModuleParameter.h"

namespace brivolant::test {
namespace {

struct RowFacts {
  const char* caption;
  int type;
  double tick;
  /// Of a new module: a slider's position as the panel truncates it, or a button's label.
  const char* shown;
};

struct KeyFacts {
  const char* key;
  const char* type;
  double onRead;
  double reset;
};

struct ModuleFacts {
  const char* className;
  const char* id;
  const char* name;
  std::vector<RowFacts> rows;
  std::vector<KeyFacts> keys;
};

const std::vector<ModuleFacts>& Facts() {
  static const std::vector<ModuleFacts> facts{
      {"EffectModuleAutoContrast", "07F7CED1-1E2B-A9BC-DDBD-921224317768", "Auto Contrast", {}, {}},
      {"EffectModuleAutoLevels", "0E689855-F4E8-FCC3-AC7B-1E502A2B8095", "Auto Levels", {}, {}},
      {"EffectModuleBrightnessContrast",
       "7FFFFFFF-D09E-9F58-95EE-A46B2D22CAC1",
       "Brightness & Contrast",
       {{"Brightness:", 1, 0.5, "50"}, {"Contrast:", 1, 0.5, "50"}},
       {{"Brightness", "double", 1, 1}, {"Contrast", "double", 1, 1}}},
      {"EffectModuleColorAdjuster",
       "3D1813CB-F7BA-4CB7-CA79-560F15DCE47B",
       "Color Balance",
       {{"Red:", 1, 0.5, "50"},
        {"Green:", 1, 0.5, "50"},
        {"Blue:", 1, 0.5, "50"},
        {"Pixel:", 3, 0, "Select"}},
       {{"Red", "single", 1, 1}, {"Green", "single", 1, 1}, {"Blue", "single", 1, 1}}},
      {"EffectModuleWhiteBalance",
       "0E8D83EB-6CCF-CC4D-43C9-84CAE1BD54DA",
       "White Balance",
       {{"Temperature:", 1, 0.15F, "19"}},
       {{"Temperature", "integer", 5000, 5000}}},
      {"EffectModuleDigitalFlash",
       "0E0C7AE9-5559-6F0D-F2D4-C316A9F849FB",
       "Digital Flash",
       {{"Strength:", 1, 0.5, "50"}},
       {{"Strength", "single", 1, 1}}},
      {"EffectModuleExposure",
       "3237324B-C5C6-997D-40B1-DFC3C16BAEB2",
       "Exposure",
       {{"Exposure:", 1, 0.5, "50"}},
       {{"Power", "double", 1, 0}}},
      {"EffectModuleLevels",
       "7FFFFFFF-B3AC-4C8A-146F-1F804A5B9B06",
       "Levels",
       {{"In", 0, 0, ""},
        {"Black:", 1, 0, "0"},
        {"White:", 1, 0, "100"},
        {"Out", 0, 0, ""},
        {"Black:", 1, 0, "0"},
        {"White:", 1, 0, "100"}},
       {{"Shadows", "integer", 0, 0},
        {"Highlights", "integer", 255, 255},
        {"OutBlack", "integer", 0, 0},
        {"OutWhite", "integer", 255, 255}}},
      {"EffectModuleShadowsHighlight",
       "2EF3FA3F-93B2-B20D-BFA7-3E5957A43F2C",
       "Shadow & Highlight",
       {{"Shadow:", 1, 0, "0"}, {"Highlight:", 1, 0, "0"}, {"Blur:", 1, 0, "0"}},
       {{"Shadows", "integer", 0, 0}, {"Highlights", "integer", 0, 0}, {"Blur", "integer", 0, 0}}},
      {"EffectModuleChannelContrast",
       "4A5533F7-1FC6-4312-9E40-A008D1BDEE88",
       "Channel Contrast",
       {{"Red:", 1, 0.5, "50"}, {"Green:", 1, 0.5, "50"}, {"Blue:", 1, 0.5, "50"}},
       {{"redContrast", "single", 1, 1},
        {"greenContrast", "single", 1, 1},
        {"blueContrast", "single", 1, 1}}},
      {"EffectModuleHueSaturation",
       "54C1C97D-7E93-0C8F-9426-C6CFE7B2927A",
       "Hue & Saturation",
       {{"Hue:", 1, 0.5, "50"}, {"Saturation:", 1, 0.5, "50"}},
       {{"Hue", "integer", 1, 1}, {"Saturation", "integer", 1, 1}, {"Lightness", "integer", 1, 1}}},
  };
  return facts;
}

}  // namespace

std::vector<std::string_view> ClassesOfModuleTable() {
  std::vector<std::string_view> classes;
  for (const ModuleFacts& facts : Facts()) classes.emplace_back(facts.className);
  return classes;
}

namespace {

TEST(ModuleTables, RowsKeysAndDefaults) {
  for (const ModuleFacts& facts : Facts()) {
    SCOPED_TRACE(facts.name);
    const ModuleEntry& entry = EntryOf(facts.className);
    EXPECT_EQ(entry.foregroundClass, facts.className);
    EXPECT_EQ(entry.backgroundClass, facts.className);
    const auto module = entry.create(kBackground);
    module->Constructor();
    module->ResetSettings();
    EXPECT_EQ(module->ID(), facts.id);
    EXPECT_EQ(module->Name(), facts.name);
    ASSERT_EQ(module->ControlCount(), static_cast<int>(facts.rows.size()));
    for (int i = 0; i < module->ControlCount(); ++i) {
      const RowFacts& row = facts.rows[static_cast<std::size_t>(i)];
      EXPECT_EQ(module->Control(i).Caption, row.caption);
      EXPECT_EQ(module->Control(i).Type, row.type);
      EXPECT_EQ(module->Control(i).DrawLine, static_cast<float>(row.tick));
      const Variant shown = module->ControlValue(i);
      EXPECT_EQ(row.type == kControlSlider ? Variant(shown.ToInt()).ToText() : shown.ToText(),
                row.shown);
    }
    ASSERT_EQ(module->Parameters().size(), facts.keys.size());
    for (std::size_t k = 0; k < facts.keys.size(); ++k) {
      const ParameterBase& parameter = *module->Parameters()[k];
      EXPECT_EQ(parameter.Key(), facts.keys[k].key);
      EXPECT_EQ(parameter.TypeName(), facts.keys[k].type);
      EXPECT_EQ(parameter.DefaultOnRead().ToDouble(), facts.keys[k].onRead);
      EXPECT_EQ(parameter.ResetValue().ToDouble(), facts.keys[k].reset);
    }
    // A new module writes its reset values under its keys, in their order, and is not enabled.
    const Dictionary settings = module->Settings();
    ASSERT_EQ(settings.Count(), static_cast<int>(facts.keys.size()));
    for (int k = 0; k < settings.Count(); ++k) {
      EXPECT_EQ(settings.Key(k).ToText(), facts.keys[static_cast<std::size_t>(k)].key);
      EXPECT_EQ(settings.ValueAt(k).ToDouble(), facts.keys[static_cast<std::size_t>(k)].reset);
    }
  }
}

TEST(ModuleTables, ExtremesOfEverySliderGiveAPicture) {
  // Whatever a panel or a hostile style sets, a module paints a picture of the same size.
  for (const ModuleFacts& facts : Facts()) {
    for (const double extreme :
         {-1e300, -2147483648.0, -1.0, 0.0, 100.0, 101.0, 2147483647.0, 1e300}) {
      const auto module = EntryOf(facts.className).create(kForeground);
      module->Constructor();
      module->ResetSettings();
      Dictionary settings;
      double sign = 1;
      for (const ParameterBase* parameter : module->Parameters()) {
        settings.Value(parameter->Key(), extreme * sign);
        sign = -sign;
      }
      for (int i = 0; i < module->ControlCount(); ++i) module->ControlValue(i, extreme);
      settings.Value("Enabled", true);
      // A blur of two thousand million pixels is a plain mean; it need not be waited for here.
      if (std::string_view(facts.name) == "Shadow & Highlight")
        settings.Value("Blur", std::min(extreme, 500.0));
      module->Settings(settings);
      Picture picture = TestPicture(37, 21);
      module->Apply(picture, 1);
      ASSERT_EQ(picture.Width(), 37) << facts.name << ' ' << extreme;
      ASSERT_EQ(picture.View().Row(20)[4 * 36 + 3], 255);
      for (int i = 0; i < module->ControlCount(); ++i) (void)module->ControlValue(i).ToInt();
    }
  }
}

TEST(ModuleTables, TextsCanBeTranslatedByKey) {
  InstallTranslations([](const char* key) {
    const std::string_view text = key;
    if (text == "EffectModuleExposure.kName") return std::string("Belichtung");
    if (text == "EffectModuleExposure.kExposure") return std::string("Belichtung:");
    return std::string();
  });
  const auto module = EntryOf("EffectModuleExposure").create(kForeground);
  module->Constructor();
  EXPECT_EQ(module->Name(), "Belichtung");
  EXPECT_EQ(module->Control(0).Caption, "Belichtung:");
  EXPECT_EQ(EntryOf("EffectModuleLevels").create(kForeground)->Name(), "Levels")
      << "the default stays";
  InstallTranslations(nullptr);
  EXPECT_EQ(module->Name(), "Exposure");
}

}  // namespace
}  // namespace brivolant::test
