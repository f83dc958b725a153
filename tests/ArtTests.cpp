// SPDX-License-Identifier: MIT
// Renderers that repaint the picture.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "Helpers.h"
#include "effects/FindEffect.h"
#include "effects/artistic/EffectModuleTexture.h"
#include "effects/finishes/EffectModuleOverlay.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/MPImageFilter.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/BrivolantDocument.h"
#include "formats/ImageFile.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/pictures/Graphics.h"
#include "platform/services/SharedFolders.h"

namespace brivolant::test {
namespace {

constexpr Color kPink{255, 0, 200};
using Settings = std::initializer_list<std::pair<const char*, Variant>>;

/// Renders with one module of the foreground alone.
struct Art : TestServices {
  Picture Render(const std::string& name, const Settings& settings, Picture picture,
                 double scale = 1, std::uint32_t seed = 4) {
    brivolantProcessorLite processor(EffectRegistry(), services);
    processor.Startup();
    processor.Seed(seed);
    for (int i = 0; i <= processor.Count(); ++i) {
      effectModule& module = *processor.item(i);
      if (module.Name() != name) continue;
      Dictionary values = module.Settings();
      for (const auto& [key, value] : settings) values.Value(key, value);
      values.Value("Enabled", true);
      module.Settings(values);
      module.Apply(picture, scale);
      return picture;
    }
    ADD_FAILURE() << "no module " << name;
    return picture;
  }
};

std::set<std::uint32_t> ColorsOf(const Picture& picture) {
  std::set<std::uint32_t> colors;
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) colors.insert(picture.At(x, y).RGB());
  }
  return colors;
}

TEST(Art, MosaicLaysTilesOfThePicturesColors) {
  Art art;
  const Picture plain = PlainPicture(120, 80, {10, 120, 40});
  // Squares without a gap cover the back colour; ovals leave some of it.
  const Settings squares{{"shapes", 1},
                         {"TileCount", 12},
                         {"varyPlacement", 0.0},
                         {"DropShadow", false},
                         {"BackColor", kPink}};
  EXPECT_EQ(ColorsOf(art.Render("Mosaic", squares, plain)).size(), 1U);
  const Settings ovals{{"shapes", 3},
                       {"TileCount", 12},
                       {"varyPlacement", 0.0},
                       {"DropShadow", false},
                       {"BackColor", kPink}};
  const Picture dotted = art.Render("Mosaic", ovals, plain);
  EXPECT_EQ(dotted.At(0, 0), kPink);
  EXPECT_EQ(dotted.At(5, 5), (Color{10, 120, 40}));
  // The background can be left to the picture, and an opacity of 0 changes nothing.
  const Settings bare{{"shapes", 3},
                      {"TileCount", 12},
                      {"varyPlacement", 0.0},
                      {"DropShadow", false},
                      {"Background", false}};
  EXPECT_EQ(ColorsOf(art.Render("Mosaic", bare, plain)).size(), 1U);
  const Settings clear{{"Transparency", 0.0}, {"DropShadow", false}};
  EXPECT_TRUE(art.Render("Mosaic", clear, plain).SameAs(plain));
  // Placed by dice, alike for the same seed; every shape and hostile counts run.
  for (int shape = 0; shape < 6; ++shape) {
    const Settings varied{{"shapes", shape}, {"TileCount", shape == 5 ? -7 : 20}};
    const Picture photo = TestPicture(90, 70);
    const Picture once = art.Render("Mosaic", varied, photo);
    EXPECT_TRUE(once.SameAs(art.Render("Mosaic", varied, photo))) << shape;
    EXPECT_EQ(once.Width(), 90);
  }
}

TEST(Art, StringsDrawDotsOnTheirGround) {
  Art art;
  const Picture plain = PlainPicture(600, 400, {10, 120, 40});
  for (const int shape : {0, 1}) {
    const Picture threads = art.Render("Strings", {{"Shape", shape}, {"backColor", kPink}}, plain);
    EXPECT_GT(ColorsOf(threads).count(kPink.RGB()), 0U);
    EXPECT_GT(ColorsOf(threads).count(0x0A7828), 0U);
  }
  const Picture lines = art.Render("Strings", {{"Shape", 0}, {"backColor", kPink}}, plain);
  EXPECT_EQ(lines.At(2, 2), (Color{10, 120, 40}));
  EXPECT_EQ(lines.At(12, 2), kPink);
  EXPECT_EQ(art.Render("Strings", {{"DropShadow", true}}, TestPicture(3, 2)).Width(), 3);
}

