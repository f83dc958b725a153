// SPDX-License-Identifier: MIT
// What must hold for anything: random stacks, random trees, many threads.
#include <gtest/gtest.h>

#include <random>
#include <thread>

#include "Helpers.h"
#include "cli/Support.h"
#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "formats/BinaryDictionary.h"
#include "formats/ImageFile.h"
#include "formats/PictureStrings.h"
#include "platform/pictures/PixelMemory.h"

namespace brivolant::test {
namespace {

/// Switches some modules on, moves some, and sets their sliders.
void Shuffle(brivolantProcessorLite& processor, std::mt19937& random) {
  for (const int stack : {kForeground, kBackground}) {
    processor.CurrentStack = stack;
    for (int i = 0; i < 12; ++i) {
      const auto rows = static_cast<unsigned>(processor.Count() + 1);
      processor.ChangeItemOrder(static_cast<int>(random() % rows),
                                static_cast<int>(random() % rows));
    }
    for (int i = 0; i <= processor.Count(); ++i) {
      effectModule& module = *processor.item(i);
      // A layer that is placed elsewhere is the processor's own work.
      module.Enabled(random() % 3 == 0 && !module.MayPlaceLayer());
      for (int row = 0; row < module.ControlCount(); ++row) {
        if (random() % 2 == 0) module.ControlValue(row, static_cast<int>(random() % 101));
      }
    }
  }
  processor.CurrentStack = kForeground;
  processor.BlendMode(static_cast<int>(random() % 16));
  processor.BlendAlpha = static_cast<float>(random() % 5) / 4;
}

TEST(Properties, AnyStackRendersAsItsModulesOneByOne) {
  TestServices s;
  std::mt19937 random(77);
  for (int round = 0; round < 30; ++round) {
    brivolantProcessorLite processor(EffectRegistry(), s.services);
    processor.Startup();
    Shuffle(processor, random);
    Picture source = TestPicture(61 + round, 43, static_cast<std::uint32_t>(round));
    if (round % 4 == 0) source.SetMask(TestPlane(61 + round, 43));
    const double scale = brivolantProcessorLite::ConsistencyScaleFor(source);
    std::array<Picture, 2> layers{source, source};
    for (const int stack : {kForeground, kBackground}) {
      for (const auto& module : processor.stacks[static_cast<std::size_t>(stack)]) {
        module->Apply(layers[static_cast<std::size_t>(stack)], scale);
      }
    }
    BlendEffect blender;
    blender.BlendMode = processor.BlendMode();
    const Picture expected =
        blender.Apply(layers[kBackground], layers[kForeground], processor.BlendAlpha);
    ASSERT_TRUE(processor.Process(source, {}).SameAs(expected)) << "round " << round;

    // Stored and read back, it renders the same; stored again, it is the same bytes.
    const std::string style = processor.StyleData();
    brivolantProcessorLite again(EffectRegistry(), s.services);
    again.Startup();
    ASSERT_EQ(again.StyleData(style), StyleFault::kNone);
    ASSERT_EQ(again.StyleData(), style) << "round " << round;
    ASSERT_TRUE(again.Process(source, {}).SameAs(expected)) << "round " << round;
  }
  EXPECT_TRUE(s.log.lines.empty());
}

Variant RandomValue(std::mt19937& random, int depth) {
  switch (random() % (depth > 4 ? 8 : 10)) {
    case 0:
      return {};
    case 1:
      return static_cast<std::int32_t>(random());
    case 2:
      return static_cast<double>(random()) / 7 - 1e8;
    case 3:
      return random() % 2 == 0;
    case 4:
      return Color::FromRGB(random() & 0xFFFFFF);
    case 5:
      return Date{static_cast<int>(1 + random() % 9998),
                  1 + static_cast<int>(random() % 12),
                  28,
                  23,
                  59,
                  1};
    case 6: {
      std::string text(random() % 40, '\0');
      for (char& c : text) c = static_cast<char>(random());
      return text;
    }
    case 7:
      return Currency{static_cast<std::int64_t>(random()) << 20};
    case 8: {
      Collection list;
      for (std::uint32_t i = 0; i < random() % 5; ++i) list.Add(RandomValue(random, depth + 1));
      return list;
    }
    default: {
      Dictionary map;
      for (std::uint32_t i = 0; i < random() % 6; ++i) {
        map.Value(std::to_string(random() % 100), RandomValue(random, depth + 1));
      }
      return map;
    }
  }
}

TEST(Properties, AnyTreeComesBackFromTheBinaryDictionary) {
  std::mt19937 random(5);
  for (int round = 0; round < 400; ++round) {
    Dictionary tree;
    for (int i = 0; i < 8; ++i) tree.Value("k" + std::to_string(i), RandomValue(random, 0));
    const auto back = BinaryDictionary::BinaryDictionaryFromString(
        BinaryDictionary::BinaryStringFromDictionary(tree));
    ASSERT_TRUE(back);
    ASSERT_TRUE(*back == tree) << "round " << round;
  }
}

TEST(Properties, ManyThreadsMayDecodeAndAllocateAtOnce) {
  TemporaryFolder folder;
  const Picture picture = TestPicture(700, 500);
  const FolderItem png = folder.Write("a.png", PngExporter().SaveToString(picture));
  const FolderItem jpeg = folder.Write("a.jpg", JpegExporter().SaveToString(picture));
  const Picture decoded = JpegImporter::OpenFromFile(jpeg);
  std::atomic<int> wrong = 0;
  std::vector<std::thread> threads;
  for (int t = 0; t < 6; ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < 6; ++i) {
        std::string error;
        const bool even = (t + i) % 2 == 0;
        const Picture got = ImageIO::OpenAsPictureUsingImageIO(even ? png : jpeg, error);
        if (!got.SameAs(even ? picture : decoded)) ++wrong;
        const auto source = ImageSource::Open(even ? png : jpeg);
        if (!source || !(*source.value)->Thumbnail(100)) ++wrong;
        // Large blocks pass from thread to thread.
        Picture large = PlainPicture(1500, 1000 + t, {static_cast<std::uint8_t>(t), 2, 3});
        if (large.At(1499, 999).Red != t) ++wrong;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
  PixelMemory::ReleaseKept();
}

TEST(CommandSupport, JobsRunEachIndexOnceAndCountFailures) {
  for (const int jobs : {0, 1, 3, 50}) {
    std::vector<std::atomic<int>> runs(40);
    const int failed = cli::RunJobs(40, jobs, [&](int index) {
      ++runs[static_cast<std::size_t>(index)];
      return index % 10 != 0;
    });
    EXPECT_EQ(failed, 4);
    for (const auto& count : runs) EXPECT_EQ(count, 1);
  }
  EXPECT_EQ(cli::RunJobs(0, 0, [](int) { return false; }), 0);
  std::string error;
  EXPECT_FALSE(
      cli::Guarded(FolderItem("/p/a.jpg"), error, []() -> bool { throw std::bad_alloc(); }));
  EXPECT_EQ(error, "There is not enough memory to open the image \"a.jpg\".");
}

TEST(CommandSupport, JsonKeepsNumbersShort) {
  EXPECT_EQ(cli::ToJson(0.15F).toDouble(), 0.15);
  EXPECT_EQ(cli::ToJson(Color{255, 128, 0}).toString(), QStringLiteral("#FF8000"));
  EXPECT_TRUE(cli::ToJson(Variant()).isNull());
  Dictionary inner;
  inner.Value("caf\xE9", Pair{1, 2.5});
  const QJsonObject object = cli::ToJson(inner).toObject();
  EXPECT_EQ(object.keys().first(), QString::fromUtf8("caf\xC3\xA9"));
}

}  // namespace
}  // namespace brivolant::test
