// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <cstring>

#include "CommandLine.h"
#include "Helpers.h"
#include "effects/EffectRegistry.h"
#include "effects/FindEffect.h"
#include "effects/finishes/EffectModuleOverlay.h"
#include "engine/ModuleParameter.h"
#include "engine/brivolantProcessorLite.h"
#include "formats/BrivolantDocument.h"
#include "formats/ImageFile.h"
#include "formats/PictureStrings.h"

namespace brivolant::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(CommandLine, SaysTheReasonsOfTheSystemInItsOwnLanguage) {
  if (std::getenv("BRIVOLANT_RUN_LOCALE") == nullptr) GTEST_SKIP() << "no other locale is here";
  const std::string before = std::setlocale(LC_MESSAGES, nullptr);
  ASSERT_NE(std::setlocale(LC_MESSAGES, "de_DE.UTF-8"), nullptr);
  const std::string german = std::strerror(ENOENT);
  std::setlocale(LC_MESSAGES, before.c_str());
  if (german == std::strerror(ENOENT)) GTEST_SKIP() << "the C library has only English here";
  const QByteArray language = qgetenv("LANG");
  qputenv("LANG", "de_DE.UTF-8");
  const Outcome run = Cli({"render", image.ShellPath(), "-o", Path("none/out.png")});
  qputenv("LANG", language);
  EXPECT_NE(run.code, 0);
  EXPECT_EQ(run.err,
            "brivolant-cli: The file \"out.png\" cannot be saved: No such file or directory.\n");
}

TEST_F(CommandLine, RendersWhatTheProcessorRenders) {
  const Outcome run = Cli({"render",       image.ShellPath(),
                           "-o",           Path("out.png"),
                           "--set",        "Brightness & Contrast.Brightness=1.4",
                           "--enable",     "Auto Levels",
                           "--stack",      "back",
                           "--set",        "Levels.OutBlack=40",
                           "--stack",      "fore",
                           "--set",        "exposure.power=-3.5",
                           "--blend",      "3",
                           "--opacity",    "0.75",
                           "--save-style", Path("style"),
                           "--timing"});
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_THAT(run.err, IsEmpty());
  const QJsonObject timing = Json(run.out);
  EXPECT_GT(timing.value(QStringLiteral("peak_memory_bytes")).toDouble(), 1e6);
  EXPECT_TRUE(timing.contains(QStringLiteral("decode_ms")));

  TestServices s;
  brivolantProcessorLite processor(EffectRegistry(), s.services);
  processor.Startup();
  ASSERT_EQ(processor.StyleData(*ReadFile(folder.Child("style"))), StyleFault::kNone);
  EXPECT_EQ(processor.BlendMode(), 3);
  EXPECT_EQ(processor.BlendAlpha, 0.75F);
  EXPECT_TRUE(ModuleNamed(processor, "Exposure").Enabled());
  EXPECT_EQ(ModuleNamed(processor, "Exposure").Settings().Value("Power").ToDouble(), -3.5);
  EXPECT_TRUE(processor.Process(picture, {}).SameAs(Open("out.png")));

  // The style alone gives the same, on one thread or many.
  ASSERT_EQ(
      Cli({"render", image.ShellPath(), "-o", Path("again.png"), "--style", Path("style")}).code,
      0);
  EXPECT_TRUE(Open("again.png").SameAs(Open("out.png")));
}