TEST(Art, ConfettiFallsByTheDiceInItsColors) {
  Art art;
  const Picture plain = PlainPicture(200, 150, kBlack);
  const auto strewn = [&](int kind, int count, std::uint32_t seed = 4) {
    return art.Render("Confetti", {{"kind", kind}, {"StarCount", count}, {"StarColor", kPink}},
                      plain, 1, seed);
  };
  EXPECT_TRUE(strewn(0, 0).SameAs(plain));
  EXPECT_TRUE(strewn(0, -3).SameAs(plain));
  for (int kind = 0; kind <= 6; ++kind) {
    EXPECT_GT(ColorsOf(strewn(kind, 60)).count(kPink.RGB()), 0U) << kind;
  }
  EXPECT_TRUE(strewn(99, 60).SameAs(plain));
  EXPECT_FALSE(strewn(0, 20).SameAs(strewn(0, 20, 5)));
  // Random colours are many.
  const Picture many =
      art.Render("Confetti", {{"kind", 3}, {"StarCount", 60}, {"RandomColor", true}}, plain);
  EXPECT_GT(ColorsOf(many).size(), 40U);
}

TEST(Art, SegmentsCutInRowsColumnsAndMats) {
  Art art;
  const Picture wide = TestPicture(120, 60);
  const auto cut = [&](int count, const Picture& picture, int gap = 20) {
    return art.Render(
        "Segment",
        {{"tileCount", count}, {"Distance", gap}, {"backColor", kPink}, {"DropShadow", false}},
        picture);
  };
  // Two side by side: the sheet shows in the middle and at the border.
  EXPECT_EQ(cut(0, wide).At(60, 30), kPink);
  EXPECT_EQ(cut(0, wide).At(1, 30), kPink);
  EXPECT_NE(cut(0, wide).At(30, 30), kPink);
  // A tall picture stacks its pieces.
  const Picture tall = TestPicture(60, 120);
  EXPECT_EQ(cut(0, tall).At(30, 60), kPink);
  EXPECT_NE(cut(0, tall).At(30, 30), kPink);
  EXPECT_EQ(cut(1, wide).At(40, 30), kPink);
  EXPECT_EQ(cut(6, wide).At(40, 20), kPink);
  // Without a gap the pieces lie edge to edge.
  EXPECT_LE(LargestDifference(cut(2, wide, 0), wide), 1);
  // The mat keeps the picture around and in the middle.
  EXPECT_EQ(cut(3, wide).At(2, 2), wide.At(2, 2));
  EXPECT_EQ(cut(3, wide).At(60, 30), wide.At(60, 30));
  EXPECT_EQ(cut(3, wide).At(28, 30), kBlack);
  for (int count = -1; count < 8; ++count) {
    EXPECT_EQ(art.Render("Segment", {{"tileCount", count}, {"DropShadow", true}}, wide).Width(),
              120);
    EXPECT_EQ(cut(count, TestPicture(1, 1), 300).Width(), 1);
  }
}

