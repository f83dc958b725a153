// SPDX-License-Identifier: MIT
// The bar of 1-Click styles in the real window, the editor of a style, and installing by opening.
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <filesystem>

#include "WindowHelpers.h"
#include "app/core/ApplicationServices.h"
#include "app/edit/OneClickEditor.h"
#include "app/edit/StyleTiles.h"
#include "effects/FindEffect.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "effects/styles/StyleSource.h"
#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "kit/DesktopServices.h"
#include "kit/ifkButton.h"
#include "kit/ifkSegmentView.h"
#include "kit/templateSelector.h"

namespace brivolant::test {
namespace {

using testing::HasSubstr;

struct StyleBar : testing::Test {
  StyleBar() { program.OpenPhoto(program.Photo("photo.jpg", 600, 400)); }
  templateSelector& Bar() { return *program.Window().myStylesBar; }
  OneClickWonderStorage& Store() { return program.app->Styles(); }
  QPoint Tile(int index) { return Bar().TileRect(index).center(); }
  void ClickTile(int index) {
    Bar().ScrollTo(index);
    Settle();
    Click(Bar(), Tile(index));
  }
  QPoint Row(int category) { return {40, templateSelector::kTop + 17 * category + 8}; }
  void AskMenu(int index, const std::string& tag) {
    program.Window().PresentMenu = [tag](const MenuItem& menu, int, int) -> std::optional<int> {
      for (std::size_t i = 0; i < menu.Children.size(); ++i) {
        if (menu.Children[i].Tag == tag) return static_cast<int>(i);
      }
      return std::nullopt;
    };
    const QPoint at = Tile(index);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, Bar().mapToGlobal(at));
    QApplication::sendEvent(&Bar(), &event);
  }
  /// Does something in the style's window once it stands.
  void InEditor(const std::function<void(oneClickEditor&)>& act) {
    QTimer::singleShot(100, &program.Window(), [act] {
      auto* editor = dynamic_cast<oneClickEditor*>(QApplication::activeModalWidget());
      ASSERT_NE(editor, nullptr);
      act(*editor);
    });
  }
  OneClickWonder Named(const std::string& name, int category, const char* effect) {
    OneClickWonder style(program.app->StyleServices());
    style.Name(0, name);
    style.Category = category;
    brivolantProcessorLite processor(EffectRegistry(), program.app->Services());
    processor.Startup();
    ModuleNamed(processor, effect).Enabled(true);
    style.StyleData = processor.StyleData();
    return style;
  }
  Program program;
};

TEST_F(StyleBar, AClickAppliesAndUndoTakesBackStackAndSelection) {
  program.SelectRow("Exposure");
  const std::string before = program.Processor().StyleData();
  ASSERT_GE(Bar().Count(), 12);
  ClickTile(1);
  EXPECT_EQ(Bar().SelectedItem, 1);
  EXPECT_EQ(program.Processor().StyleData(), Store().item(1)->StyleData);
  EXPECT_FALSE(program.Module("Exposure").Enabled()) << "a style replaces, it does not merge";
  EXPECT_TRUE(program.Document().Dirty);
  const std::string applied = program.Processor().StyleData();
  // The selected tile is not applied again, and records nothing.
  ClickTile(1);
  ClickTile(4);
  program.Choose("EditUndo");
  EXPECT_EQ(Bar().SelectedItem, 1);
  EXPECT_EQ(program.Processor().StyleData(), applied);
  program.Choose("EditUndo");
  EXPECT_EQ(Bar().SelectedItem, -1);
  EXPECT_EQ(program.Processor().StyleData(), before);
  program.Choose("EditRedo");
  EXPECT_EQ(Bar().SelectedItem, 1);
  // An adjusted photo no longer has the style.
  program.SelectRow("Posterize");
  EXPECT_EQ(Bar().SelectedItem, -1);
  program.Choose("EditClearStyle");
  EXPECT_FALSE(program.Module("Posterize").Enabled());
  // Between the column and the first tile, and behind the last, is nothing.
  Bar().myScrollBar->setValue(0);
  Bar().MouseClick(templateSelector::kColumn + 1 + 128 * 200, 60);
  EXPECT_EQ(Bar().SelectedItem, -1);
  // The pixel that two tiles share is the left one's.
  Bar().MouseClick(templateSelector::kColumn + 128, 60);
  EXPECT_EQ(Bar().SelectedItem, 0);
}

TEST_F(StyleBar, CategoriesKeysAndWheelReachEveryTile) {
  Click(Bar(), Row(3));
  EXPECT_EQ(Store().currentCategory, 3);
  EXPECT_EQ(Bar().selectedCategory, 3);
  EXPECT_EQ(Bar().Item(0).Name, Store().item(0)->Name());
  EXPECT_GT(Bar().myScrollBar->maximum(), 0);
  const auto first = Bar().Visible().first;
  QWheelEvent wheel(QPointF(400, 60), Bar().mapToGlobal(QPointF(400, 60)), {}, {0, -240},
                    Qt::NoButton, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&Bar(), &wheel);
  EXPECT_GT(Bar().Visible().first, first);
  Bar().setFocus();
  Key(program.Window(), Qt::Key_Home);
  Key(program.Window(), Qt::Key_Right);
  Key(program.Window(), Qt::Key_Right);
  Key(program.Window(), Qt::Key_Return);
  EXPECT_EQ(Bar().SelectedItem, 2);
  Key(program.Window(), Qt::Key_End);
  Key(program.Window(), Qt::Key_Space);
  EXPECT_EQ(Bar().SelectedItem, Bar().Count() - 1);
  EXPECT_EQ(Bar().Visible().second, Bar().Count() - 1);
  Key(program.Window(), Qt::Key_Up);
  EXPECT_EQ(Store().currentCategory, 2);
  EXPECT_EQ(Bar().SelectedItem, -1);
  // The bar hides and comes back, and both the category and that survive a restart.
  const int tall = program.Display().height();
  program.Choose("Viewstyles");
  EXPECT_FALSE(Bar().isVisible());
  EXPECT_GT(program.Display().height(), tall + 100);
  program.Document().Dirty = false;
  program.Window().close();
  program.Start();
  program.OpenPhoto(program.home.Child("photo.jpg"));
  EXPECT_FALSE(Bar().isVisible());
  EXPECT_EQ(Store().currentCategory, 2);
  SegmentViewPiece* piece = program.Window().PreviewTitle->SegmentByTag("styles");
  program.Window().PreviewTitle->Click(*piece);
  Settle();
  EXPECT_TRUE(Bar().isVisible());
}

TEST_F(StyleBar, AssistiveToolsReadAndPressTiles) {
  QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(&Bar());
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(bar->role(), QAccessible::List);
  EXPECT_EQ(bar->childCount(), 6 + Bar().Count());
  EXPECT_EQ(bar->child(0)->text(QAccessible::Name), QStringLiteral("Quill Favorites"));
  EXPECT_TRUE(bar->child(0)->state().checked);
  const int last = bar->childCount() - 1;
  bar->child(last)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(Bar().SelectedItem, Bar().Count() - 1);
  EXPECT_TRUE(bar->child(last)->state().selected);
  EXPECT_EQ(bar->child(last)->text(QAccessible::Description).toStdString(),
            Store().item(Bar().Count() - 1)->Description());
  bar->child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(Store().currentCategory, 2);
  EXPECT_EQ(bar->indexOfChild(bar->child(7)), 7);
  EXPECT_EQ(bar->child(500), nullptr);
}

TEST_F(StyleBar, TilesShowTheOpenPhotoAndHoverShowsItLarge) {
  const auto shows = [&](const Picture& photo) {
    const auto style = Store().item(2);
    const int side = static_cast<int>(100 * program.Display().devicePixelRatioF());
    const Picture expected = SharedPictureEffects::Scale(
        StyleSource::Render(style->StyleData, photo, 2 * side, program.app->Services()), side, side,
        SharedPictureEffects::kScaleToFit);
    return Until(
        [&] { return LargestDifference(PictureFromImage(Bar().Item(2).Preview), expected) < 24; });
  };
  EXPECT_TRUE(shows(program.Document().PreviewBase));
  program.Document().Dirty = false;
  program.OpenPhoto(program.Photo("other.png", 500, 500));
  EXPECT_TRUE(shows(program.Document().PreviewBase));
  // They are kept while other categories are looked at.
  const QImage ready = Bar().Item(2).Preview;
  Click(Bar(), Row(1));
  Click(Bar(), Row(0));
  EXPECT_EQ(Bar().Item(2).Preview, ready);
  // Resting on a tile shows the photo in that style; nothing else changes.
  const std::string before = program.Processor().StyleData();
  const QImage plain = program.Display().Buffer().copy();
  Move(Bar(), Tile(1));
  EXPECT_TRUE(Until([&] { return program.Display().Buffer() != plain; }));
  EXPECT_EQ(program.Processor().StyleData(), before);
  EXPECT_FALSE(program.Document().Dirty);
  EXPECT_FALSE(program.Window().UndoGizmo.UndoAvailable());
  EXPECT_EQ(Bar().SelectedItem, -1);
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&Bar(), &leave);
  EXPECT_TRUE(program.Display().Buffer() == plain);
}

