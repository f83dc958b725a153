// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "Helpers.h"
#include "effects/FindEffect.h"
#include "engine/EditorInterfaces.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/BrivolantDocument.h"
#include "platform/files/BinaryStream.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kExposure = "3237324B-C5C6-997D-40B1-DFC3C16BAEB2";
constexpr const char* kLevels = "7FFFFFFF-B3AC-4C8A-146F-1F804A5B9B06";
constexpr const char* kBorders = "722F92BB-914A-BE34-7B81-40D006AE5CE4";

int PositionInRegistry(std::string_view className) {
  const ModuleRegistry registry = EffectRegistry();
  return static_cast<int>(&EntryOf(className) - registry.data());
}

struct Processor : TestServices {
  Processor() { processor.Startup(); }
  brivolantProcessorLite processor{EffectRegistry(), services};

  effectModule& Set(int stack, const char* name, int row, double position) {
    processor.CurrentStack = stack;
    effectModule& module = ModuleNamed(processor, name);
    module.ControlValue(row, position);
    module.Enabled(true);
    return module;
  }
};

TEST(ProcessorStacks, IndexesOrderAndIdentifiers) {
  Processor p;
  brivolantProcessorLite& processor = p.processor;
  const int last = static_cast<int>(EffectRegistry().size()) - 1;
  const int own = PositionInRegistry("EffectModuleExposure");
  EXPECT_EQ(processor.Count(), last);
  EXPECT_EQ(processor.item(-1), nullptr);
  EXPECT_EQ(processor.item(last + 1), nullptr);
  EXPECT_EQ(processor.ItemPositionViaID(kExposure), own);
  EXPECT_EQ(processor.ItemPositionViaID("nothing"), -1);
  EXPECT_EQ(processor.ItemVIaID("nothing"), nullptr);
  EXPECT_THAT(p.log.lines, ElementsAre("Cannot find a module with the ID: nothing",
                                       "Cannot find a module with the ID: nothing"));
  processor.ChangeItemOrder(own, 2);
  EXPECT_EQ(processor.ItemPositionViaID(kExposure), 2);
  processor.ChangeItemOrder(2, -1);
  EXPECT_EQ(processor.ItemPositionViaID(kExposure), last);
  processor.ChangeItemOrder(last + 50, 0);
  EXPECT_TRUE(p.dialogs.messages.empty()) << "no two modules share an identifier";
  processor.Reset();
  EXPECT_EQ(processor.ItemPositionViaID(kExposure), own);
  EXPECT_FALSE(processor.Running());
}

TEST(ProcessorStacks, TheSameIdentifierTwiceIsTold) {
  TestServices s;
  const ModuleEntry& exposure = EntryOf("EffectModuleExposure");
  const std::array<ModuleEntry, 2> twice{exposure, exposure};
  brivolantProcessorLite processor(twice, s.services);
  processor.Startup();
  EXPECT_EQ(s.dialogs.messages.at(0), "Exposure has the same ID as Exposure");
}

TEST(ProcessorRender, ConsistencyScaleFollowsItsOwnRule) {
  const auto scale = [](int w, int h) {
    return brivolantProcessorLite::ConsistencyScaleFor(NewPicture(w, h, 24));
  };
  EXPECT_EQ(scale(640, 480), 1.0);
  EXPECT_EQ(scale(1600, 1200), 1.875);
  EXPECT_EQ(scale(1600, 100), 2.5);
  EXPECT_EQ(scale(100, 4000), 0.15625);
}

TEST(ProcessorRender, NothingEnabledEqualsTheSource) {
  Processor p;
  Picture source = TestPicture(70, 50);
  source.Mask(true)->Edit().Row(3)[4] = 200;
  EXPECT_TRUE(p.processor.Process(source, {}).SameAs(source));
  p.processor.BlendAlpha = 0.5F;
  EXPECT_TRUE(p.processor.Process(source, {}).SameAs(source));
  EXPECT_TRUE(p.processor.Process(Picture(), {}).IsNil());
}