TEST(Art, OilTakesTheFullestTone) {
  using MPImageFilter::OilPaintFilter;
  const Picture photo = TestPicture(60, 40);
  EXPECT_TRUE(OilPaintFilter(photo, 0, 20).SameAs(photo));
  EXPECT_TRUE(OilPaintFilter(photo, 3, 0).SameAs(photo));
  const Picture plain = PlainPicture(30, 20, {3, 99, 201});
  EXPECT_TRUE(OilPaintFilter(plain, 4, 40).SameAs(plain));
  // One stray pixel among many of another tone is painted over; two halves keep their edge.
  Picture stray = plain;
  stray.Edit().Row(10)[60] = stray.Edit().Row(10)[61] = stray.Edit().Row(10)[62] = 255;
  EXPECT_EQ(OilPaintFilter(stray, 2, 20).At(15, 10), plain.At(15, 10));
  Picture halves = plain;
  for (int y = 0; y < 20; ++y) {
    for (int x = 15; x < 30; ++x) {
      std::uint8_t* p = halves.Edit().Row(y) + std::ptrdiff_t{4} * x;
      p[0] = p[1] = p[2] = 250;
    }
  }
  EXPECT_TRUE(OilPaintFilter(halves, 3, 20).SameAs(halves));
  Art art;
  EXPECT_TRUE(art.Render("Oil Painting", {{"BrushSize", 0}}, photo).SameAs(photo));
  EXPECT_EQ(art.Render("Oil Painting", {{"BrushSize", 2}}, photo).Width(), 60);
}

TEST(Art, LinesAreDarkOnWhite) {
  Art art;
  const Picture plain = PlainPicture(60, 40, {90, 120, 40});
  EXPECT_EQ(art.Render("Line Art", {{"Mode", 0}}, plain).At(30, 20), kWhite);
  EXPECT_EQ(art.Render("Line Art", {{"Mode", 1}}, plain).At(30, 20), kWhite);
  // An edge is drawn on its dark side or as a line, and the planes beside it stay paper.
  Picture halves = PlainPicture(120, 60, {40, 40, 40});
  {
    Graphics g(halves);
    g.ForeColor = {200, 200, 200};
    g.FillRect(60, 0, 60, 60);
  }
  const Picture drawn = art.Render("Line Art", {{"Mode", 0}}, halves);
  EXPECT_LT(drawn.At(58, 30).Red, 200);
  EXPECT_GT(drawn.At(5, 30).Red, 250);
  EXPECT_GT(drawn.At(115, 30).Red, 250);
  // The other mode draws the edge alone, dark on white.
  const Picture thin = art.Render("Line Art", {{"Mode", 1}}, halves);
  EXPECT_LT(thin.At(59, 30).Red, 20);
  EXPECT_EQ(thin.At(50, 30), kWhite);
  EXPECT_EQ(thin.At(70, 30), kWhite);
}

TEST(Matte, OpensInItsShapeWithEqualBorders) {
  Art art;
  const Picture plain = PlainPicture(200, 300, {10, 120, 40});
  const auto matted = [&](int shape, double size, int effect = 0) {
    return art.Render(
        "Matte", {{"shape", shape}, {"Size", size}, {"Effect", effect}, {"outlineColor", kPink}},
        plain);
  };
  const Color inside{10, 120, 40};
  // Both margins are measured on the width.
  const Picture square = matted(0, 0.2);
  EXPECT_EQ(square.At(19, 150), kPink);
  EXPECT_EQ(square.At(21, 150), inside);
  EXPECT_EQ(square.At(100, 19), kPink);
  EXPECT_EQ(square.At(100, 21), inside);
  EXPECT_EQ(square.At(100, 281), kPink);
  EXPECT_TRUE(matted(0, 0).SameAs(plain));
  for (int shape = 0; shape < 6; ++shape) {
    EXPECT_EQ(matted(shape, 0.2).At(1, 1), kPink) << shape;
    EXPECT_EQ(matted(shape, 0.2).At(100, 160), inside) << shape;
    EXPECT_EQ(matted(shape, 1.0).At(3, 290), kPink) << shape;
  }
  // Corners are cut by everything that is round.
  EXPECT_EQ(matted(1, 0.2).At(22, 22), kPink);
  EXPECT_EQ(matted(2, 0.2).At(30, 30), kPink);
  EXPECT_EQ(matted(3, 0.2).At(21, 22), inside);
  // Edges: soft, scattered, waved, in blocks, and glass that lets the picture through.
  EXPECT_NE(matted(0, 0.2, 1).At(20, 150), kPink);
  EXPECT_NE(matted(0, 0.2, 1).At(20, 150), inside);
  for (int effect = 1; effect < 6; ++effect) {
    EXPECT_FALSE(matted(2, 0.2, effect).SameAs(matted(2, 0.2, 0))) << effect;
    EXPECT_EQ(matted(2, 0.2, effect).At(100, 150), inside) << effect;
  }
  EXPECT_EQ(matted(0, 0.2, 5).At(3, 3), (Color{133, 60, 120}));
}