TEST_F(StyleBar, AStackBecomesAStyleThatIsFoundAgain) {
  program.SelectRow("Sepia");
  const std::string stack = program.Processor().StyleData();
  InEditor([](oneClickEditor& editor) {
    EXPECT_EQ(editor.windowTitle(), QStringLiteral("Create New 1-Click Style"));
    EXPECT_EQ(editor.name->selectedText(), QStringLiteral("Untitled"));
    EXPECT_FALSE(editor.categoryMenu->isVisible());
    Type(editor, "Brown Days");
    editor.languagemenu->setCurrentIndex(3);
    EXPECT_EQ(editor.name->text(), QString());
    editor.name->setFocus();
    Type(editor, "Braune Tage");
    editor.languagemenu->setCurrentIndex(0);
    EXPECT_EQ(editor.name->text(), QStringLiteral("Brown Days"));
    editor.description->setPlainText(QStringLiteral("As it was."));
    editor.creatorsname->setFocus();
    editor.creatorsname->selectAll();
    Type(editor, "Bob");
    Click(*editor.ifkSaveButton);
  });
  program.Choose("FileSaveStyleAs");
  EXPECT_EQ(Store().currentCategory, OneClickWonderStorage::kUsersCategory);
  ASSERT_EQ(Bar().Count(), 1);
  EXPECT_EQ(Bar().SelectedItem, 0);
  EXPECT_EQ(program.app->usersFullName, "Bob");
  const auto style = Store().item(0);
  EXPECT_EQ(style->Name(3), "Braune Tage");
  EXPECT_EQ(style->Description(), "As it was.");
  EXPECT_EQ(style->StyleData, stack);
  EXPECT_EQ(style->File.Name(), "Brown_Days.oneClick");
  EXPECT_FALSE(style->Preview().IsNil());
  // Cancelled, nothing comes of it.
  InEditor([](oneClickEditor& editor) { Key(editor, Qt::Key_Escape); });
  program.Choose("FileSaveStyleAs");
  EXPECT_EQ(Bar().Count(), 1);
  // Edited, its file follows.
  InEditor([](oneClickEditor& editor) {
    EXPECT_FALSE(editor.ifkSaveButton->isEnabled());
    Type(editor, "Warm Days");
    Click(*editor.ImageWell1);
    Click(*editor.ifkSaveButton);
  });
  AskMenu(0, "EDIT");
  EXPECT_EQ(Bar().Item(0).Name, "Warm Days");
  // Sent by mail.
  std::string sent;
  program.app->SendViaEmail = [&](const FolderItem& file, const std::string& subject) {
    sent = file.Name() + ": " + subject;
    return true;
  };
  AskMenu(0, "SHARE");
  EXPECT_EQ(sent, "Brown_Days.oneClick: Here is a cool Brivolant Photos 1-Click Style");
  // Found again after a restart.
  program.Document().Dirty = false;
  program.Window().close();
  program.Start();
  program.OpenPhoto(program.home.Child("photo.jpg"));
  ASSERT_EQ(Bar().Count(), 1);
  EXPECT_EQ(Bar().Item(0).Name, "Warm Days");
  // Removed to the trash, after a question.
  program.dialogs.answers = {Answer::kCancel};
  AskMenu(0, "REMOVE");
  EXPECT_EQ(Bar().Count(), 1);
  program.dialogs.answers = {Answer::kAction};
  AskMenu(0, "REMOVE");
  EXPECT_EQ(program.dialogs.questions.back().Message, "Are you sure you wish to remove Warm Days?");
  EXPECT_EQ(Bar().Count(), 0);
  EXPECT_TRUE(program.home.Child("data")
                  .Child("Trash")
                  .Child("files")
                  .Child("Brown_Days.oneClick")
                  .Exists());
}

