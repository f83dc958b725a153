// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "Helpers.h"
#include "effects/FindEffect.h"
#include "effects/fixes/EffectModuleAutoContrast.h"
#include "effects/fixes/EffectModuleAutoLevels.h"
#include "effects/fixes/EffectModuleBrightnessContrast.h"
#include "effects/fixes/EffectModuleChannelContrast.h"
#include "effects/fixes/EffectModuleColorAdjuster.h"
#include "effects/fixes/EffectModuleDigitalFlash.h"
#include "effects/fixes/EffectModuleExposure.h"
#include "effects/fixes/EffectModuleHueSaturation.h"
#include "effects/fixes/EffectModuleLevels.h"
#include "effects/fixes/EffectModuleShadowsHighlight.h"
#include "effects/fixes/EffectModuleWhiteBalance.h"
#include "engine/EditorInterfaces.h"
#include "engine/ParameterText.h"
#include "engine/pictures/PictureEffects.h"
#include "platform/pictures/Graphics.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;

/// What a module makes of one grey or colour, on a picture large enough for its histogram.
Color Applied(effectModule& module, Color color) {
  Picture picture = PlainPicture(40, 40, color);
  module.Enabled(true);
  module.Apply(picture, 1);
  return picture.At(20, 20);
}

template <class Module>
std::unique_ptr<Module> Made() {
  auto module = std::make_unique<Module>();
  module->Constructor();
  module->ResetSettings();
  return module;
}

TEST(Modules, SlidersMapBothWays) {
  struct Case {
    std::shared_ptr<effectModule> module;
    int row;
    double position;
    const char* key;
    double value;
  };
  const std::shared_ptr<effectModule> levels = Made<EffectModuleLevels>();
  const std::shared_ptr<effectModule> hue = Made<EffectModuleHueSaturation>();
  const std::shared_ptr<effectModule> exposure = Made<EffectModuleExposure>();
  const std::shared_ptr<effectModule> balance = Made<EffectModuleColorAdjuster>();
  const std::shared_ptr<effectModule> white = Made<EffectModuleWhiteBalance>();
  for (const Case& c :
       {Case{levels, 2, 100, "Highlights", 255}, Case{levels, 1, 50, "Shadows", 127},
        Case{levels, 4, 1, "OutBlack", 2}, Case{hue, 0, 0, "Hue", -180}, Case{hue, 0, 51, "Hue", 3},
        Case{hue, 0, 49, "Hue", -3}, Case{hue, 1, 100, "Saturation", 200},
        Case{exposure, 0, 50, "Power", 0}, Case{exposure, 0, 100, "Power", 20},
        Case{balance, 1, 35, "Green", 0.7F}, Case{white, 0, 19, "Temperature", 4845}}) {
    c.module->ControlValue(c.row, c.position);
    EXPECT_EQ(c.module->Settings().Value(c.key).ToDouble(), c.value) << c.key;
  }
  // Every position that a truncated value allows shows as itself or one below.
  for (int p = 0; p <= 100; ++p) {
    balance->ControlValue(0, p);
    EXPECT_EQ(balance->ControlValue(0).ToInt(), p) << "singles must not drift";
    exposure->ControlValue(0, p);
    EXPECT_EQ(exposure->ControlValue(0).ToInt(), p);
    levels->ControlValue(1, p);
    EXPECT_NEAR(levels->ControlValue(1).ToInt(), p, 1);
  }
}