TEST(ProcessorRender, ComposedToneCurvesEqualOneAfterTheOther) {
  Processor p;
  p.Set(kForeground, "Exposure", 0, 63);
  p.Set(kForeground, "Levels", 1, 12);
  p.Set(kForeground, "Brightness & Contrast", 1, 70);
  p.Set(kForeground, "White Balance", 0, 25);
  p.Set(kForeground, "Auto Levels", 0, 0);
  p.Set(kForeground, "Channel Contrast", 2, 90);
  p.Set(kForeground, "Digital Flash", 0, 40);
  const Picture source = TestPicture(150, 90);
  Picture expected = source;
  const double scale = brivolantProcessorLite::ConsistencyScaleFor(source);
  for (const auto& module : p.processor.stacks[kForeground]) module->Apply(expected, scale);
  EXPECT_TRUE(p.processor.Process(source, {}).SameAs(expected));
}

TEST(ProcessorRender, ForegroundIsBlendedOverBackground) {
  Processor p;
  p.Set(kForeground, "Exposure", 0, 80);
  p.Set(kBackground, "Levels", 5, 50);
  p.processor.BlendMode(1);
  p.processor.BlendAlpha = 0.5F;
  const Picture source = TestPicture(60, 40);
  Picture fore = source;
  Picture back = source;
  fore = p.processor.Process(fore, kForeground, 0, {});
  back = p.processor.Process(back, kBackground, 0, {});
  BlendEffect blender;
  blender.BlendMode = 1;
  EXPECT_TRUE(p.processor.Process(source, {}).SameAs(blender.Apply(back, fore, 0.5)));
  p.processor.BlendAlpha = 0;
  EXPECT_TRUE(p.processor.Process(source, {}).SameAs(back));
  p.processor.BlendAlpha = 1;
  p.processor.BlendMode(0);
  EXPECT_TRUE(p.processor.Process(source, {}).SameAs(fore));

  // A foreground that was placed lands on its rectangle.
  struct Placing final : effectModule {
    brivolantProcessorLite* processor = nullptr;
    std::string getID() const override { return "P"; }
    std::string getName() const override { return "Placing"; }
    bool MayPlaceLayer() const override { return true; }
    void ApplyEffect(Picture&, double) override {
      processor->foregroundScaleTopleft = Point{10, 5};
      processor->foregroundScaleSize = Point{20, 15};
    }
  };
  auto placing = std::make_unique<Placing>();
  placing->processor = &p.processor;
  placing->Enabled(true);
  p.processor.stacks[kForeground].push_back(std::move(placing));
  const Picture placed = p.processor.Process(source, {});
  EXPECT_EQ(placed.At(9, 5), back.At(9, 5));
  EXPECT_EQ(placed.At(29, 19), SharedPictureEffects::Scale(fore, 20, 15, 0).At(19, 14));
}

/// A document of a test picture, and a display of 320 x 240.
struct Editing : Processor {
  Editing() : document(services, TestPicture(600, 400), "test") {
    processor.myDisplay = &display;
    processor.Document = &document;
    processor.UpdateStarted = [this] { events.emplace_back("started"); };
    processor.UpdateFinished = [this] { events.emplace_back("finished"); };
    processor.SelectedEffectChanged = [this] { events.emplace_back("selected"); };
    display.events = &events;
    processor.UpdatePreview(true);
  }
  struct Display final : PreviewDisplay {
    std::vector<std::string>* events = nullptr;
    int width = 320;
    int Width() const override { return width; }
    int Height() const override { return 240; }
    void Update(bool full) override { events->emplace_back(full ? "shown full" : "shown"); }
  } display;
  BrivolantDocument document;
  std::vector<std::string> events;
};

TEST(ProcessorPreview, FitsTheDisplayAndTellsItsEvents) {
  Editing e;
  EXPECT_THAT(e.events, ElementsAre("started", "shown full", "finished"));
  EXPECT_EQ(e.document.PreviewBase.Width(), 300);
  EXPECT_EQ(e.document.PreviewBase.Height(), 200);
  EXPECT_FALSE(e.processor.nonLiveMode);
  e.display.width = 220;
  e.processor.UpdatePreview(false);
  EXPECT_EQ(e.processor.Preview().Width(), 200) << "another display size means new previews";
}

