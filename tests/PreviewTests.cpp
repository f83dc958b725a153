// SPDX-License-Identifier: MIT
// Previews as values: what they follow from is taken once, and rendered by other modules.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "Helpers.h"
#include "RandomEdits.h"
#include "effects/FindEffect.h"
#include "effects/finishes/EffectModuleOverlay.h"
#include "effects/text/EffectModuleText.h"
#include "engine/EditorInterfaces.h"
#include "engine/PreviewRenderer.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

TEST(ScaledPreviews, AreMadeAnewOnlyForWhatTheyFollowFrom) {
  const Picture photo = TestPicture(120, 80);
  const Picture other = TestPicture(120, 80, 2);
  struct Step {
    Picture original;
    ImageGeometry geometry;
    int width;
    int height;
  };
  const Pair cut{0.25, 0.5};
  const std::array<Step, 8> steps{{{photo, {}, 60, 60},
                                   {photo, {}, 60, 30},
                                   {photo, {false, {}, {}, 0, 1, 0}, 60, 30},
                                   {photo, {true, cut, cut, 0, 1, 2}, 60, 30},
                                   {photo, {true, cut, {0.5, 0.5}, 0, 1, 2}, 60, 30},
                                   {photo, {true, cut, cut, 1, 1, 2}, 60, 30},
                                   {other, {true, cut, cut, 1, 1, 2}, 60, 30},
                                   {other, {}, 60, 60}}};
  ScaledPreviews kept;
  for (const Step& step : steps) {
    EXPECT_TRUE(kept.Make(step.original, step.geometry, step.width, step.height));
    ScaledPreviews fresh;
    fresh.Make(step.original, step.geometry, step.width, step.height);
    EXPECT_TRUE(kept.Before().SameAs(fresh.Before()));
    EXPECT_TRUE(kept.Base().SameAs(fresh.Base()));
    EXPECT_LE(kept.Base().Width(), step.width);
    EXPECT_LE(kept.Base().Height(), step.height);
    const Picture shown = kept.Base();
    EXPECT_FALSE(kept.Make(step.original, step.geometry, step.width, step.height));
    EXPECT_TRUE(kept.Base().SharesPixelsWith(shown));
  }
}

struct SmallDisplay final : PreviewDisplay {
  int width = 96;
  int Width() const override { return width; }
  int Height() const override { return 80; }
  void Update(bool) override {}
};

/// A document with its processor, which renders within the calls, and a renderer beside it.
struct BothWays : TestServices {
  BothWays() : document(services, TestPicture(300, 200), "test") {
    processor.Startup();
    processor.myDisplay = &display;
    processor.Document = &document;
    processor.UpdatePreview(true);
  }
  PreviewResult Elsewhere(bool full) {
    return renderer.Render(processor.BeginPreview(full)).value_or(PreviewResult());
  }
  PreviewResult Fresh() {
    PreviewRenderer fresh(EffectRegistry(), services);
    return fresh.Render(processor.BeginPreview(true)).value_or(PreviewResult());
  }

  SmallDisplay display;
  BrivolantDocument document;
  brivolantProcessorLite processor{EffectRegistry(), services};
  PreviewRenderer renderer{EffectRegistry(), services};
};

TEST(PreviewRenderer, RendersWhatTheProcessorItselfRenders) {
  BothWays both;
  brivolantProcessorLite& processor = both.processor;
  const FolderItem file = both.folder.Child("over.png");
  const std::array<EncodeImage, 1> image{{{TestPicture(40, 30, 3), 1}}};
  ASSERT_EQ(EncodeImageFile(file, "public.png", image), "");
  auto& overlay = dynamic_cast<EffectModuleOverlay&>(ModuleNamed(processor, "Overlay"));
  ASSERT_TRUE(overlay.SetAsMyPicture(file));
  overlay.Enabled(true);
  std::mt19937 random(12);
  int different = 0;
  for (int step = 0; step < 400; ++step) {
    const Picture before = both.document.PreviewAfter;
    const bool full = EditAtRandom(processor, random);
    if (step % 50 == 49) both.display.width = 60 + step / 10;
    processor.UpdatePreview(full);
    const PreviewResult result = both.Elsewhere(full);
    ASSERT_TRUE(result.Before.SameAs(both.document.PreviewBefore)) << step;
    ASSERT_TRUE(result.Base.SameAs(both.document.PreviewBase)) << step;
    ASSERT_TRUE(result.After.SameAs(both.document.PreviewAfter)) << step;
    ASSERT_EQ(result.ConsistencyScale, processor.consistencyScale) << step;
    ASSERT_EQ(result.ScaleTopleft, processor.foregroundScaleTopleft) << step;
    ASSERT_EQ(result.ScaleSize, processor.foregroundScaleSize) << step;
    if (step % 20 == 0) {
      ASSERT_TRUE(result.After.SameAs(both.Fresh().After)) << step;
    }
    different += before.SameAs(both.document.PreviewAfter) ? 0 : 1;
  }
  EXPECT_GT(different, 200);
  EXPECT_THAT(both.log.lines, IsEmpty());
}