TEST(Modules, DefaultsOnReadAndReset) {
  const auto exposure = Made<EffectModuleExposure>();
  EXPECT_EQ(exposure->Power.Value(), 0.0);
  exposure->Settings(Dictionary());
  EXPECT_EQ(exposure->Power.Value(), 1.0) << "a style without the key means 1";
  EXPECT_FALSE(exposure->Enabled());
  exposure->ResetSettings();
  EXPECT_EQ(exposure->Power.Value(), 0.0);

  const auto hue = Made<EffectModuleHueSaturation>();
  EXPECT_EQ(hue->ControlValue(0).ToInt(), 50);
  EXPECT_EQ(hue->ControlValue(1).ToInt(), 50);
  EXPECT_EQ(Made<EffectModuleWhiteBalance>()->ControlValue(0).ToInt(), 19);

  Dictionary hostile;
  hostile.Value("Power", std::numeric_limits<double>::quiet_NaN());
  exposure->Settings(hostile);
  EXPECT_EQ(exposure->Power.Value(), 1.0);
  hostile.Value("Power", Dictionary());
  exposure->Settings(hostile);
  EXPECT_EQ(exposure->Power.Value(), 0.0);
}

TEST(Modules, ContractOfTheBaseClass) {
  struct Plain final : effectModule {
    int changed = 0;
    bool handled = false;
    std::string getID() const override { return "id"; }
    std::string getName() const override { return "name"; }
    void EnabledStateChanged() override { ++changed; }
    bool ButtonPushed(int) override { return handled; }
  } module;
  EXPECT_TRUE(module.PushButton(0));
  module.handled = true;
  EXPECT_FALSE(module.PushButton(0));
  EXPECT_EQ(module.Settings().Count(), 0);
  module.Enabled(true);
  module.Enabled(true);
  EXPECT_EQ(module.changed, 2);
  EXPECT_TRUE(module.Settings().Value("Enabled").ToBool());
  module.Settings(Dictionary());
  EXPECT_FALSE(module.Enabled());
  EXPECT_EQ(module.changed, 3);
  EXPECT_TRUE(module.ControlValue(5).IsNil());

  EffectModuleControl control;
  const MenuPresenter dismiss = [](const MenuItem&, int, int) { return std::optional<int>(); };
  EXPECT_EQ(control.ShowMenu(0, 0, dismiss), -1);
  control.Menu.emplace();
  control.Menu->Children.resize(3);
  EXPECT_EQ(control.ShowMenu(0, 0, dismiss), 0);
  EXPECT_EQ(control.ShowMenu(0, 0, [](const MenuItem&, int, int) { return std::optional(2); }), 2);
  EXPECT_EQ(control.ShowMenu(0, 0, dismiss), 2) << "dismissing keeps the choice";

  EffectModuleDivider divider("Heading", "icon.png", "ID");
  divider.Enabled(true);
  Picture picture = TestPicture(5, 5);
  const Picture before = picture;
  divider.Apply(picture, 1);
  EXPECT_TRUE(picture.SharesPixelsWith(before));
  EXPECT_EQ(divider.ControlCount(), 0);
}

