// SPDX-License-Identifier: MIT
// Text on the picture: boxes, positions, mouse and keys, without a window.
#include <gtest/gtest.h>

#include "Helpers.h"
#include "effects/EffectRegistry.h"
#include "effects/text/EffectModuleText.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/BrivolantDocument.h"

namespace brivolant::test {
namespace {

constexpr Color kOrange{255, 140, 0};
constexpr const char* kAccent = "e\xCC\x81";  // e and a combining acute
constexpr const char* kFamily =
    "\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7";  // one family

struct Texts : testing::Test {
  Texts() {
    engine.Ticks = [this] { return now; };
    engine.ReadClipboard = [this] { return clipboard; };
    engine.WriteClipboard = [this](const std::string& text) { clipboard = text; };
    engine.AboutToChange = [this] { ++steps; };
    picture = PlainPicture(1000, 500, kWhite);
  }
  ScaleableTextObject& Box(const std::string& text) {
    ScaleableTextObject& box = engine.Add();
    box.Text(text);
    engine.Paint(picture, false);
    return box;
  }
  bool Key(const std::string& key) {
    bool changed = false;
    return engine.KeyDown(key, changed);
  }
  void Keys(std::initializer_list<const char*> keys) {
    for (const char* key : keys) EXPECT_TRUE(Key(key)) << key;
  }
  /// The middle of the character at a position, as fractions.
  Pair Middle(const ScaleableTextObject& box, int position) {
    const Point left = box.XYFromPoistion(engine.SourceSize, position);
    const Point right = box.XYFromPoistion(engine.SourceSize, position + 1);
    return {(left.x + right.x) / 2 / engine.SourceSize.Left,
            (left.y - 2) / engine.SourceSize.Right};
  }
  void ClickAt(const Pair& at) {
    engine.MouseDown(static_cast<float>(at.Left), static_cast<float>(at.Right));
    engine.MouseUp(static_cast<float>(at.Left), static_cast<float>(at.Right));
  }