TEST(ProcessorPreview, MeasuresLengthsAsTheFullPictureDoes) {
  Editing e;
  // A portrait that is measured by its height, shown so small that its width would count.
  BrivolantDocument portrait(e.services, TestPicture(600, 800), "portrait");
  e.processor.Document = &portrait;
  for (const int turn : {0, 1}) {
    portrait.Rotation = turn;
    e.processor.UpdatePreview(true);
    const Picture full = portrait.Image();
    EXPECT_NEAR(e.processor.consistencyScale / portrait.PreviewBase.Width(),
                brivolantProcessorLite::ConsistencyScaleFor(full) / full.Width(), 1e-9);
  }
}

TEST(ProcessorPreview, ALayersPlaceIsThatOfItsOwnRender) {
  Editing e;
  const auto move = [&e](double position) {
    e.Set(kForeground, "Scale Layer", 0, position);
    e.processor.UpdatePreview(false);
    return e.document.PreviewAfter;
  };
  const Picture whole = move(50);
  EXPECT_TRUE(whole.SameAs(e.document.PreviewBase));
  const Picture half = move(25);
  EXPECT_FALSE(half.SameAs(whole));
  // Back at its own size, the layer covers again.
  EXPECT_TRUE(move(50).SameAs(whole));
  EXPECT_TRUE(move(25).SameAs(half));
  // A full-size render between two previews has a place of its own, also if the module stands in
  // what the preview keeps rendered.
  const Picture exported = e.processor.Process(TestPicture(600, 400), {});
  for (const int selected : {0, 45}) {
    e.processor.SelectEffect(selected);
    e.processor.Process(TestPicture(600, 400), {});
    e.processor.UpdatePreview(false);
    EXPECT_TRUE(e.document.PreviewAfter.SameAs(half)) << selected;
    EXPECT_TRUE(e.processor.Process(TestPicture(600, 400), {}).SameAs(exported)) << selected;
  }
  const double scale = e.processor.consistencyScale;
  e.processor.Process(TestPicture(600, 400), {});
  EXPECT_EQ(e.processor.consistencyScale, scale);
}

TEST(ProcessorPreview, CachesGiveWhatAFullRenderGives) {
  Editing e;
  e.Set(kForeground, "Exposure", 0, 70);
  e.Set(kForeground, "Shadow & Highlight", 0, 30);
  effectModule& white = e.Set(kForeground, "White Balance", 0, 22);
  e.Set(kBackground, "Levels", 1, 20);
  e.processor.CurrentStack = kForeground;
  e.processor.BlendAlpha = 0.6F;
  e.processor.UpdatePreview(true);
  const Picture whole = e.document.PreviewAfter;
  EXPECT_FALSE(whole.SameAs(e.document.PreviewBase));
  // Dragging a slider of a module in the middle of the stack.
  e.processor.SelectEffect(e.processor.ItemPositionViaID(kExposure));
  for (const int position : {10, 90, 70}) {
    ModuleNamed(e.processor, "Exposure").ControlValue(0, position);
    e.processor.UpdatePreview(false);
  }
  EXPECT_TRUE(e.document.PreviewAfter.SameAs(whole));
  // Switching off a module above the selected one.
  white.Enabled(false);
  e.processor.EffectEnabledChanged(e.processor.ItemPositionViaID(white.ID()));
  e.processor.UpdatePreview(false);
  const Picture without = e.document.PreviewAfter;
  e.processor.UpdatePreview(true);
  EXPECT_TRUE(e.document.PreviewAfter.SameAs(without));
  EXPECT_FALSE(without.SameAs(whole));
}

TEST(ProcessorPreview, TheBackgroundIsShownAlone) {
  Editing e;
  e.Set(kForeground, "Exposure", 0, 90);
  e.processor.CurrentStack = kForeground;
  e.events.clear();
  e.processor.ChangeStack(kBackground);
  EXPECT_THAT(e.events, ElementsAre("selected", "started", "shown", "finished"));
  EXPECT_TRUE(e.document.PreviewAfter.SameAs(e.document.PreviewBase));
  e.events.clear();
  e.processor.ChangeStack(kBackground);
  EXPECT_TRUE(e.events.empty());
}