TEST_F(CommandLine, StylesAreListedMadeAppliedAndExtracted) {
  const Outcome list = Cli({"styles", "list"});
  EXPECT_EQ(list.code, 0);
  EXPECT_THAT(list.out, HasSubstr("Vintage Camera\n"));
  EXPECT_THAT(list.out, HasSubstr("  Golden Evening: "));
  EXPECT_THAT(Cli({"styles", "info", "golden evening"}).out, HasSubstr("White Balance."));

  const FolderItem source = folder.Write(
      "mine.style", "name = Mine\ncategory = My Styles\n[top layer]\nLevels.Shadows = 40\n");
  ASSERT_EQ(Cli({"styles", "make", source.ShellPath(), "-o", Path("mine.oneClick"), "--preview",
                 image.ShellPath()})
                .code,
            0);
  const QJsonObject info = Json(Cli({"styles", "info", Path("mine.oneClick"), "--json"}).out);
  EXPECT_EQ(info.value(QStringLiteral("category")).toString(), QStringLiteral("My Styles"));
  EXPECT_TRUE(info.value(QStringLiteral("preview")).toBool());
  EXPECT_THAT(Cli({"styles", "list", folder.Item().ShellPath()}).out, HasSubstr("  Mine"));
  ASSERT_EQ(Cli({"styles", "extract", Path("mine.oneClick"), "-o", Path("again.style")}).code, 0);
  EXPECT_THAT(*ReadFile(folder.Child("again.style")), HasSubstr("Levels.Shadows = 40"));

  // By file or by name, one photo or a folder of them; the same as its settings.
  ASSERT_EQ(
      Cli({"render", image.ShellPath(), "-o", Path("set.png"), "--set", "Levels.Shadows=40"}).code,
      0);
  ASSERT_EQ(
      Cli({"render", image.ShellPath(), "-o", Path("file.png"), "--style", Path("mine.oneClick")})
          .code,
      0);
  ASSERT_EQ(Cli({"styles", "apply", Path("mine.oneClick"), image.ShellPath(), second.ShellPath(),
                 "--out-dir", Path("all"), "--jobs", "2"})
                .code,
            0);
  EXPECT_TRUE(Open("file.png").SameAs(Open("set.png")));
  EXPECT_TRUE(Open("all/photo.png").SameAs(Open("set.png")));
  ASSERT_EQ(
      Cli({"render", image.ShellPath(), "-o", Path("name.png"), "--style", "Classic Black & White"})
          .code,
      0);
  EXPECT_EQ(Open("name.png").At(5, 5).Red, Open("name.png").At(5, 5).Blue);

  const Outcome none =
      Cli({"render", image.ShellPath(), "-o", Path("x.png"), "--style", "Nothing"});
  EXPECT_EQ(none.code, 1);
  EXPECT_THAT(none.err, HasSubstr("no style and no file called \"Nothing\""));
  folder.Write("bad.oneClick", "QMBPonCW");
  EXPECT_THAT(Cli({"styles", "info", Path("bad.oneClick")}).err, HasSubstr("\"bad.oneClick\""));
  folder.Write("bad.style", "name = x\n[top layer]\nLevels.Shadows = dark\n");
  EXPECT_THAT(Cli({"styles", "make", Path("bad.style"), "-o", Path("x.oneClick")}).err,
              HasSubstr("Line 3"));
  EXPECT_EQ(Cli({"styles", "make", source.ShellPath(), "-o", Path("x.jpg")}).code, 2);
}

TEST_F(CommandLine, APictureLaidOverThePhotoIsRenderedOrMissed) {
  TestServices s;
  BrivolantDocument document(s.services);
  ASSERT_TRUE(document.CreateFromFile(image));
  brivolantProcessorLite processor(EffectRegistry(), s.services);
  processor.Startup();
  processor.Document = &document;
  auto& overlay = dynamic_cast<EffectModuleOverlay&>(
      *processor.ItemVIaID("7FFFFFFF-B371-0D5F-E410-E0CB34849A08"));
  ASSERT_TRUE(overlay.SetAsMyPicture(second));
  overlay.ControlValue(5, 30);
  overlay.Enabled(true);
  document.StyleData = processor.StyleData();
  document.File = folder.Child("trip.brvPhoto");
  ASSERT_TRUE(document.Save());
  const Picture shown = processor.Process(document.Image(), document.PastedImages());
  ASSERT_FALSE(shown.SameAs(document.Image()));
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"render"}, {"document", "render"}}) {
    std::vector<std::string> arguments = words;
    arguments.insert(arguments.end(), {Path("trip.brvPhoto"), "-o", Path("laid.png")});
    const Outcome run = Cli(arguments);
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.err, IsEmpty());
    EXPECT_TRUE(Open("laid.png").SameAs(shown));
  }
  // In another photo the picture is missing, and that is said.
  folder.Write("overlay.style", processor.StyleData());
  const Outcome run =
      Cli({"render", image.ShellPath(), "-o", Path("bare.png"), "--style", Path("overlay.style")});
  EXPECT_EQ(run.code, 0);
  EXPECT_THAT(run.err, testing::AllOf(HasSubstr("photo.png"), HasSubstr("Overlay")));
  EXPECT_TRUE(Open("bare.png").SameAs(picture));
  const Outcome made = Cli(
      {"document", "create", image.ShellPath(), Path("bare"), "--style", Path("overlay.style")});
  EXPECT_EQ(made.code, 0);
  EXPECT_THAT(made.err, testing::AllOf(HasSubstr("photo.png"), HasSubstr("Overlay")));
}