TEST(Modules, EveryToneFixFollowsItsFormula) {
  // Each against its formula, written out anew, for every level.
  const auto check = [](ToneModule& module, const std::function<std::array<double, 3>(int)>& f) {
    const auto tables = module.Tables(Picture());
    ASSERT_TRUE(tables);
    for (int i = 0; i < 256; ++i) {
      const auto expected = f(i);
      const std::array<int, 3> got{tables->Red[static_cast<std::size_t>(i)],
                                   tables->Green[static_cast<std::size_t>(i)],
                                   tables->Blue[static_cast<std::size_t>(i)]};
      for (std::size_t c = 0; c < 3; ++c) {
        const double limited = std::trunc(std::min(255.0, std::max(0.0, expected[c])));
        ASSERT_EQ(got[c], limited) << module.Name() << " level " << i << " channel " << c;
      }
    }
  };
  const auto same = [](double v) { return std::array<double, 3>{v, v, v}; };

  const auto brightness = Made<EffectModuleBrightnessContrast>();
  EXPECT_FALSE(brightness->Tables(Picture())) << "1 and 1 leave the picture alone";
  brightness->Brightness = 1.4;
  brightness->Contrast = 0.5;
  check(*brightness, [&](int i) {
    const double level = std::min(255, i + 102);
    return same(((level / 255 - 0.5) * 0.5 + 0.5) * 255);
  });
  const auto balance = Made<EffectModuleColorAdjuster>();
  balance->Red = 2.0F;
  balance->Blue = 0.25F;
  check(*balance, [](int i) { return std::array<double, 3>{i * 2.0, i * 1.0, i * 0.25}; });
  const auto levels = Made<EffectModuleLevels>();
  check(*levels, [&](int i) { return same(i); });
  levels->Shadows = 50;
  levels->Highlights = 200;
  levels->OutBlack = 20;
  levels->OutWhite = 220;
  check(*levels, [&](int i) {
    return same(20 + std::max(std::min((i - 50) * (200.0 / 150.0), 220.0), 0.0));
  });
  levels->Highlights = 50;
  EXPECT_TRUE(levels->Tables(Picture())) << "an empty range has a curve";
  const auto white = Made<EffectModuleWhiteBalance>();
  check(*white, [&](int i) { return same(i); });
  white->Temperature = 4000;
  check(*white, [](int i) {
    return std::array<double, 3>{i + i * (50 * -0.2 / 100), i + i * (50 * -0.02 / 100),
                                 i + i * (50 * 0.25 / 100)};
  });
  white->Temperature = 0;
  EXPECT_EQ(white->Tables(Picture())->Red[100], 0);
  EXPECT_EQ(white->Tables(Picture())->Blue[100], 255);
  const auto contrast = Made<EffectModuleChannelContrast>();
  contrast->greenContrast = 1.5F;
  check(*contrast, [](int i) {
    const double x = i / 255.0 - 0.5;
    return std::array<double, 3>{(x + 0.5) * 255, (x * 1.5 + 0.5) * 255, (x + 0.5) * 255};
  });
}

TEST(Modules, AutoFixesStretchWhatIsThere) {
  // Levels 60 to 180 in red, 20 to 120 in green, plain blue.
  Picture picture = NewPicture(320, 200, 24);
  for (int y = 0; y < 200; ++y) {
    for (int x = 0; x < 320; ++x) {
      RGBSurface(picture).Pixel(x, y,
                                {static_cast<std::uint8_t>(60 + 120 * x / 319),
                                 static_cast<std::uint8_t>(20 + 100 * x / 319), 30});
    }
  }
  Picture levels = picture;
  const auto autoLevels = Made<EffectModuleAutoLevels>();
  autoLevels->Enabled(true);
  autoLevels->Apply(levels, 1);
  EXPECT_LE(levels.At(0, 100).Red, 2);
  EXPECT_GE(levels.At(319, 100).Red, 253);
  EXPECT_GE(levels.At(319, 100).Green, 253);
  EXPECT_EQ(levels.At(100, 100).Blue, 30) << "a channel of one level stays";

  Picture contrast = picture;
  const auto autoContrast = Made<EffectModuleAutoContrast>();
  autoContrast->Enabled(true);
  autoContrast->Apply(contrast, 1);
  EXPECT_LE(contrast.At(0, 100).Red, 4);
  EXPECT_GE(contrast.At(319, 100).Red, 251);
  EXPECT_EQ(contrast.At(100, 100).Blue, 0) << "one curve for all channels";

  EXPECT_EQ(Applied(*autoLevels, {77, 88, 99}), (Color{77, 88, 99}));
  Picture tiny = PlainPicture(1, 1, {5, 5, 5});
  autoContrast->Apply(tiny, 1);
  EXPECT_EQ(tiny.Width(), 1);
  // A preview and the full picture agree: both are counted from a copy of one size.
  const Picture large = ScaleEffect::BilinearScale(picture, 1280, 800);
  const auto small = autoLevels->Tables(picture);
  const auto full = autoLevels->Tables(large);
  for (std::size_t i = 0; i < 256; ++i) EXPECT_NEAR(small->Red[i], full->Red[i], 5);
}