  ScaleableTextEngine engine;
  Picture picture;
  std::int32_t now = 5000;
  std::string clipboard;
  int steps = 0;
};

TEST_F(Texts, PositionsAreWholeCharacters) {
  ScaleableTextObject& box = Box(std::string("a") + kAccent + kFamily + "\r\nx y\nz");
  EXPECT_EQ(box.TextLength(), 9);
  EXPECT_EQ(box.lineCount(), 3);
  EXPECT_EQ(box.Part(1, 1), kAccent);
  EXPECT_EQ(box.Part(2, 1), kFamily);
  EXPECT_EQ(box.LineCharFromPosition(4), (Pair{1, 0}));
  EXPECT_EQ(box.LineCharFromPosition(99), (Pair{2, 1}));
  EXPECT_EQ(box.LineCharFromPosition(-4), (Pair{0, 0}));
  EXPECT_EQ(box.LineDimensions(1), (Pair{4, 3}));
  EXPECT_EQ(box.WordDimensions(5), (Pair{4, 1}));
  EXPECT_EQ(box.WordDimensions(6), (Pair{6, 1}));
  // Backspace takes a whole character; an accent that is typed joins the one before it.
  box.Select(3, 0);
  Keys({"Backspace"});
  EXPECT_EQ(box.Part(0, 3), std::string("a") + kAccent + "\n");
  EXPECT_EQ(box.SelStart(), 2);
  box.Text("e");
  box.Select(1, 0);
  Keys({"\xCC\x81"});
  EXPECT_EQ(box.TextLength(), 1);
  EXPECT_EQ(box.SelStart(), 1);
  // Bytes that are no text cannot be stored.
  box.Text("a\xFFz");
  EXPECT_EQ(box.TextLength(), 3);
}

TEST_F(Texts, FitBothWaysAndStandInTheMiddle) {
  ScaleableTextObject& box = Box("words");
  const float wide = box.Size();
  box.Width = 0.05F;
  engine.Paint(picture, false);
  const float narrow = box.Size();
  EXPECT_LT(narrow, wide);
  box.Height = 0.9F;
  engine.Paint(picture, false);
  EXPECT_FLOAT_EQ(box.Size(), narrow) << "the width limits a tall thin box";
  box.Width = 0.9F;
  box.Height = 0.02F;
  engine.Paint(picture, false);
  EXPECT_LT(box.Size(), 10);
  // A text of two lines takes half the size, and more of them only make it smaller.
  box.Height = 0.2F;
  engine.Paint(picture, false);
  const float one = box.Size();
  box.Text("words\nwords");
  engine.Paint(picture, false);
  EXPECT_NEAR(box.Size(), one / 2, one / 50);
  // A box of no size, or turned inside out, harms nothing.
  box.Width = -0.3F;
  box.Height = 0;
  engine.Paint(picture, true);
  EXPECT_GE(box.Size(), 1);
  // The middle of the text is the middle of the box.
  box.Width = 0.4F;
  box.Height = 0.2F;
  box.Text("mm");
  engine.Paint(picture, false);
  const Point middle = box.XYFromPoistion(engine.SourceSize, 1);
  EXPECT_NEAR(middle.x, 500, 2);
}

TEST_F(Texts, LookAlikeAtEverySize) {
  ScaleableTextObject& box = Box("Alike");
  box.Caption = 1;
  box.TextColor = {200, 0, 0};
  engine.CurrentTextItem = nullptr;
  Picture small = PlainPicture(400, 300, {90, 140, 200});
  Picture large = PlainPicture(1600, 1200, {90, 140, 200});
  engine.Paint(small, false);
  engine.Paint(large, false);
  const Picture shrunk =
      SharedPictureEffects::Scale(large, 400, 300, SharedPictureEffects::kScaleExactly);
  double sum = 0;
  for (int y = 0; y < 300; ++y) {
    for (int x = 0; x < 400; ++x) sum += std::abs(small.At(x, y).Green - shrunk.At(x, y).Green);
  }
  EXPECT_LT(sum / (400 * 300), 1.0);
  // Every caption draws something of its own, outside the box too where it has a tail.
  std::vector<Picture> captions;
  for (int caption = 0; caption < 8; ++caption) {
    box.Caption = caption;
    Picture drawn = PlainPicture(400, 300, {90, 140, 200});
    engine.Paint(drawn, false);
    for (const Picture& other : captions) EXPECT_GT(LargestDifference(drawn, other), 100);
    captions.push_back(std::move(drawn));
  }
}

TEST_F(Texts, HitsAreTextFrameAndCorners) {
  ScaleableTextObject& box = Box("hit");
  const Pair size = engine.SourceSize;
  const auto hit = [&](double px, double py) {
    return box.isWithin(size, static_cast<float>(px / 1000), static_cast<float>(py / 500), 1);
  };
  // The box lies from (300, 200) to (700, 300).
  EXPECT_EQ(hit(500, 250), kHitText);
  EXPECT_EQ(hit(290, 190), kHitTopLeft);
  EXPECT_EQ(hit(710, 190), kHitTopRight);
  EXPECT_EQ(hit(710, 310), kHitBottomRight);
  EXPECT_EQ(hit(290, 310), kHitBottomLeft);
  EXPECT_EQ(hit(500, 192), kHitFrame);
  EXPECT_EQ(hit(292, 250), kHitFrame);
  EXPECT_EQ(hit(500, 180), kHitNothing);
  EXPECT_EQ(hit(720, 250), kHitNothing);
  // On a dense screen the frame is as many units wide.
  EXPECT_EQ(box.isWithin(size, 0.28F, 0.5F, 2), kHitFrame);

  struct Gesture {
    Pair from;
    std::array<float, 4> change;
  };
  for (const Gesture& g : {Gesture{{0.29, 0.38}, {0.1F, 0.1F, -0.1F, -0.1F}},
                           {{0.71, 0.38}, {0, 0.1F, 0.1F, -0.1F}},
                           {{0.71, 0.62}, {0, 0, 0.1F, 0.1F}},
                           {{0.29, 0.62}, {0.1F, 0, -0.1F, 0.1F}},
                           {{0.5, 0.385}, {0.1F, 0.1F, 0, 0}}}) {
    box.Left = 0.3F;
    box.Top = 0.4F;
    box.Width = 0.4F;
    box.Height = 0.2F;
    engine.MouseDown(static_cast<float>(g.from.Left), static_cast<float>(g.from.Right));
    engine.MouseDrag(static_cast<float>(g.from.Left + 0.1), static_cast<float>(g.from.Right + 0.1));
    EXPECT_NEAR(box.Left, 0.3F + g.change[0], 1e-5);
    EXPECT_NEAR(box.Top, 0.4F + g.change[1], 1e-5);
    EXPECT_NEAR(box.Width, 0.4F + g.change[2], 1e-5);
    EXPECT_NEAR(box.Height, 0.2F + g.change[3], 1e-5);
  }
}

TEST_F(Texts, ClicksPlaceTheCaretAndSelectWordAndLine) {
  ScaleableTextObject& box = Box("two words\nbelow");
  for (const int position : {0, 1, 5, 8, 11}) {
    const Pair at = Middle(box, position);
    now += 5000;
    ClickAt(at);
    EXPECT_EQ(box.SelStart(), position);
    EXPECT_EQ(box.Sellength(), 0);
  }
  const Pair word = Middle(box, 5);
  now += 5000;
  ClickAt(word);
  ClickAt(word);
  EXPECT_EQ(engine.SelText(), "words");
  ClickAt(word);
  EXPECT_EQ(engine.SelText(), "two words");
  ClickAt(word);
  EXPECT_EQ(engine.SelText(), "two words") << "a fourth click changes nothing";
  now += 1001;
  ClickAt(word);
  EXPECT_EQ(engine.SelLength(), 0);
  // A drag selects either way.
  for (const auto& [from, to] : {std::pair{1, 6}, {6, 1}}) {
    now += 5000;
    const Pair a = Middle(box, from);
    const Pair b = Middle(box, to);
    engine.MouseDown(static_cast<float>(a.Left), static_cast<float>(a.Right));
    engine.MouseDrag(static_cast<float>(b.Left), static_cast<float>(b.Right));
    EXPECT_EQ(engine.SelText(), "wo wo");
  }
  // Of two boxes at one place the later one is hit, the current one before all others.
  ScaleableTextObject& later = Box("later");
  engine.CurrentTextItem = nullptr;
  ClickAt({0.5, 0.5});
  EXPECT_EQ(engine.CurrentTextItem, &later);
  engine.CurrentTextItem = &box;
  ClickAt({0.5, 0.5});
  EXPECT_EQ(engine.CurrentTextItem, &box);
  ClickAt({0.05, 0.05});
  EXPECT_EQ(engine.CurrentTextItem, nullptr);
  EXPECT_EQ(engine.SelStart(), 0);
}

TEST_F(Texts, KeysMoveSelectAndType) {
  ScaleableTextObject& box = Box({});
  Keys({"a", "b", "Return", "c", "\xC3\xA4", "d"});
  EXPECT_EQ(box.Text(),
            "ab\nc\xC3\xA4"
            "d");
  EXPECT_EQ(box.SelStart(), 6);
  Keys({"Home", "Right"});
  EXPECT_EQ(box.SelStart(), 1);
  Keys({"Down"});
  EXPECT_EQ(box.SelStart(), 4);
  Keys({"Up"});
  EXPECT_EQ(box.SelStart(), 0);
  Keys({"Left"});
  EXPECT_EQ(box.SelStart(), 0);
  Keys({"End", "Right"});
  EXPECT_EQ(box.SelStart(), 6);
  // Selecting by Shift grows and shrinks at the end that moves.
  box.Select(1, 0);
  Keys({"Shift+Right", "Shift+Right", "Shift+Right"});
  EXPECT_EQ(engine.SelText(), "b\nc");
  Keys({"Shift+Left"});
  EXPECT_EQ(engine.SelText(), "b\n");
  box.Select(4, 0);
  Keys({"Shift+Left", "Shift+Left"});
  EXPECT_EQ(engine.SelText(), "\nc");
  box.Select(1, 0);
  Keys({"Shift+Down"});
  EXPECT_EQ(engine.SelText(), "b\nc");
  Keys({"Shift+Up"});
  EXPECT_EQ(box.SelStart(), 0);
  box.Select(2, 0);
  Keys({"Shift+End"});
  EXPECT_EQ(box.Sellength(), 4);
  box.Text("one two  three");
  box.Select(0, 0);
  Keys({"Ctrl+Right"});
  EXPECT_EQ(box.SelStart(), 3);
  Keys({"Ctrl+Shift+Right"});
  EXPECT_EQ(engine.SelText(), " two");
  box.Select(14, 0);
  Keys({"Ctrl+Left"});
  EXPECT_EQ(box.SelStart(), 9);
  // What is selected is replaced; Delete takes what follows.
  box.Select(0, 3);
  Keys({"X"});
  EXPECT_EQ(box.Text(), "X two  three");
  Keys({"Delete"});
  EXPECT_EQ(box.Text(), "Xtwo  three");
  box.Select(0, 4);
  Keys({"Backspace"});
  EXPECT_EQ(box.Text(), "  three");
  Keys({"Backspace", "Escape"});
  EXPECT_EQ(box.Text(), "  three");
  EXPECT_FALSE(Key("\x01"));
  EXPECT_FALSE(Key(""));
  // In a line that reads from the right, Left goes on in the text.
  box.Text("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D");
  box.Select(0, 0);
  Keys({"Left"});
  EXPECT_EQ(box.SelStart(), 1);
  Keys({"Right"});
  EXPECT_EQ(box.SelStart(), 0);
}

TEST_F(Texts, TheClipboardAndTheHistory) {
  ScaleableTextObject& box = Box("keep this");
  engine.SelectAll();
  EXPECT_TRUE(engine.CutCopyClearAvailable());
  engine.Copy();
  EXPECT_EQ(clipboard, "keep this");
  box.Select(4, 5);
  engine.Cut();
  EXPECT_EQ(clipboard, " this");
  EXPECT_EQ(box.Text(), "keep");
  engine.Paste();
  engine.Paste();
  EXPECT_EQ(box.Text(), "keep this this");
  EXPECT_EQ(steps, 3);
  // Typing is one step until it rests; erasing a selection is one of its own.
  steps = 0;
  Keys({"a", "b"});
  now += 30;
  Keys({"c"});
  EXPECT_EQ(steps, 1);
  now += 100;
  Keys({"d"});
  EXPECT_EQ(steps, 2);
  Keys({"Left", "e"});
  EXPECT_EQ(steps, 3);
  box.Select(0, 2);
  Keys({"Backspace"});
  EXPECT_EQ(steps, 4);
  // Backspace in an empty box takes the box away.
  engine.SelectAll();
  Keys({"Backspace"});
  bool changed = false;
  EXPECT_TRUE(engine.KeyDown("Backspace", changed));
  EXPECT_TRUE(changed);
  EXPECT_TRUE(engine.item.empty());
  EXPECT_FALSE(Key("a"));
  engine.Copy();
  engine.Paste();
  EXPECT_EQ(engine.SelText(), "");
}

TEST_F(Texts, TheCaretBlinksByTheClock) {
  Box("blink");
  Picture on = picture;
  engine.Paint(on, true);
  now += 60;
  Picture off = picture;
  engine.Paint(off, true);
  EXPECT_GT(LargestDifference(on, off), 100);
  now += 45;
  Picture again = picture;
  engine.Paint(again, true);
  EXPECT_EQ(LargestDifference(on, again), 0);
  // Selected text has no caret.
  engine.SelectAll();
  Picture selected = picture;
  engine.Paint(selected, true);
  EXPECT_GT(LargestDifference(selected, again), 40);
}

TEST_F(Texts, SettingsKeepEveryBoxAndReadOlderKeys) {
  Box("first").Caption = 3;
  ScaleableTextObject& second = Box("second\nline");
  second.TextColor = kOrange;
  second.Left = -0.2F;
  second.Font("DejaVu Serif");
  const Dictionary stored = engine.Settings();
  ScaleableTextEngine other;
  other.Settings(stored);
  EXPECT_EQ(other.CurrentTextItem, nullptr);
  ASSERT_EQ(other.item.size(), 2U);
  EXPECT_TRUE(other.Settings() == stored);
  EXPECT_EQ(other.item[1]->Text(), "second\nline");
  Dictionary older;
  older.Value("0", stored.ValueAt(1));
  older.Value("1", Dictionary());
  older.Value("2", "no box");
  other.Settings(older);
  ASSERT_EQ(other.item.size(), 2U);
  EXPECT_EQ(other.item[0]->Font(), "DejaVu Serif");
  EXPECT_EQ(other.item[1]->Text(), "");
  EXPECT_EQ(other.item[1]->Width, 0.5F);
  EXPECT_EQ(other.item[1]->Left, 0.25F);
}

TEST_F(Texts, TheModuleMakesAndKeepsBoxes) {
  TestServices services;
  brivolantProcessorLite processor(EffectRegistry(), services.services);
  processor.Startup();
  auto& module =
      dynamic_cast<EffectModuleText&>(*processor.ItemVIaID("150B71E5-A262-009C-42A9-CD07B87C0B76"));
  ScaleableTextEngine& texts = module.myTextEngine;
  EXPECT_EQ(module.ControlValue(EffectModuleText::kAddRow).ToText(), "Add Text Field");
  EXPECT_TRUE(module.ControlValue(EffectModuleText::kColorRow).IsNil());
  module.Enabled(true);
  ASSERT_EQ(texts.item.size(), 1U);
  EXPECT_TRUE(module.PushButton(EffectModuleText::kAddRow));
  EXPECT_EQ(texts.item.size(), 1U) << "an empty box is enough";
  // An empty box shows as a dashed outline, in the finished picture too.
  Picture out = picture;
  module.Apply(out, 1);
  EXPECT_GT(LargestDifference(out, picture), 50);
  module.ControlValue(EffectModuleText::kColorRow, kOrange);
  module.ControlValue(EffectModuleText::kCaptionRow, 4);
  module.ControlValue(EffectModuleText::kFontRow, "DejaVu Sans Mono");
  EXPECT_EQ(texts.CurrentTextItem->TextColor, kOrange);
  EXPECT_EQ(texts.CurrentTextItem->Caption, 4);
  EXPECT_EQ(module.ControlValue(EffectModuleText::kFontRow).ToText(), "DejaVu Sans Mono");
  texts.CurrentTextItem->Text("stays");
  EXPECT_TRUE(module.Editing());
  // A style without the key leaves the boxes; one that switches the module on edits the last.
  module.Settings(Dictionary());
  EXPECT_EQ(texts.item.size(), 1U);
  EXPECT_FALSE(module.Editing());
  const std::string style = processor.StyleData();
  module.ResetSettings();
  EXPECT_TRUE(texts.item.empty());
  EXPECT_EQ(processor.StyleData(style), StyleFault::kNone);
  ASSERT_EQ(texts.item.size(), 1U);
  EXPECT_EQ(texts.item[0]->Text(), "stays");
  texts.CurrentTextItem = nullptr;
  module.ControlValue(EffectModuleText::kCaptionRow, 2);
  EXPECT_EQ(texts.item[0]->Caption, 4) << "without a current box the controls act on nothing";
  // The font menu's answer is the font; without a menu nothing happens.
  module.Enabled(true);
  module.fireShowMenu(EffectModuleText::kFontRow, 3, 4, {});
  EXPECT_EQ(texts.item[0]->Font(), "DejaVu Sans Mono");
  module.ChooseFont = [](int x, int y, int width, const std::string& current) {
    EXPECT_EQ(x + y + width, 3 + 4 + 14 + 140);
    return current + " Bold";
  };
  module.fireShowMenu(EffectModuleText::kFontRow, 3, 4, {});
  EXPECT_EQ(texts.item[0]->Font(), "DejaVu Sans Mono Bold");
}

TEST_F(Texts, TravelWithADocumentAndAStyle) {
  TestServices services;
  const FolderItem package = services.folder.Child("words.brvPhoto");
  const std::string words = std::string("Gr\xC3\xBC\xC3\x9F") + kAccent + kFamily + "\n\xD7\xA9";
  {
    BrivolantDocument document(services.services, TestPicture(40, 30), "words");
    brivolantProcessorLite processor(EffectRegistry(), services.services);
    processor.Startup();
    auto& module = dynamic_cast<EffectModuleText&>(
        *processor.ItemVIaID("150B71E5-A262-009C-42A9-CD07B87C0B76"));
    module.Enabled(true);
    module.myTextEngine.CurrentTextItem->Text(words);
    module.myTextEngine.CurrentTextItem->Caption = 2;
    module.myTextEngine.Add().Text("second");
    document.StyleData = processor.StyleData();
    document.File = package;
    ASSERT_TRUE(document.Save());
  }
  BrivolantDocument again(services.services);
  ASSERT_TRUE(again.Load(package));
  brivolantProcessorLite processor(EffectRegistry(), services.services);
  processor.Startup();
  ASSERT_EQ(processor.StyleData(again.StyleData), StyleFault::kNone);
  auto& module =
      dynamic_cast<EffectModuleText&>(*processor.ItemVIaID("150B71E5-A262-009C-42A9-CD07B87C0B76"));
  ASSERT_EQ(module.myTextEngine.item.size(), 2U);
  EXPECT_EQ(module.myTextEngine.item[0]->Text(), words);
  EXPECT_EQ(module.myTextEngine.item[0]->TextLength(), 8);
  EXPECT_EQ(module.myTextEngine.item[0]->Caption, 2);
  EXPECT_EQ(module.myTextEngine.item[1]->Text(), "second");
}

TEST_F(Texts, HostileBoxesDrawAndKeepTheirPicture) {
  for (const double size : {-1e30, -1000.0, -0.2, 0.0, 1e-9, 999.0, 1e30}) {
    for (const int caption : {-5, 0, 1, 4, 7, 99}) {
      Dictionary box;
      box.Value("Text", "q\n\nW");
      for (const char* key : {"Left", "Top", "Width", "Height"}) box.Value(key, size);
      box.Value("Caption", caption);
      box.Value("Font", "");
      Dictionary boxes;
      boxes.Value(0, box);
      engine.Settings(boxes);
      engine.CurrentTextItem = engine.item.at(0).get();
      Picture small = PlainPicture(31, 17, kWhite);
      engine.Paint(small, true);
      ASSERT_EQ(small.View().Row(16)[4 * 30 + 3], 255);
      (void)engine.CurrentTextItem->PositionFromXY(engine.SourceSize, 0.4F, -3);
      (void)engine.HitAny(0.5F, 0.5F);
    }
  }
}

}  // namespace
}  // namespace brivolant::test