TEST_F(StyleBar, AFileIsInstalledByOpeningOrDropping) {
  OneClickWonder style = Named("Found", 1, "Sepia");
  const FolderItem file = program.home.Child("mail attachment.oneClick");
  ASSERT_TRUE(style.Save(file));
  program.app->OpenDocument(file);
  program.Finish();
  EXPECT_FALSE(file.Exists()) << "it moves to the user's styles";
  EXPECT_THAT(program.dialogs.messages.back(),
              testing::StartsWith("\"Found\" is now added to the 1-Click Styles"));
  EXPECT_EQ(Store().currentCategory, 1);
  EXPECT_EQ(Bar().Item(Bar().Count() - 1).Name, "Found");
  // Another of that name keeps the first.
  ASSERT_TRUE(style.Save(file));
  program.app->OpenDocument(file);
  program.Finish();
  EXPECT_TRUE(Store().usersCustomWondersFolder.Child("Found-1.oneClick").Exists());
  const int count = Bar().Count();
  program.app->OpenDocument(program.home.Write("broken.oneClick", "QMBPonCW"));
  program.Finish();
  EXPECT_THAT(program.dialogs.messages.back(), HasSubstr("unable to open the 1-Click Style"));
  EXPECT_TRUE(program.home.Child("broken.oneClick").Exists());
  // What is dropped into the folder appears by itself.
  OneClickWonder dropped = Named("Dropped", 1, "Posterize");
  ASSERT_TRUE(dropped.Save(Store().usersCustomWondersFolder.Child("dropped.oneClick")));
  EXPECT_TRUE(Until([&] { return Bar().Count() == count + 1; }));
  // A style whose file is protected is not edited.
  const auto locked = Store().item(Bar().Count() - 1);
  std::filesystem::permissions(locked->File.Path(), std::filesystem::perms::owner_read);
  if (locked->Locked()) {
    AskMenu(Bar().Count() - 1, "EDIT");
    EXPECT_THAT(program.dialogs.questions.back().Message, HasSubstr("Editing of"));
  }
}