TEST_F(CommandLine, ChanceRepeatsByItsSeed) {
  const auto render = [&](const char* name, const std::string& seed, const char* own = "7") {
    ASSERT_EQ(Cli({"render", image.ShellPath(), "-o", Path(name), "--set", "Confetti.StarCount=40",
                   "--set", std::string("Confetti.Seed=") + own, "--set", "Confetti.maxSize=3",
                   "--stack", "back", "--enable", "Diffuse", "--opacity", "0.5", "--seed", seed})
                  .code,
              0);
  };
  render("one.png", "12");
  render("same.png", "12");
  render("other.png", "13");
  EXPECT_TRUE(Open("one.png").SameAs(Open("same.png")));
  EXPECT_FALSE(Open("one.png").SameAs(Open("other.png")));
  render("own.png", "12", "8");
  EXPECT_TRUE(Open("one.png").SameAs(Open("own.png"))) << "what the command line says counts";
}

TEST_F(CommandLine, EveryKeyOfEveryEffectCanBeSetInBothStacks) {
  TestServices s;
  brivolantProcessorLite processor(EffectRegistry(), s.services);
  processor.Startup();
  std::vector<std::string> arguments{"render",       image.ShellPath(), "-o",    Path("all.png"),
                                     "--save-style", Path("all"),       "--fit", "40x40"};
  std::size_t keys = 0;
  for (const int stack : {kForeground, kBackground}) {
    processor.CurrentStack = stack;
    std::vector<std::string> sets;
    for (int i = 0; i <= processor.Count(); ++i) {
      const effectModule& module = *processor.item(i);
      if (!module.Complete()) continue;
      for (const ParameterBase* parameter : module.Parameters()) {
        const std::string type = parameter->TypeName();
        std::string value = parameter->ResetValue().ToText();
        if (type == "colour") value = "#1080f0";
        if (type == "boolean") value = "true";
        if (type == "texts") value = "all of them";
        // The order is any: the last module first.
        sets.insert(sets.begin(), module.Name() + "." + parameter->Key() + "=" + value);
      }
    }
    keys += sets.size();
    arguments.insert(arguments.end(), {"--stack", stack == kForeground ? "fore" : "back"});
    for (const std::string& set : sets) arguments.insert(arguments.end(), {"--set", set});
  }
  EXPECT_GT(keys, 180U);
  const Outcome run = Cli(arguments);
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_THAT(run.err, IsEmpty());
  EXPECT_EQ(Open("all.png").Width(), 40);
  ASSERT_EQ(processor.StyleData(*ReadFile(folder.Child("all"))), StyleFault::kNone);
  for (const auto& stack : processor.stacks) {
    for (const auto& module : stack) {
      if (module->Parameters().empty() || !module->Complete()) continue;
      EXPECT_TRUE(module->Enabled()) << module->Name();
      for (const ParameterBase* parameter : module->Parameters()) {
        if (parameter->TypeName() != "colour") continue;
        EXPECT_EQ(parameter->Stored().ToColor(), Color::FromRGB(0x1080f0)) << parameter->Key();
      }
    }
  }
}