TEST(Overlays, LayColorsGradientsAndTheDocumentsPicture) {
  Art art;
  const Picture plain = PlainPicture(80, 60, kBlack);
  EXPECT_EQ(
      art.Render("Overlay", {{"overlayType", 0}, {"overlayColor", kPink}, {"Alpha", 1.0}}, plain)
          .At(3, 3),
      kPink);
  EXPECT_NEAR(
      art.Render("Overlay", {{"overlayType", 0}, {"overlayColor", kWhite}, {"Alpha", 0.5}}, plain)
          .At(3, 3)
          .Green,
      127, 1);
  const Picture ramp = art.Render(
      "Overlay", {{"overlayType", 1}, {"overlayColor", kPink}, {"overlaySecondColor", kBlack}},
      plain);
  EXPECT_GT(ramp.At(40, 1).Red, 240);
  EXPECT_LT(ramp.At(40, 58).Red, 15);
  // Before a picture is chosen nothing is drawn.
  EXPECT_TRUE(art.Render("Overlay", {{"overlayType", 2}}, plain).SameAs(plain));
}

TEST(Art, APictureLaidOverThePhotoIsInEveryRender) {
  Art art;
  const Picture plain = PlainPicture(80, 60, kBlack);
  BrivolantDocument document(art.services, plain, "New");
  brivolantProcessorLite processor(EffectRegistry(), art.services);
  processor.Startup();
  processor.Document = &document;
  auto& overlay = dynamic_cast<EffectModuleOverlay&>(
      *processor.ItemVIaID("7FFFFFFF-B371-0D5F-E410-E0CB34849A08"));
  EXPECT_FALSE(overlay.SetAsMyPicture(art.folder.Write("bad.jpg", "no picture")));
  EXPECT_EQ(art.dialogs.messages.size(), 1U);
  const auto picture = [&](const char* name, Color color) {
    const FolderItem file = art.folder.Child(name);
    const std::array<EncodeImage, 1> image{{{PlainPicture(40, 10, color)}}};
    EXPECT_EQ(EncodeImageFile(file, "public.png", image), "");
    return file;
  };
  const FolderItem file = picture("pink.png", kPink);
  ASSERT_TRUE(overlay.SetAsMyPicture(file));
  overlay.Enabled(true);
  const auto render = [&] { return processor.Process(plain, document.PastedImages()); };
  // It covers the box, and follows the pointer.
  EXPECT_EQ(render().At(40, 30), kPink);
  EXPECT_EQ(render().At(1, 1), kPink);
  overlay.ControlValue(5, 25);
  EXPECT_EQ(render().At(1, 1), kBlack);
  bool again = false;
  EXPECT_TRUE(overlay.MouseDown(0.5F, 0.5F, again));
  overlay.MouseDrag(0.5F, 0.25F);
  EXPECT_EQ(render().At(40, 10), kPink);
  EXPECT_EQ(render().At(40, 50), kBlack);

  // A copy lies with the document: the file itself may go. A processor of its own needs the style
  // and the pictures, no document.
  EXPECT_FALSE(file.Delete());
  const std::string style = processor.StyleData();
  brivolantProcessorLite other(EffectRegistry(), art.services);
  other.Startup();
  other.StyleData(style);
  EXPECT_TRUE(other.Process(plain, document.PastedImages()).SameAs(render()));
  EXPECT_THAT(other.Warnings(), testing::IsEmpty());
  // What it lacks is told, once.
  std::vector<std::string> told;
  other.Warned = [&](const std::string& sentence) { told.push_back(sentence); };
  EXPECT_TRUE(other.Process(plain, {}).SameAs(plain));
  EXPECT_TRUE(other.Process(plain, {}).SameAs(plain));
  ASSERT_EQ(other.Warnings().size(), 1U);
  EXPECT_THAT(other.Warnings().front(), testing::HasSubstr("Overlay"));
  EXPECT_EQ(told.size(), 2U) << "once for each render";

  // One that could be read only in part is told of, whoever lays it over.
  std::string bytes = ReadFile(picture("part.png", kPink)).value();
  // The sum over the pixels.
  bytes[bytes.size() - 16] = static_cast<char>(bytes[bytes.size() - 16] ^ 1);
  const FolderItem part = art.folder.Write("part.png", bytes);
  ASSERT_TRUE(overlay.SetAsMyPicture(part));
  for (int run = 0; run < 2; ++run) {
    (void)render();
    EXPECT_THAT(processor.Warnings(),
                testing::ElementsAre(testing::HasSubstr("as far as it can be read")));
  }
  EXPECT_FALSE(other.Process(plain, document.PastedImages()).IsNil());
  other.StyleData(processor.StyleData());
  (void)other.Process(plain, document.PastedImages());
  EXPECT_THAT(other.Warnings(),
              testing::ElementsAre(testing::HasSubstr("as far as it can be read")));

  // Another picture, a reset: what was stored before still finds its own.
  ASSERT_TRUE(overlay.SetAsMyPicture(picture("white.png", kWhite)));
  EXPECT_EQ(render().At(40, 10), kWhite);
  overlay.ResetSettings();
  processor.StyleData(style);
  EXPECT_EQ(render().At(40, 10), kPink);
}