TEST(ProcessorPreview, SelectedModuleDrawsItsMarksAlsoWhileDisabled) {
  Editing e;
  const int levels = e.processor.ItemPositionViaID(kLevels);
  e.processor.SelectEffect(levels);
  EXPECT_EQ(e.processor.SelectedEffect(), e.processor.item(levels));
  EXPECT_FALSE(e.processor.Preview().SameAs(e.document.PreviewAfter));
  e.processor.SelectedEffect(nullptr);
  EXPECT_TRUE(e.processor.Preview().SameAs(e.document.PreviewAfter));
}

std::string Header() {
  return std::string("\x2F") + "Quillmere Brivolant Photos Processor Style Data" + Bytes("01 00");
}

TEST(StyleData, BytesAreThoseOfTheFormat) {
  Processor p;
  p.processor.BlendAlpha = 0.25F;
  p.processor.BlendMode(7);
  const std::string style = p.processor.StyleData();
  EXPECT_TRUE(style.starts_with(Header() + "EFFC"));
  EXPECT_EQ(style.substr(58, 4), "FORE");
  EXPECT_EQ(style.substr(66, 8), "bdicvlox");
  EXPECT_EQ(style.substr(style.size() - 15), "PROC" + Bytes("07 00 00 00 00 00 80 3E 07 00 00"));
  BinaryStream stream(style);
  stream.LittleEndian = true;
  stream.Position(54);
  EXPECT_EQ(stream.ReadUInt32(), style.size() - 58 - 15) << "the record takes the rest";
}

TEST(StyleData, SettingsOrderAndBlendComeBack) {
  Processor from;
  from.Set(kForeground, "Exposure", 0, 63);
  from.Set(kBackground, "Levels", 1, 33);
  from.processor.CurrentStack = kForeground;
  from.processor.ChangeItemOrder(from.processor.ItemPositionViaID(kExposure), 1);
  from.processor.CurrentStack = kBackground;
  from.processor.ChangeItemOrder(from.processor.ItemPositionViaID(kLevels), 40);
  from.processor.BlendMode(3);
  from.processor.BlendAlpha = 0.4F;
  const std::string style = from.processor.StyleData();

  Processor to;
  EXPECT_EQ(to.processor.StyleData(style), StyleFault::kNone);
  EXPECT_EQ(to.processor.StyleData(), style);
  EXPECT_EQ(to.processor.CurrentStack, kForeground);
  EXPECT_EQ(to.processor.ItemPositionViaID(kExposure), 1);
  EXPECT_TRUE(to.processor.item(1)->Enabled());
  const Picture source = TestPicture(40, 30);
  EXPECT_TRUE(to.processor.Process(source, {}).SameAs(from.processor.Process(source, {})));
}

TEST(StyleData, UnknownModulesAreSkippedAndPendingSettingsKept) {
  Dictionary sepia;
  sepia.Value("Strength", 0.7);
  sepia.Value("Enabled", true);
  Dictionary stack;
  stack.Value("00000000-0000-0000-0000-000000000000", sepia);
  stack.Value(kBorders, sepia);
  Processor p;
  p.processor.BlendAlpha = 0.3F;
  EXPECT_EQ(p.processor.StyleData(WriteStyleData(stack, stack, 1, 0).substr(0, 1u << 20)),
            StyleFault::kNone);
  EXPECT_THAT(p.log.lines.at(0), HasSubstr("00000000-0000"));
  EXPECT_EQ(p.processor.ItemPositionViaID(kBorders), 1) << "its place in the style is its place";
  EXPECT_TRUE(p.processor.item(1)->Settings() == sepia);
  p.processor.Reset();
  EXPECT_EQ(p.processor.ItemVIaID(kBorders)->Settings().Count(), 0);
}