TEST_F(CommandLine, TextsComeAsTextOrBoxes) {
  const std::string boxes =
      "Text.myTextEngine=[{\"Text\":\"One\",\"Left\":0.1,\"Caption\":2},"
      "{\"Text\":\"Two\",\"TextColor\":\"#FF0000\"}]";
  ASSERT_EQ(Cli({"render", image.ShellPath(), "-o", Path("plain.png"), "--set",
                 "Text.myTextEngine=Hello there", "--save-style", Path("plain")})
                .code,
            0);
  ASSERT_EQ(Cli({"render", image.ShellPath(), "-o", Path("boxes.png"), "--set", boxes,
                 "--save-style", Path("boxes")})
                .code,
            0);
  TestServices s;
  brivolantProcessorLite processor(EffectRegistry(), s.services);
  processor.Startup();
  const auto stored = [&](const char* style) {
    EXPECT_EQ(processor.StyleData(*ReadFile(folder.Child(style))), StyleFault::kNone);
    return *processor.ItemVIaID("150B71E5-A262-009C-42A9-CD07B87C0B76")
                ->Settings()
                .Value("myTextEngine")
                .As<Dictionary>();
  };
  EXPECT_EQ(stored("plain").Value(0).As<Dictionary>()->Value("Text").ToText(), "Hello there");
  const Dictionary two = stored("boxes");
  ASSERT_EQ(two.Count(), 2);
  EXPECT_EQ(two.Value(0).As<Dictionary>()->Value("Caption").ToInt(), 2);
  EXPECT_EQ(two.Value(1).As<Dictionary>()->Value("TextColor").ToColor(), (Color{255, 0, 0}));
  EXPECT_FALSE(Open("plain.png").SameAs(Open("boxes.png")));
}

TEST_F(CommandLine, GeometryAndSize) {
  ASSERT_EQ(Cli({"render", image.ShellPath(), "-o", Path("out.tif"), "--crop", "0.5,0,0.5,1",
                 "--rotate", "1", "--flip", "2", "--fit", "30x400"})
                .code,
            0);
  EXPECT_EQ(Open("out.tif").Width(), 30);
  EXPECT_EQ(Open("out.tif").Height(), 22);
}

TEST_F(CommandLine, OneFailureDoesNotStopTheOthers) {
  folder.Write("bad.jpg", "nothing");
  const Outcome run =
      Cli({"render", image.ShellPath(), Path("bad.jpg"), Path("none.png"), second.ShellPath(),
           image.ShellPath(), "--out-dir", Path("made/here"), "--jobs", "2", "--progress"});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("brivolant-cli: The file \"bad.jpg\" is not an image"));
  EXPECT_THAT(run.err, HasSubstr("\"none.png\" does not exist."));
  EXPECT_THAT(run.out, IsEmpty());
  EXPECT_EQ(Open("made/here/photo.png").Width(), 90);
  EXPECT_EQ(Open("made/here/second.png").Width(), 30);
  EXPECT_EQ(Open("made/here/photo-1.png").Width(), 90) << "two inputs of one name stay apart";
  EXPECT_EQ(folder.Child("made").Child("here").Children().size(), 3U);
}

TEST_F(CommandLine, APipeIsNoPhotoAndHoldsNothingUp) {
  ASSERT_EQ(mkfifo(Path("pipe.jpg").c_str(), 0600), 0);
  const Outcome run = Cli({"render", Path("pipe.jpg"), "-o", Path("x.jpg")});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("\"pipe.jpg\" is not an image"));
  EXPECT_FALSE(folder.Child("x.jpg").Exists());
  ASSERT_EQ(mkfifo(Path("pipe.brvPhoto").c_str(), 0600), 0);
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"document", "info", Path("pipe.brvPhoto")},
        {"render", image.ShellPath(), "-o", Path("x.jpg"), "--style", Path("pipe.brvPhoto")}}) {
    const Outcome document = Cli(arguments);
    EXPECT_EQ(document.code, 1);
    EXPECT_THAT(document.err, HasSubstr("\"pipe.brvPhoto\""));
  }
  EXPECT_FALSE(folder.Child("x.jpg").Exists());
}

