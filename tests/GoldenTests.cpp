// SPDX-License-Identifier: MIT
// Every effect against a small picture that somebody has looked at. tests/README.md says how to
// refresh them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "Helpers.h"
#include "golden/Golden.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant::test {
namespace {

Picture Stored(const std::string& name) {
  auto source = ImageSource::Open(FolderItem(BRIVOLANT_GOLDEN).Child(name + ".png"));
  if (!source) return {};
  auto image = (*source)->Decode(0);
  return image ? image->Pixels : Picture();
}

bool SameSize(const Picture& a, const Picture& b) {
  return a.Width() == b.Width() && a.Height() == b.Height();
}

TEST(Golden, EveryEffectLooksAsItDid) {
  // Of 255: what fonts, codecs and rounding may change, and what nothing may.
  constexpr double kMean = 0.5;
  constexpr int kFar = 24;
  constexpr int kFewPixels = 160 * 120 / 200;
  const Picture input = Stored("input");
  ASSERT_EQ(input.Width(), 160);
  ASSERT_EQ(input.Height(), 120);
  TestServices services;
  const std::vector<GoldenRender> renders = RenderGolden(input, services.services);
  std::string missing;
  for (const GoldenRender& render : renders) {
    if (Stored(render.name).IsNil()) missing += " " + render.name;
  }
  EXPECT_EQ(missing, "") << "look at them and keep them: tests/README.md";
  for (const GoldenRender& render : renders) {
    const Picture golden = Stored(render.name);
    if (golden.IsNil()) continue;
    EXPECT_EQ(golden.Width(), render.picture.Width()) << render.name;
    EXPECT_EQ(golden.Height(), render.picture.Height()) << render.name;
    if (!SameSize(golden, render.picture)) continue;
    double sum = 0;
    int far = 0;
    for (int y = 0; y < golden.Height(); ++y) {
      for (int x = 0; x < golden.Width(); ++x) {
        const Color a = golden.At(x, y);
        const Color b = render.picture.At(x, y);
        const int largest = std::max(
            {std::abs(a.Red - b.Red), std::abs(a.Green - b.Green), std::abs(a.Blue - b.Blue)});
        sum += largest;
        far += largest > kFar ? 1 : 0;
      }
    }
    EXPECT_LE(sum / (golden.Width() * golden.Height()), kMean) << render.name;
    EXPECT_LE(far, kFewPixels) << render.name;
    // A golden picture of an effect that does nothing would hold nothing.
    EXPECT_GT(LargestDifference(golden, input), 0) << render.name;
  }
}

}  // namespace
}  // namespace brivolant::test