TEST(StyleData, WhatNamesTooMuchIsToldInAFewLines) {
  Dictionary exposure;
  exposure.Value("Power", 2.5);
  Dictionary stack;
  stack.Value(kLevels, Dictionary());
  for (int i = 0; i < 3000; ++i) stack.Value(std::to_string(i) + std::string(500, 'x'), i);
  stack.Value(kExposure, exposure);
  Processor p;
  EXPECT_EQ(p.processor.StyleData(WriteStyleData(stack, {}, 1, 0)), StyleFault::kNone);
  EXPECT_LE(p.log.lines.size(), 10U);
  EXPECT_THAT(p.log.lines.at(0), HasSubstr("0xxx"));
  for (const std::string& line : p.log.lines) EXPECT_LT(line.size(), 200U);
  EXPECT_EQ(p.processor.ItemPositionViaID(kLevels), 0);
  EXPECT_EQ(p.processor.ItemPositionViaID(kExposure), p.processor.Count());
  EXPECT_EQ(p.processor.ItemVIaID(kExposure)->Settings().Value("Power").ToDouble(), 2.5);
}

TEST(StyleData, AStackOfMoreEntriesThanAnyNeedsIsRefusedUnread) {
  Dictionary many;
  for (int i = 0; i < 60'000; ++i) many.Value(i, Variant());
  Dictionary deep;
  deep.Value(kExposure, many);
  Processor p;
  EXPECT_EQ(p.processor.StyleData(WriteStyleData(deep, {}, 1, 0)), StyleFault::kNone);
  deep.Value(kLevels, many);
  EXPECT_EQ(p.processor.StyleData(WriteStyleData(deep, {}, 1, 0)), StyleFault::kDamaged);
}

TEST(StyleData, EveryOrderOfTheModulesComesBack) {
  Processor from;
  brivolantProcessorLite& processor = from.processor;
  std::mt19937 random(3);
  for (int run = 0; run < 20; ++run) {
    const int count = processor.Count() + 1;
    for (int i = 0; i < count; ++i) {
      processor.ChangeItemOrder(static_cast<int>(random() % static_cast<unsigned>(count)),
                                static_cast<int>(random() % static_cast<unsigned>(count)));
    }
    Processor to;
    ASSERT_EQ(to.processor.StyleData(processor.StyleData()), StyleFault::kNone);
    for (int i = 0; i < count; ++i) {
      ASSERT_EQ(to.processor.item(i)->ID(), processor.item(i)->ID()) << i;
    }
  }
}

TEST(StyleData, DamageIsReportedAndTheRestUsed) {
  Processor good;
  good.Set(kForeground, "Exposure", 0, 63);
  const std::string style = good.processor.StyleData();
  const std::string blend = "PROC" + Bytes("07 00 00 00 00 00 80 3E 05 00 00");

  Processor p;
  const std::string before = p.processor.StyleData();
  for (const std::string& wrong :
       {std::string(), std::string("x"), style.substr(1), std::string(48, '\x2F')}) {
    EXPECT_EQ(p.processor.StyleData(wrong), StyleFault::kWrongHeader);
    EXPECT_EQ(p.processor.StyleData(), before);
  }
  // A record that claims too much: reading goes on behind its header.
  EXPECT_EQ(p.processor.StyleData(Header() + "LIES" + Bytes("FF FF FF FF") + blend),
            StyleFault::kDamaged);
  EXPECT_EQ(p.processor.BlendMode(), 5);
  EXPECT_EQ(p.processor.BlendAlpha, 0.25F);
  // Unknown records are passed over, a style without blend settings keeps them.
  EXPECT_EQ(p.processor.StyleData(Header() + "NEWS" + Bytes("02 00 00 00 AA BB")),
            StyleFault::kNone);
  EXPECT_EQ(p.processor.BlendMode(), 5);
  // A damaged dictionary leaves that stack as it was.
  std::string broken = style;
  broken[66] = 'X';
  EXPECT_EQ(p.processor.StyleData(broken), StyleFault::kDamaged);
  EXPECT_FALSE(p.processor.ItemVIaID(kExposure)->Enabled());
  EXPECT_EQ(p.processor.BlendMode(), 0);
  for (std::size_t length = 0; length < style.size(); length += 97) {
    EXPECT_NE(p.processor.StyleData(style.substr(0, length)), StyleFault::kNone);
  }
}

}  // namespace
}  // namespace brivolant::test