TEST_F(CommandLine, WrongUseIsOneSentenceAndCodeTwo) {
  const std::string in = image.ShellPath();
  const std::string out = Path("out.jpg");
  for (const auto& [arguments, reason] :
       std::vector<std::pair<std::vector<std::string>, std::string>>{
           {{}, "subcommand"},
           {{"render"}, "INPUT"},
           {{"render", in}, "Give -o FILE or --out-dir DIR."},
           {{"render", in, in, "-o", out}, "one input only"},
           {{"render", in, "-o", Path("out.xyz")}, "\"out.xyz\""},
           {{"render", in, "-o", out, "--set", "Exposure"}, "\"Exposure\""},
           {{"render", in, "-o", out, "--set", "Nothing.Power=1"}, "no effect called \"Nothing\""},
           {{"render", in, "-o", out, "--set", "Exposure.Nothing=1"}, "it has: Power"},
           {{"render", in, "-o", out, "--set", "Exposure.Power=bright"}, "\"bright\""},
           {{"render", in, "-o", out, "--set", "Exposure.Power=1x"}, "\"1x\""},
           {{"render", in, "-o", out, "--set", "Levels.Shadows=1.5"}, "integer"},
           {{"render", in, "-o", out, "--enable", "Fixing Tools"}, "no effect called"},
           {{"render", in, "-o", out, "--enable", "Borders"}, "not available in this version yet"},
           {{"render", in, "-o", out, "--stack", "side"}, "fore or back"},
           {{"render", in, "-o", out, "--blend", "16"}, "--blend"},
           {{"render", in, "-o", out, "--opacity", "2"}, "--opacity"},
           {{"render", in, "-o", out, "--opacity", "0,5"}, "\"0,5\" is not an opacity"},
           {{"render", in, "-o", out, "--opacity", "nan"}, "from 0.0 to 1.0"},
           {{"render", in, "-o", out, "--crop", "0,0,1"}, "x,y,w,h"},
           {{"render", in, "-o", out, "--crop", "0,0,0,1"}, "x,y,w,h"},
           {{"render", in, "-o", out, "--rotate", "4"}, "--rotate"},
           {{"render", in, "-o", out, "--fit", "100"}, "WxH"},
           {{"render", in, "-o", out, "--quality", "0"}, "--quality"},
           {{"render", in, "-o", out, "--unknown"}, "--unknown"},
           {{"document"}, "subcommand"},
           {{"thumbnail", in}, "--out-dir"}}) {
    const Outcome run = Cli(arguments);
    EXPECT_EQ(run.code, 2) << testing::PrintToString(arguments) << run.err;
    EXPECT_THAT(run.err, HasSubstr(reason));
    EXPECT_THAT(run.err, testing::StartsWith("brivolant-cli: "));
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
  }
  EXPECT_FALSE(folder.Child("out.jpg").Exists());
  for (const std::vector<std::string>& help :
       std::vector<std::vector<std::string>>{{"--help"},
                                             {"render", "--help"},
                                             {"document", "--help"},
                                             {"document", "info", "--help"},
                                             {"modules", "--help"},
                                             {"style", "--help"},
                                             {"formats", "--help"},
                                             {"thumbnail", "--help"}}) {
    EXPECT_EQ(Cli(help).code, 0);
    EXPECT_THAT(Cli(help).out, HasSubstr("--help"));
  }
}