TEST(Tiles, ComeInOrderOnceAndEndWithTheirPhoto) {
  const QuietServices quiet;
  brivolantProcessorLite processor(EffectRegistry(), quiet.All());
  processor.Startup();
  const std::string plain = processor.StyleData();
  ModuleNamed(processor, "Inverse").Enabled(true);
  const std::string inverse = processor.StyleData();
  StyleTiles tiles;
  std::vector<std::string> ready;
  Picture last;
  tiles.Ready = [&](const std::string& id, const Picture& tile) {
    ready.push_back(id);
    if (id == "inverse") last = tile;
  };
  // Without a photo there is nothing to do.
  tiles.Render({{"a", plain}});
  EXPECT_TRUE(tiles.Idle());
  const Picture photo = TestPicture(60, 40);
  tiles.Photo(photo, 1, {});
  tiles.Render({{"inverse", inverse}, {"a", plain}});
  EXPECT_TRUE(Until([&] { return ready.size() == 2 && tiles.Idle(); }));
  Picture expected = photo;
  InvertEffect().ApplyInPlace(expected);
  EXPECT_EQ(LargestDifference(last, expected), 0);
  // What is there is not made again.
  tiles.Render({{"a", plain}, {"inverse", inverse}});
  EXPECT_TRUE(tiles.Idle());
  // Hundreds are dropped when the photo changes; none of the old one arrives afterwards.
  std::vector<StyleTiles::Order> many;
  for (int i = 0; i < 400; ++i) many.push_back({std::to_string(i), inverse});
  tiles.Render(many);
  tiles.Photo(TestPicture(50, 50), 1, {});
  ready.clear();
  tiles.Render({{"new", plain}});
  EXPECT_TRUE(Until([&] { return tiles.Idle() && !ready.empty(); }));
  Settle();
  EXPECT_EQ(ready, std::vector<std::string>{"new"});
  tiles.Photo({}, 1, {});
  tiles.Render(many);
  EXPECT_TRUE(tiles.Idle());
}