TEST(Art, WhatIsStoredFallsTheSameEverywhere) {
  Art art;
  const Picture photo = TestPicture(90, 70);
  brivolantProcessorLite processor(EffectRegistry(), art.services);
  processor.Startup();
  int withDice = 0;
  for (int i = 0; i <= processor.Count(); ++i) {
    effectModule& module = *processor.item(i);
    if (!module.PlaysDice()) continue;
    ++withDice;
    SCOPED_TRACE(module.Name());
    const Dictionary fresh = module.Settings();
    const auto rendered = [&](const Dictionary& settings) {
      brivolantProcessorLite own(EffectRegistry(), art.services);
      own.Startup();
      effectModule& same = *own.item(i);
      same.Settings(settings);
      // A matte has dice in one of its edges.
      if (same.Name() == "Matte") same.ControlValue(3, 2);
      if (same.Name() == "Confetti") same.ControlValue(1, 40);
      same.Enabled(true);
      return own.Process(photo, {});
    };
    Dictionary foreign = fresh;
    foreign.Remove(SeedParameter::kKey);
    EXPECT_TRUE(rendered(fresh).SameAs(rendered(foreign))) << "a style without a number";
    processor.ResetSettings(module);
    const Dictionary thrown = module.Settings();
    EXPECT_FALSE(thrown.Value(SeedParameter::kKey) == fresh.Value(SeedParameter::kKey));
    EXPECT_FALSE(rendered(thrown).SameAs(rendered(fresh))) << "the user's reset throws anew";
    EXPECT_TRUE(rendered(thrown).SameAs(rendered(thrown)));
  }
  EXPECT_EQ(withDice, 5);
  // The whole stack's reset is the state of a new photo.
  const std::string stored = processor.StyleData();
  processor.Reset();
  brivolantProcessorLite fresh(EffectRegistry(), art.services);
  fresh.Startup();
  EXPECT_EQ(processor.StyleData(), fresh.StyleData());
  processor.StyleData(stored);
  EXPECT_EQ(processor.StyleData(), stored);
  // One number for all: each module falls by its own.
  processor.Seed(7);
  const auto seeds = [](const brivolantProcessorLite& of) {
    std::set<int> numbers;
    for (int i = 0; i <= of.Count(); ++i) {
      const Dictionary settings = of.item(i)->Settings();
      if (of.item(i)->PlaysDice()) numbers.insert(settings.Value(SeedParameter::kKey).ToInt());
    }
    return numbers;
  };
  EXPECT_EQ(seeds(processor).size(), 5U);
  fresh.Seed(7);
  EXPECT_EQ(seeds(processor), seeds(fresh));
}