TEST_F(CommandLine, OriginalsAndOldOutputsSurvive) {
  const std::string before = *ReadFile(image);
  Outcome run = Cli({"render", image.ShellPath(), "-o", image.ShellPath()});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("is the original itself"));
  EXPECT_EQ(*ReadFile(image), before);
  run = Cli({"render", image.ShellPath(), "-o", "/proc/out.jpg"});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("\"out.jpg\" cannot be saved"));
  run = Cli({"render", image.ShellPath(), "--out-dir", "/proc/none"});
  EXPECT_EQ(run.code, 1);

  folder.Write("style", std::string(48, '\x2F'));
  run = Cli({"render", image.ShellPath(), "-o", Path("out.jpg"), "--style", Path("style")});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("\"style\" is not style data"));
  EXPECT_FALSE(folder.Child("out.jpg").Exists());
}

TEST_F(CommandLine, DocumentsReopenWithTheSameStyleAndPixels) {
  ASSERT_EQ(Cli({"render", image.ShellPath(), "-o", Path("direct.png"), "--set", "Exposure.Power=6",
                 "--rotate", "3"})
                .code,
            0);
  Outcome run = Cli({"document", "create", image.ShellPath(), Path("doc"), "--set",
                     "Exposure.Power=6", "--rotate", "3"});
  ASSERT_EQ(run.code, 0) << run.err;
  ASSERT_EQ(Cli({"document", "render", Path("doc.brvPhoto"), "-o", Path("one.png")}).code, 0);
  ASSERT_EQ(Cli({"render", Path("doc.brvPhoto"), "-o", Path("two.png")}).code, 0);
  EXPECT_TRUE(Open("one.png").SameAs(Open("direct.png")));
  EXPECT_TRUE(Open("two.png").SameAs(Open("direct.png")));

  const QJsonObject info = Json(Cli({"document", "info", Path("doc.brvPhoto"), "--json"}).out);
  EXPECT_EQ(info.value(QStringLiteral("rotation")).toInt(), 3);
  EXPECT_EQ(info.value(QStringLiteral("name")).toString(), QStringLiteral("photo"));
  EXPECT_EQ(info.value(QStringLiteral("version")).toInt(), 4);
  EXPECT_THAT(Cli({"document", "info", Path("doc.brvPhoto")}).out, HasSubstr("rotation: 3"));

  const QJsonObject style = Json(Cli({"style", Path("doc.brvPhoto"), "--json"}).out);
  const QJsonObject exposure = style.value(QStringLiteral("foreground")).toArray().at(8).toObject();
  EXPECT_EQ(exposure.value(QStringLiteral("name")).toString(), QStringLiteral("Exposure"));
  EXPECT_TRUE(exposure.value(QStringLiteral("enabled")).toBool());
  EXPECT_EQ(exposure.value(QStringLiteral("settings"))
                .toObject()
                .value(QStringLiteral("Power"))
                .toDouble(),
            6);

  // A style that asks for an effect without one: the user is told.
  TestServices s;
  brivolantProcessorLite processor(EffectRegistry(), s.services);
  processor.Startup();
  processor.ItemVIaID("722F92BB-914A-BE34-7B81-40D006AE5CE4")->Enabled(true);
  folder.Write("borders", processor.StyleData());
  run = Cli({"render", image.ShellPath(), "-o", Path("s.png"), "--style", Path("borders")});
  EXPECT_EQ(run.code, 0);
  EXPECT_THAT(run.err, HasSubstr("\"Borders\" was left out of \"photo.png\""));
  folder.Write("lies", processor.StyleData().replace(54, 4, Bytes("FF FF FF 7F")));
  run = Cli({"render", image.ShellPath(), "-o", Path("s2.png"), "--style", Path("lies")});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("The style data in \"lies\" is damaged."));

  run = Cli({"document", "create", image.ShellPath(), Path("doc")});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("\"doc.brvPhoto\" exists already"));
  ASSERT_FALSE(folder.Child("empty.brvPhoto").CreateAsFolder());
  for (const char* verb : {"info", "render"}) {
    std::vector<std::string> arguments{"document", verb, Path("empty.brvPhoto")};
    if (std::string(verb) == "render") arguments.insert(arguments.end(), {"-o", Path("x.png")});
    run = Cli(arguments);
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, HasSubstr("\"empty.brvPhoto\""));
    EXPECT_THAT(run.err, HasSubstr("Missing the settings segment"));
  }
  EXPECT_EQ(Cli({"document", "info", Path("missing.brvPhoto")}).code, 1);
  run = Cli({"style", Path("missing.brvPhoto")});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("the file no longer exists"));
}