TEST(Modules, ShadowAndHighlightWorksThroughItsMask) {
  const auto module = Made<EffectModuleShadowsHighlight>();
  module->Shadows = 60;
  module->Highlights = 40;
  EXPECT_EQ(Applied(*module, {50, 50, 50}), (Color{110, 110, 110}));
  EXPECT_EQ(Applied(*module, {200, 200, 200}), (Color{160, 160, 160}));
  EXPECT_EQ(Applied(*module, {10, 20, 230}), (Color{70, 80, 255}));

  // With blur the two regions melt into each other; far away nothing changes.
  Picture halves = NewPicture(200, 20, 24);
  {
    Graphics g(halves);
    g.FillRect(0, 0, 100, 20);
  }
  module->Blur = 20;
  module->Enabled(true);
  module->Apply(halves, 3);
  EXPECT_EQ(halves.At(10, 10), (Color{60, 60, 60}));
  EXPECT_EQ(halves.At(190, 10), (Color{215, 215, 215}));
  EXPECT_LT(halves.At(99, 10).Red, 40);
  module->Blur = -5;
  module->Apply(halves, 1);
  EXPECT_EQ(module->Blur.Value(), 0);
}

TEST(Modules, DigitalFlashLiftsTheDark) {
  const auto module = Made<EffectModuleDigitalFlash>();
  EXPECT_EQ(module->Brightened()[255], 255);
  const double l = 50 / 2.55;
  const double c = l * (5 - l / (3 + 0.22 * l)) * 2.55;
  const int lifted = static_cast<int>(((c / 255 - 0.5) * 1.1449 + 0.5) * 255);
  EXPECT_EQ(Applied(*module, {50, 50, 50}).Red, std::lround((lifted * 205 + 50 * 50) / 255.0));
  EXPECT_EQ(Applied(*module, kWhite), kWhite);
  EXPECT_EQ(Applied(*module, kBlack).Red, 0);
}

TEST(Modules, HueAndSaturationKnowsNoChange) {
  const auto module = Made<EffectModuleHueSaturation>();
  Picture picture = TestPicture(9, 9);
  const Picture before = picture;
  module->Enabled(true);
  module->Apply(picture, 1);
  EXPECT_TRUE(picture.SharesPixelsWith(before));
  module->ControlValue(0, 50);
  module->ControlValue(1, 0);
  module->Apply(picture, 1);
  EXPECT_FALSE(picture.SameAs(before));
}

TEST(Modules, ColorBalanceNeutralizesThePickedPixel) {
  const auto module = Made<EffectModuleColorAdjuster>();
  EXPECT_TRUE(module->PushButton(3)) << "without a picker nothing happens";
  int asked = 0;
  module->PickColor = [&] { ++asked; };
  EXPECT_TRUE(module->PushButton(3));
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(module->Red.Value(), 1.0F) << "not before the click";
  for (const auto& [color, red, green, blue] : {std::tuple{Color{200, 149, 98}, 1.0F, 1.2F, 1.4F},
                                                {Color{149, 200, 98}, 1.2F, 1.0F, 1.4F},
                                                {Color{98, 149, 200}, 1.4F, 1.2F, 1.0F},
                                                {Color{9, 9, 9}, 1.0F, 1.0F, 1.0F}}) {
    module->Neutralize(color);
    EXPECT_FLOAT_EQ(module->Red, red);
    EXPECT_FLOAT_EQ(module->Green, green);
    EXPECT_FLOAT_EQ(module->Blue, blue);
  }
  EXPECT_EQ(module->ControlValue(3).ToText(), "Select");
}

TEST(Modules, LevelsDrawItsHistogram) {
  const auto module = Made<EffectModuleLevels>();
  Picture picture = TestPicture(400, 300);
  const Picture before = picture;
  module->firePostProcess(picture, 1);
  EXPECT_EQ(picture.At(299, 239), before.At(299, 239));
  EXPECT_NE(picture.At(300, 240), before.At(300, 240)) << "the frame's corner";
  bool black = false;
  for (int x = 301; x < 399; ++x) black = black || picture.At(x, 298).Red < 128;
  EXPECT_TRUE(black) << "bars stand on the bottom edge";
  // No bin that is drawn holds anything.
  const Picture plain = module->Histogram(PlainPicture(200, 100, kBlack), 100, 60);
  EXPECT_EQ(plain.Width(), 100);
  EXPECT_EQ(plain.At(50, 30), kWhite);
}

