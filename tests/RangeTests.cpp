// SPDX-License-Identifier: MIT
// Numbers of styles and documents come from anyone: whatever they are, a render is safe and ends,
// and what was stored is written back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <span>

#include "Helpers.h"
#include "effects/EffectRegistry.h"
#include "effects/crop/CropModule.h"
#include "effects/styles/OneClickWonder.h"
#include "effects/styles/StyleSource.h"
#include "effects/text/ScaleableTextEngine.h"
#include "engine/ModuleParameter.h"
#include "engine/brivolantProcessorLite.h"
#include "formats/BrivolantDocument.h"
#include "formats/PictureStrings.h"

namespace brivolant::test {
namespace {

constexpr int kIntMin = std::numeric_limits<int>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinite = std::numeric_limits<double>::infinity();

const std::vector<Variant>& Hostile() {
  static const std::vector<Variant> numbers{kIntMin,    kIntMax, 1e30,  -1e30, 1e7,
                                            -1e7,       2.7,     0.0,   kNaN,  kInfinite,
                                            -kInfinite, 1e300,   5e-324};
  return numbers;
}

bool SameNumber(const Variant& a, const Variant& b) {
  return a == b && std::isnan(a.ToDouble()) == std::isnan(b.ToDouble());
}

/// Each module of each stack, once.
void ForEachModule(const std::function<void(effectModule&)>& action) {
  for (const ModuleEntry& entry : EffectRegistry()) {
    for (const Stack stack : {kForeground, kBackground}) {
      if (stack == kBackground && entry.foregroundClass == entry.backgroundClass) continue;
      const auto module = entry.create(stack);
      module->Constructor();
      module->ResetSettings();
      SCOPED_TRACE(module->Name());
      action(*module);
    }
  }
}

void ExpectPainted(effectModule& module, const Dictionary& settings) {
  constexpr int kWidth = 41;
  constexpr int kHeight = 27;
  module.Settings(settings);
  Picture picture = TestPicture(kWidth, kHeight);
  module.Apply(picture, kWidth / 640.0);
  module.firePostProcess(picture, kWidth / 640.0);
  ASSERT_EQ(picture.Width(), kWidth);
  ASSERT_EQ(picture.Height(), kHeight);
  ASSERT_EQ(picture.View().Row(kHeight - 1)[4 * (kWidth - 1) + 3], 255);
}

/// The numbers of a module with those that its menus may choose between.
std::vector<Dictionary> Choices(const effectModule& module) {
  Dictionary fresh = module.Settings();
  for (const ParameterBase* parameter : module.Parameters()) {
    // What is off by default works, too.
    if (parameter->TypeName() == "boolean") fresh.Value(parameter->Key(), true);
  }
  fresh.Value("Enabled", true);
  std::vector<Dictionary> choices{fresh};
  for (const ParameterBase* parameter : module.Parameters()) {
    const auto* menu = dynamic_cast<const MenuParameter*>(parameter);
    if (menu == nullptr) continue;
    for (int item = 0; item <= static_cast<int>(menu->Safe()->most); ++item) {
      choices.push_back(fresh);
      choices.back().Value(parameter->Key(), item);
    }
  }
  return choices;
}

TEST(Ranges, AnyNumberOfAnyModuleRendersAndIsKept) {
  ForEachModule([](effectModule& module) {
    const std::vector<Dictionary> choices = Choices(module);
    for (const ParameterBase* parameter : module.Parameters()) {
      if (!parameter->Safe()) continue;
      const Range<double> range = *parameter->Safe();
      ASSERT_LE(range.least, range.most);
      for (const Variant& number : Hostile()) {
        SCOPED_TRACE(parameter->Key() + " = " + number.ToText());
        // What a menu chooses matters to the other numbers.
        const bool menu = dynamic_cast<const MenuParameter*>(parameter) != nullptr;
        for (Dictionary settings : std::span(choices).first(menu ? 1 : choices.size())) {
          settings.Value(parameter->Key(), number);
          ExpectPainted(module, settings);
          const double rendered = parameter->Rendered().ToDouble();
          ASSERT_TRUE(range.Holds(rendered)) << rendered;
          // A number that the parameter can hold takes its type, any other stays what it was.
          const Variant kept = module.Settings().Value(parameter->Key());
          if (rendered == number.ToDouble()) {
            ASSERT_EQ(kept, parameter->Rendered());
          } else {
            ASSERT_TRUE(SameNumber(kept, number)) << kept.ToText();
          }
        }
      }
    }
  });
}

TEST(Ranges, AllNumbersOfAModuleTogether) {
  ForEachModule([](effectModule& module) {
    for (const Variant& number : Hostile()) {
      for (const double sign : {1.0, -1.0}) {
        Dictionary settings = module.Settings();
        double turn = 1;
        for (const ParameterBase* parameter : module.Parameters()) {
          if (!parameter->Safe()) continue;
          settings.Value(parameter->Key(), number.ToDouble() * turn);
          turn *= sign;
        }
        settings.Value("Enabled", true);
        SCOPED_TRACE(number.ToText());
        ExpectPainted(module, settings);
        const Dictionary kept = module.Settings();
        module.Settings(kept);
        ASSERT_EQ(module.Settings(), kept);
      }
    }
  });
}

TEST(Ranges, AreWiderThanTheSlidersAndEndWithThem) {
  ForEachModule([](effectModule& module) {
    const Dictionary fresh = module.Settings();
    for (int row = 0; row < module.ControlCount(); ++row) {
      if (module.Control(row).Type != kControlSlider) continue;
      SCOPED_TRACE(module.Control(row).Caption);
      // Each end of the slider is a number that renders; else the panel would lose a part of it.
      double ends[2];
      for (int end = 0; end < 2; ++end) {
        module.ControlValue(row, 100 * end);
        const double back = module.ControlValue(row).ToDouble();
        ends[end] = back;
        for (const ParameterBase* parameter : module.Parameters()) {
          ASSERT_EQ(parameter->Stored(), parameter->Rendered()) << parameter->Key();
        }
      }
      EXPECT_GT(ends[1] - ends[0], 80) << "the slider's whole way counts";
      // A number from a file stays until the control is moved, and no longer.
      Dictionary settings = module.Settings();
      for (const ParameterBase* parameter : module.Parameters()) {
        if (parameter->Safe()) settings.Value(parameter->Key(), 1e30);
      }
      module.Settings(settings);
      EXPECT_EQ(module.Settings(), settings);
      module.ControlValue(row, 50);
      int moved = 0;
      for (const ParameterBase* parameter : module.Parameters()) {
        if (parameter->Safe() && parameter->Stored() == parameter->Rendered()) ++moved;
      }
      EXPECT_EQ(moved, 1);
      module.Settings(fresh);
    }
  });
}

TEST(Ranges, ReadKeepAndAssign) {
  struct Case {
    Variant stored;
    int reads;
    Variant written;
  };
  for (const Case& c : {Case{5, 5, 5},
                        {10, 10, 10},
                        {11, 10, 11},
                        {-3, 0, -3},
                        {1e30, 10, 1e30},
                        {2.9, 2, 2.9},
                        {2.0, 2, 2},
                        {Currency{25000}, 2, Currency{25000}},
                        {-0.5, 0, -0.5},
                        {kInfinite, 7, kInfinite},
                        {kNaN, 7, kNaN},
                        {"4", 4, 4},
                        {"99", 10, 10},
                        {"words", 0, 0},
                        {Dictionary(), 0, 0}}) {
    RangedNumber<int> number({0, 10}, 1);
    number.Read(c.stored, 7);
    EXPECT_EQ(number, c.reads) << c.stored.ToText();
    EXPECT_EQ(number.Stored(), c.written) << c.stored.ToText();
    number = 3;
    EXPECT_EQ(number.Stored(), Variant(3));
    number += 100;
    EXPECT_EQ(number, 10) << "what a user does stays inside";
  }
  // What is finer than a single stays, whatever is read from it; what is one stays four bytes.
  RangedNumber<float> single({0, 10}, 1);
  for (const auto& [stored, written] : {std::pair{Variant(0.1), Variant(0.1)},
                                        {Variant(0.25), Variant(0.25F)},
                                        {Variant(5e-324), Variant(5e-324)},
                                        {Variant(20.5), Variant(20.5F)}}) {
    single.Read(stored, 7);
    EXPECT_EQ(single.Stored(), written) << stored.ToText();
  }
  MenuIndex menu(3, 0);
  for (const auto& [stored, reads] : {std::pair{Variant(2), 2},
                                      {Variant(3), -1},
                                      {Variant(-7), -1},
                                      {Variant(1e30), -1},
                                      {Variant(1.5), 1},
                                      {Variant(kNaN), 1}}) {
    menu.Read(stored, 1);
    EXPECT_EQ(menu, reads) << stored.ToText();
    EXPECT_EQ(menu.Stored(), stored);
  }
}

struct Stacks : testing::Test, TestServices {
  brivolantProcessorLite processor{EffectRegistry(), services};
  Stacks() { processor.Startup(); }
  /// Enables a module of a stack with these settings.
  void Set(Stack stack, const std::string& name,
           const std::vector<std::pair<const char*, Variant>>& values) {
    processor.CurrentStack = stack;
    for (int i = 0; i <= processor.Count(); ++i) {
      effectModule& module = *processor.item(i);
      if (module.Name() != name) continue;
      Dictionary settings = module.Settings();
      for (const auto& [key, value] : values) settings.Value(key, value);
      settings.Value("Enabled", true);
      module.Settings(settings);
      return;
    }
    FAIL() << name;
  }
};

TEST_F(Stacks, RenderWhatOnceCrashedHungOrDidNothing) {
  struct Case {
    const char* name;
    std::vector<std::pair<const char*, Variant>> values;
  };
  const Picture photo = TestPicture(160, 100);
  for (const Case& c : {Case{"Scale Layer", {{"Scale", 0.5}, {"xOffset", 1e7}, {"xOffSet", 1e7}}},
                        {"Scale Layer", {{"Scale", 0.5}, {"xOffSet", -1e30}, {"yOffset", 1e30}}},
                        {"Oil Painting", {{"BrushSize", kIntMax}}},
                        {"Motion Blur", {{"GaussianRadius", 2147483647.0}}},
                        {"Motion Blur", {{"motionDistance", kIntMax}, {"blurKind", 1}}},
                        {"Mosaic", {{"TileCount", 20000}}},
                        {"Diffuse", {{"Radius", kIntMax}}},
                        {"Water Drops", {{"DropSize", kIntMax}, {"DropCount", kIntMax}}},
                        {"Blur", {{"GaussianRadius", kIntMax}}},
                        {"Confetti", {{"StarCount", kIntMax}, {"maxSize", 1e30}}}}) {
    for (const Stack stack : {kForeground, kBackground}) {
      SCOPED_TRACE(c.name);
      processor.Reset();
      Set(stack, c.name, c.values);
      processor.BlendAlpha = stack == kBackground ? 0.5F : 1.0F;
      const std::string style = processor.StyleData();
      const Picture shown = processor.Process(photo, {});
      ASSERT_EQ(shown.Width(), photo.Width());
      // A layer that was moved away leaves the other to be seen, any other effect is there.
      const bool away = stack == kForeground && std::string_view(c.name) == "Scale Layer";
      EXPECT_EQ(LargestDifference(shown, photo) > 8, !away);
      // What was stored comes back from the style, byte for byte.
      processor.Reset();
      (void)processor.StyleData(style);
      EXPECT_EQ(processor.StyleData(), style);
    }
  }
}

TEST_F(Stacks, ABlurBeyondItsRangeIsTheWidestOne) {
  const Picture photo = TestPicture(120, 80);
  const auto blurred = [&](const Variant& radius) {
    Set(kForeground, "Blur", {{"GaussianRadius", radius}});
    return processor.Process(photo, {});
  };
  const Picture widest = blurred(kIntMax);
  EXPECT_EQ(LargestDifference(widest, blurred(10000)), 0);
  EXPECT_GT(LargestDifference(widest, photo), 20);
  EXPECT_EQ(LargestDifference(blurred(-5), photo), 0) << "less than nothing is none";
}

TEST_F(Stacks, HostileNumbersSurviveAsTexts) {
  OneClickWonder style(services);
  style.Name(0, "From afar");
  Set(kForeground, "Blur", {{"GaussianRadius", 1e30}});
  Set(kForeground, "Exposure", {{"Power", kInfinite}});
  Set(kForeground, "Mosaic", {{"Seed", 1.5}});
  Set(kForeground, "Confetti", {{"Seed", kNaN}});
  Set(kForeground, "Greyscale", {{"Type", 99}, {"focalRadius", kNaN}, {"focalXOffset", -1e30}});
  style.StyleData = processor.StyleData();
  const std::string text = StyleSource::Write(style, services);
  OneClickWonder back(services);
  std::string error;
  EXPECT_TRUE(StyleSource::Read(text, services, back, error)) << error << text;
}

TEST(Ranges, BoxesOfTextKeepWhatWasStored) {
  for (const Variant& number : Hostile()) {
    Dictionary box;
    box.Value("Text", "a\nbc");
    for (const char* key : {"Left", "Top", "Width", "Height", "Caption"}) box.Value(key, number);
    Dictionary boxes;
    boxes.Value(0, box);
    ScaleableTextEngine engine;
    engine.Settings(boxes);
    Picture picture = PlainPicture(60, 40, kWhite);
    engine.Paint(picture, false);
    const Dictionary kept = *engine.Settings().Value(0).As<Dictionary>();
    const bool inside = std::abs(number.ToDouble()) <= 100;
    for (const char* key : {"Left", "Top", "Width", "Height"}) {
      if (inside) {
        EXPECT_NEAR(kept.Value(key).ToDouble(), number.ToDouble(), 1e-30);
      } else {
        EXPECT_TRUE(SameNumber(kept.Value(key), number)) << key << ' ' << number.ToText();
      }
    }
    ScaleableTextObject& moved = *engine.item.at(0);
    moved.Left += 1;
    EXPECT_LE(std::abs(engine.Settings().Value(0).As<Dictionary>()->Value("Left").ToDouble()), 100);
  }
}

// Documents.

TEST(DocumentNumbers, AreLimitedWhereTheyAreUsedAndWrittenBack) {
  TestServices s;
  struct Case {
    Pair offset;
    Pair size;
    int turns;
  };
  for (const Case& c : {Case{{0, 0}, {kInfinite, kInfinite}, kIntMax},
                        {{-kInfinite, 1e300}, {-1e300, kInfinite}, kIntMin},
                        {{kNaN, 0.5}, {0.25, kNaN}, -1},
                        {{0.9, 0.9}, {1e9, 0}, 4}}) {
    const FolderItem package = s.folder.Child("x.brvPhoto");
    BrivolantDocument document(s.services, TestPicture(40, 30), "x");
    document.Crop = true;
    document.CropOffSet = c.offset;
    document.CropSize = c.size;
    document.Rotation = c.turns;
    document.Flip = c.turns;
    ASSERT_TRUE(document.Save(package));
    BrivolantDocument back(s.services);
    ASSERT_TRUE(back.Load(package));
    const auto same = [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    EXPECT_TRUE(same(back.CropOffSet.Left, c.offset.Left)) << back.CropOffSet.Left;
    EXPECT_TRUE(same(back.CropOffSet.Right, c.offset.Right)) << back.CropOffSet.Right;
    EXPECT_TRUE(same(back.CropSize.Left, c.size.Left)) << back.CropSize.Left;
    EXPECT_TRUE(same(back.CropSize.Right, c.size.Right)) << back.CropSize.Right;
    EXPECT_EQ(back.Rotation, c.turns);
    EXPECT_EQ(back.Flip, c.turns);
    // The size that is told is that of the picture that is shown.
    const Picture image = back.Image();
    ASSERT_FALSE(image.IsNil());
    EXPECT_EQ(back.Width(), image.Width());
    EXPECT_EQ(back.Height(), image.Height());
    (void)package.DeleteFolder();
  }
}

TEST(DocumentNumbers, TheCropToolStartsInsideThePicture) {
  TestServices s;
  for (const int turns : {0, 1, 3, kIntMax, kIntMin}) {
    for (const auto& [offset, size] : {std::pair{Pair{0.1, 0.2}, Pair{0.5, 0.4}},
                                       {Pair{kInfinite, -kInfinite}, Pair{kInfinite, 1e300}},
                                       {Pair{kNaN, -1e300}, Pair{kNaN, 0}}}) {
      BrivolantDocument document(s.services, TestPicture(40, 30), "x");
      document.CropOffSet = offset;
      document.CropSize = size;
      document.Rotation = turns;
      brivolantProcessorLite processor(EffectRegistry(), s.services);
      processor.Startup();
      processor.Document = &document;
      CropModule crop({});
      crop.Prepare(processor);
      const bool hostile = !(offset.Left == 0.1);
      if (!hostile && turns != 1 && turns != 3) {
        EXPECT_EQ(crop.CropOffset, offset);
        EXPECT_EQ(crop.CropSize, size);
      }
      for (const auto& [start, length] : {std::pair{crop.CropOffset.Left, crop.CropSize.Left},
                                          {crop.CropOffset.Right, crop.CropSize.Right}}) {
        EXPECT_GE(start, -1e-9);
        EXPECT_GT(length, 0);
        EXPECT_LE(start + length, 1 + 1e-9);
      }
      crop.Cancel();
      const auto same = [](const Pair& a, const Pair& b) {
        return SameNumber(a.Left, b.Left) && SameNumber(a.Right, b.Right);
      };
      EXPECT_TRUE(same(document.CropOffSet, offset)) << "given up, nothing has changed";
      EXPECT_TRUE(same(document.CropSize, size));
    }
  }
}

// Previews in styles and documents.

/// The first bytes of a JPEG that claims that size.
std::string Claiming(int width, int height) {
  std::string bytes = JpegExporter().SaveToString(TestPicture(16, 16));
  const std::size_t frame = bytes.find("\xFF\xC0");
  EXPECT_NE(frame, std::string::npos);
  const auto put = [&bytes](std::size_t at, int value) {
    bytes[at] = static_cast<char>(value >> 8);
    bytes[at + 1] = static_cast<char>(value);
  };
  put(frame + 5, height);
  put(frame + 7, width);
  return bytes;
}

TEST(StylePreviews, AreBoundedBeforeTheyAreDecoded) {
  struct Case {
    int width;
    int height;
    bool shown;
  };
  for (const Case& c : {Case{16, 16, true}, {23000, 23000, false}, {65500, 8000, false}}) {
    const Picture preview = JpegImporter::PreviewFromString(Claiming(c.width, c.height));
    EXPECT_EQ(!preview.IsNil(), c.shown) << c.width;
  }
  // A large one comes reduced, a usual one as it is.
  const Picture large =
      JpegImporter::PreviewFromString(JpegExporter().SaveToString(TestPicture(2000, 1000)));
  EXPECT_GE(large.Width(), JpegImporter::kPreviewSide);
  EXPECT_LT(large.Width(), 2 * JpegImporter::kPreviewSide);
  TestServices s;
  // A document's own preview comes from a file that anyone may have put there.
  const FolderItem package = s.folder.Child("x.brvPhoto");
  ASSERT_TRUE(BrivolantDocument(s.services, TestPicture(40, 30), "x").Save(package));
  BrivolantDocument document(s.services);
  ASSERT_TRUE(JpegExporter().SaveToFile(package.Child(BrivolantDocument::kThumbnailName),
                                        TestPicture(2000, 1000)));
  ASSERT_TRUE(document.Load(package));
  EXPECT_GE(document.PreviewAfter.Width(), JpegImporter::kPreviewSide);
  EXPECT_LT(document.PreviewAfter.Width(), 2 * JpegImporter::kPreviewSide);
  OneClickWonder style(s.services);
  style.Preview(TestPicture(320, 200));
  OneClickWonder read(s.services);
  ASSERT_TRUE(read.LoadBytes(style.Bytes(), "x"));
  EXPECT_FALSE(read.PreviewIsDecoded());
  const Picture elsewhere = JpegImporter::PreviewFromString(read.PreviewBytes());
  read.PreviewDecoded(elsewhere);
  EXPECT_TRUE(read.PreviewIsDecoded());
  EXPECT_TRUE(read.Preview().SharesPixelsWith(elsewhere));
  EXPECT_EQ(read.Preview().Width(), 320);
  EXPECT_EQ(read.Bytes(), style.Bytes()) << "written back byte for byte";
}

}  // namespace
}  // namespace brivolant::test