TEST_F(CommandLine, ListsModulesAndFormats) {
  const QJsonObject modules = Json(Cli({"modules", "--json"}).out);
  const QJsonArray fore = modules.value(QStringLiteral("foreground")).toArray();
  ASSERT_EQ(fore.size(), static_cast<int>(EffectRegistry().size()));
  const auto module = [](const QJsonArray& stack, const char* className) {
    for (const QJsonValue& entry : stack) {
      const QJsonObject found = entry.toObject();
      if (found.value(QStringLiteral("class")).toString() == QLatin1String(className)) return found;
    }
    return QJsonObject();
  };
  const QJsonObject levels = module(fore, "EffectModuleLevels");
  EXPECT_EQ(levels.value(QStringLiteral("class")).toString(), QStringLiteral("EffectModuleLevels"));
  EXPECT_EQ(levels.value(QStringLiteral("identifier")).toString(),
            QStringLiteral("7FFFFFFF-B3AC-4C8A-146F-1F804A5B9B06"));
  EXPECT_EQ(levels.value(QStringLiteral("controls")).toArray().size(), 6);
  EXPECT_EQ(levels.value(QStringLiteral("controls"))
                .toArray()
                .at(3)
                .toObject()
                .value(QStringLiteral("caption"))
                .toString(),
            QStringLiteral("Out"));
  const QJsonObject power = module(fore, "EffectModuleExposure")
                                .value(QStringLiteral("settings"))
                                .toArray()
                                .at(0)
                                .toObject();
  EXPECT_EQ(power.value(QStringLiteral("type")).toString(), QStringLiteral("double"));
  EXPECT_EQ(power.value(QStringLiteral("defaultOnRead")).toDouble(), 1);
  EXPECT_EQ(power.value(QStringLiteral("reset")).toDouble(), 0);
  const QJsonObject white = module(fore, "EffectModuleWhiteBalance")
                                .value(QStringLiteral("controls"))
                                .toArray()
                                .at(0)
                                .toObject();
  EXPECT_EQ(white.value(QStringLiteral("tick")).toDouble(), 0.15);
  const QJsonArray back = modules.value(QStringLiteral("background")).toArray();
  EXPECT_FALSE(module(back, "EffectModuleBackgroundScale").isEmpty());
  EXPECT_TRUE(module(back, "EffectModuleForegroundScale").isEmpty());
  EXPECT_THAT(Cli({"modules"}).out, HasSubstr("  Exposure  Power=0"));
  EXPECT_EQ(Json(Cli({"formats", "--json"}).out).value(QStringLiteral("writable")).toArray().size(),
            11);
  EXPECT_THAT(Cli({"formats"}).out, HasSubstr("HEIF image: heic heif avif"));
}

TEST_F(CommandLine, WritesThumbnails) {
  folder.Write("bad.jpg", "x");
  ASSERT_EQ(
      Cli({"document", "create", image.ShellPath(), Path("doc"), "--set", "Levels.OutWhite=0"})
          .code,
      0);
  const Outcome run = Cli({"thumbnail", image.ShellPath(), second.ShellPath(), Path("bad.jpg"),
                           Path("doc.brvPhoto"), "--out-dir", Path("small"), "--size", "40"});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(Open("small/photo.jpg").Width(), 40);
  EXPECT_EQ(Open("small/second.jpg").Height(), 40);
  EXPECT_LT(Open("small/doc.jpg").At(5, 5).Red, 20) << "a document is shown as it was edited";
  EXPECT_FALSE(folder.Child("small").Child("bad.jpg").Exists());
}

}  // namespace
}  // namespace brivolant::test