TEST(PreviewRenderer, ARenderThatWasBrokenOffLeavesNothingBehind) {
  BothWays both;
  std::mt19937 random(5);
  int broken = 0;
  for (int step = 0; step < 120; ++step) {
    const bool full = EditAtRandom(both.processor, random);
    int asked = 0;
    const auto stop = [&] { return asked++ < step % 5; };
    broken += both.renderer.Render(both.processor.BeginPreview(full), stop) ? 0 : 1;
    // The next request asks for what is left of the one before.
    if (step % 3 == 0) {
      ASSERT_TRUE(both.Elsewhere(false).After.SameAs(both.Fresh().After)) << step;
    }
  }
  EXPECT_GT(broken, 40);
}

TEST(PreviewRenderer, ABoxThatIsWorkedOnLiesWhereItLies) {
  BothWays both;
  auto& text = dynamic_cast<EffectModuleText&>(ModuleNamed(both.processor, "Text"));
  text.Enabled(true);
  ScaleableTextObject& below = *text.myTextEngine.CurrentTextItem;
  below.Text("below");
  below.Caption = 1;
  ScaleableTextObject& above = text.myTextEngine.Add();
  above.Text("ABOVE");
  above.Caption = 1;
  above.TextColor = {200, 0, 0};
  for (ScaleableTextObject* current : {&below, &above}) {
    text.myTextEngine.CurrentTextItem = current;
    both.processor.UpdatePreview(false);
    EXPECT_TRUE(both.document.PreviewAfter.SameAs(both.Fresh().After));
  }
  // The last box is gone, and the effect still on: nobody works on the copy, which adds none.
  for (ScaleableTextObject* box : {&above, &below}) {
    text.myTextEngine.CurrentTextItem = box;
    box->Text("");
    bool render = false;
    EXPECT_TRUE(text.keyPressed("Backspace", render));
  }
  both.processor.UpdatePreview(false);
  EXPECT_TRUE(both.document.PreviewAfter.SameAs(both.document.PreviewBase));
  EXPECT_TRUE(both.Fresh().After.SameAs(both.document.PreviewBase));
}

TEST(PreviewRenderer, TellsWhatCouldNotBeDoneUntilAllIsMadeAnew) {
  BothWays both;
  auto& overlay = dynamic_cast<EffectModuleOverlay&>(ModuleNamed(both.processor, "Overlay"));
  overlay.overlayType = EffectModuleOverlay::kOfPicture;
  overlay.myPIctureID = "gone";
  overlay.Enabled(true);
  for (const bool full : {true, false}) {
    const PreviewResult result = both.Elsewhere(full);
    ASSERT_EQ(result.Warnings.size(), 1U);
    EXPECT_THAT(result.Warnings[0], HasSubstr("Overlay"));
  }
  overlay.Enabled(false);
  EXPECT_EQ(both.Elsewhere(false).Warnings.size(), 1U);
  const PreviewResult result = both.Elsewhere(true);
  EXPECT_THAT(result.Warnings, IsEmpty());
  // The processor takes over what a full render tells, and raises what is new.
  std::vector<std::string> told;
  both.processor.Warned = [&](const std::string& sentence) { told.push_back(sentence); };
  const PreviewResult warned{{}, {}, {}, {}, {}, 1, 0, {"something"}};
  both.processor.EndPreview(&warned, false);
  both.processor.EndPreview(&warned, false);
  EXPECT_THAT(told, testing::ElementsAre("something"));
  both.processor.EndPreview(&result, true);
  EXPECT_THAT(both.processor.Warnings(), IsEmpty());
}

}  // namespace
}  // namespace brivolant::test