TEST(Registry, IsCompleteAndInOrder) {
  const ModuleRegistry registry = EffectRegistry();
  std::set<std::string> ids;
  std::vector<std::string> headings;
  for (std::size_t i = 0; i < registry.size(); ++i) {
    const auto module = registry[i].create(kForeground);
    module->Constructor();
    module->ResetSettings();
    EXPECT_TRUE(ids.insert(module->ID()).second) << module->Name();
    EXPECT_EQ(module->ID().size(), 36U);
    EXPECT_FALSE(module->Name().empty());
    EXPECT_TRUE(registry[i].foregroundClass.starts_with("EffectModule"));
    if (registry[i].foregroundClass == "EffectModuleDivider") headings.push_back(module->Name());
    // Settings survive a round trip through the module.
    Dictionary settings = module->Settings();
    module->Settings(settings);
    EXPECT_TRUE(module->Settings() == settings) << module->Name();
  }
  EXPECT_EQ(registry.front().foregroundClass, "EffectModuleDivider");
  EXPECT_THAT(headings, ElementsAre("Fixing Tools", "Color Adjustments", "Artistic Adjustments",
                                    "Finishing Touches"));
  const ModuleEntry& scale = EntryOf("EffectModuleForegroundScale");
  EXPECT_EQ(scale.backgroundClass, "EffectModuleBackgroundScale");
  EXPECT_NE(scale.create(kForeground)->ID(), scale.create(kBackground)->ID());
}

TEST(ParameterTexts, GiveTheirValuesBack) {
  struct Case {
    const char* type;
    const char* text;
    Variant value;
  };
  for (const Case& c : {Case{"integer", "-7", -7},
                        {"single", "0.25", 0.25F},
                        {"double", "1e3", 1000.0},
                        {"boolean", "True", true},
                        {"boolean", "0", false},
                        {"colour", "#0A80ff", Color{10, 128, 255}},
                        {"string", "", ""},
                        {"string", " as it is ", " as it is "}}) {
    SCOPED_TRACE(c.text);
    const auto value = ValueFromText(c.text, c.type);
    ASSERT_TRUE(value);
    EXPECT_EQ(value->ToText(), c.value.ToText());
    EXPECT_EQ(ValueFromText(TextFromValue(*value), c.type)->ToText(), value->ToText());
  }
  for (const auto& [type, text] : {std::pair{"integer", "1.5"},
                                   {"integer", "99999999999"},
                                   {"integer", ""},
                                   {"single", "nan"},
                                   {"double", "inf"},
                                   {"double", "1,5"},
                                   {"double", "3x"},
                                   {"boolean", "maybe"},
                                   {"colour", "red"},
                                   {"colour", "#12345"},
                                   {"colour", "#12345g"}}) {
    EXPECT_FALSE(ValueFromText(text, type)) << type << ' ' << text;
  }
  // Boxes of text as JSON; what is no JSON is a text.
  EXPECT_EQ(ValueFromText("{oops", "texts")->ToText(), "{oops");
  const auto boxes = ValueFromText(R"([{"Text":"a","Left":0.5},{"TextColor":"#102030"}])", "texts");
  ASSERT_TRUE(boxes && boxes->Is<Dictionary>());
  EXPECT_EQ(boxes->As<Dictionary>()->Count(), 2);
  const auto again = ValueFromText(TextFromValue(*boxes), "texts");
  EXPECT_EQ(TextFromValue(*again), TextFromValue(*boxes));
}

}  // namespace
}  // namespace brivolant::test