TEST(Selector, TheSelectedTileShowsItsNameWhole) {
  templateSelector bar;
  bar.resize(600, templateSelector::kHeight);
  const std::string name = "A name that is a good deal wider than the tile that bears it";
  for (int i = 0; i < 4; ++i) bar.Add(name, QImage(), name, std::to_string(i), true, {});
  const int cut = bar.CaptionRect(1).width();
  EXPECT_LT(cut, templateSelector::kCell);
  for (const int index : {0, 1, 3}) {
    bar.SelectedItem = index;
    const QRect whole = bar.CaptionRect(index);
    EXPECT_GT(whole.width(), 2 * cut);
    EXPECT_TRUE(bar.rect().contains(whole));
    EXPECT_EQ(bar.CaptionRect(2).width(), cut);
  }
}

TEST(Selector, KeepsSelectionAndScrollAsTilesComeAndGo) {
  QWidget window;
  window.resize(700, 200);
  templateSelector bar(&window);
  QScrollBar slider(Qt::Horizontal, &window);
  bar.myScrollBar = &slider;
  QObject::connect(&slider, &QScrollBar::valueChanged, &bar,
                   [&](int value) { bar.tileOffset(value); });
  bar.setGeometry(0, 0, 700, templateSelector::kHeight);
  window.show();
  QImage large(400, 300, QImage::Format_RGB32);
  large.fill(Qt::red);
  for (int i = 0; i < 9; ++i)
    bar.Add("tile", large, "Tile", std::to_string(i), i % 2 == 0, "about");
  bar.updateScrollBar();
  // Without categories the tiles have the whole width.
  EXPECT_FALSE(bar.hasCategories());
  EXPECT_EQ(bar.categoryWidth(), 0);
  EXPECT_EQ(slider.maximum(), 9 * 128 - 700);
  EXPECT_EQ(bar.Item(0).Preview.width() / bar.Item(0).Preview.devicePixelRatio(), 100);
  EXPECT_EQ(bar.Visible(), (std::pair{0, 5}));
  bar.Catergory = {"One", "Two"};
  bar.updateScrollBar();
  EXPECT_EQ(slider.maximum(), 9 * 128 + 165 - 700);
  slider.setValue(slider.maximum());
  EXPECT_EQ(bar.Visible().second, 8);
  EXPECT_EQ(bar.TileRect(8).right(), 699);
  std::vector<int> chosen;
  bool keep = false;
  bar.ItemSelected = [&](int index) {
    chosen.push_back(index);
    return keep;
  };
  Click(bar, bar.TileRect(8).center());
  EXPECT_EQ(bar.SelectedItem, 8);
  keep = true;
  Click(bar, bar.TileRect(7).center());
  EXPECT_EQ(bar.SelectedItem, 8) << "the owner kept it";
  EXPECT_EQ(chosen, (std::vector<int>{8, 7}));
  // A tile before it goes, and the selection moves with its tile; its own tile takes it along.
  bar.Remove(2);
  EXPECT_EQ(bar.SelectedItem, 7);
  EXPECT_EQ(bar.Item(7).Tag, "8");
  bar.Remove(7);
  EXPECT_EQ(bar.SelectedItem, -1);
  bar.Remove(99);
  bar.Preview(99, large);
  EXPECT_EQ(bar.Count(), 7);
  // When all fit, nothing is scrolled.
  while (bar.Count() > 3) bar.Remove(0);
  EXPECT_EQ(slider.maximum(), 0);
  EXPECT_EQ(bar.TileRect(0).left(), 165);
  EXPECT_EQ(bar.Visible(), (std::pair{0, 2}));
  Click(bar, {600, 60});
  EXPECT_EQ(chosen.size(), 2U) << "nothing lies behind the last tile";
  bar.RemoveAllItems();
  EXPECT_EQ(bar.Visible().second, -1);
  bar.setFocus();
  Key(window, Qt::Key_Right);
  Key(window, Qt::Key_Return);
  EXPECT_EQ(chosen.size(), 2U);
}

}  // namespace
}  // namespace brivolant::test