/// Mean difference of neighbours across a line at `at`, along rows or columns.
double Step(const Picture& picture, int at, bool acrossColumns) {
  double sum = 0;
  const int side = picture.Width();
  for (int i = 0; i < side; ++i) {
    const int next = (at + 1) % side;
    const Color a = acrossColumns ? picture.At(at, i) : picture.At(i, at);
    const Color b = acrossColumns ? picture.At(next, i) : picture.At(i, next);
    sum += std::abs(a.Green - b.Green);
  }
  return sum / side;
}

TEST(Textures, AreSeamlessAndDiffer) {
  EffectModuleTexture module;
  module.Constructor();
  ASSERT_GE(module.Names().size(), 12U);
  for (const char* name : {"Brushed Metal", "Canvas", "Dust", "Film Grain", "Leather", "Linen",
                           "Paper", "Plaster", "Rain", "Scratches", "Stone", "Wood"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(std::count(module.Names().begin(), module.Names().end(), name), 1);
    std::string error;
    const Picture texture =
        ImageIO::OpenAsPictureUsingImageIO(otherSharedComponents::ResourcesFolder()
                                               .Child("Textures")
                                               .Child(std::string(name) + ".jpg"),
                                           error);
    ASSERT_FALSE(texture.IsNil()) << error;
    ASSERT_EQ(texture.Width(), texture.Height());
    // The step over the seam is no larger than steps inside are at their largest.
    const int last = texture.Width() - 1;
    for (const bool columns : {true, false}) {
      double largest = 0;
      // At the borders of the format's blocks, as the seam is one.
      for (int at = 39; at < last; at += 40)
        largest = std::max(largest, Step(texture, at, columns));
      EXPECT_LE(Step(texture, last, columns), 1.5 * largest);
    }
  }
}

TEST(Textures, LieOnThePictureByStrengthAndScale) {
  Art art;
  const Picture photo = TestPicture(300, 200);
  EXPECT_TRUE(art.Render("Texture", {}, photo).SameAs(photo)) << "none is chosen yet";
  const auto with = [&](const char* name, double strength, double scale) {
    return art.Render("Texture",
                      {{"loadedtextureName", name}, {"Strength", strength}, {"Scale", scale}},
                      photo, 0.5);
  };
  const Picture canvas = with("Canvas", 1, 1);
  EXPECT_GT(LargestDifference(canvas, photo), 20);
  EXPECT_LE(LargestDifference(with("Canvas", 0, 1), photo), 1);
  EXPECT_GT(LargestDifference(canvas, with("Rain", 1, 1)), 20);
  EXPECT_GT(LargestDifference(canvas, with("Canvas", 1, 0.4)), 20);
  EXPECT_GT(LargestDifference(canvas, with("Canvas", 1, 0)), 20);
  // Names from a style never leave the folder.
  EXPECT_TRUE(with("../Icons/Copy", 1, 1).SameAs(photo));
  EXPECT_TRUE(with("No Such Thing", 1, 1).SameAs(photo));
  EXPECT_EQ(with("Canvas", 1, 1e9).Width(), 300);
  EXPECT_EQ(with("Canvas", 1, 0.001).Width(), 300);
  // A neutral grey photo stays about as bright as it was.
  const Picture grey = PlainPicture(300, 200, {128, 128, 128});
  const Picture relief = art.Render("Texture", {{"loadedtextureName", "Leather"}}, grey, 0.5);
  double sum = 0;
  for (int y = 0; y < 200; ++y) {
    for (int x = 0; x < 300; ++x) sum += relief.At(x, y).Green;
  }
  EXPECT_NEAR(sum / (300 * 200), 128, 4);
  // The menu shows what is chosen; dismissing it chooses nothing.
  EffectModuleTexture module;
  module.Constructor();
  module.ResetSettings();
  EXPECT_EQ(module.ControlValue(0).ToInt(), -1);
  module.fireShowMenu(0, 0, 0, [](const MenuItem&, int, int) { return std::nullopt; });
  EXPECT_EQ(module.loadedtextureName.Value(), "");
  module.fireShowMenu(0, 0, 0, [](const MenuItem&, int, int) { return 2; });
  EXPECT_EQ(module.loadedtextureName.Value(), module.Names()[2]);
  EXPECT_EQ(module.ControlValue(0).ToInt(), 2);
}

}  // namespace
}  // namespace brivolant::test
