// SPDX-License-Identifier: MIT
// Finding photos by name and in the photo library.
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <algorithm>

#include "BrowsingHelpers.h"
#include "app/browse/QuickLookWindow.h"
#include "browser/ui/Sidebar.h"
#include "kit/ifkPathBar.h"
#include "kit/ifkSearchField.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Searching : Browsing {
  explicit Searching(const std::vector<std::string>& names) : Browsing(names) {
    Window().mySpotlightSearch.Roots = {home.Item()};
  }
  ifkSearchField& Field() { return *Window().browserSearchField; }
  /// As a click on the row of the icon's menu.
  void SearchIn(const QString& row) {
    QMenu* menu = Field().MakeMenu();
    for (QAction* action : menu->actions()) {
      if (action->text() == row) action->trigger();
    }
    delete menu;
  }
  void Type(const std::string& text) {
    Field().setFocus();
    test::Type(Window(), text);
  }
  /// Waits for the end of the search for that text, and looks at what it found.
  template <class Matcher>
  void Finds(const std::string& text, const Matcher& names) {
    const std::string title = "\"" + text + "\" Search Results";
    ASSERT_TRUE(Until([&] {
      return Window().mySpotlightSearch.IsCompleted() && Path() == std::vector<std::string>{title};
    })) << text;
    ExpectSoon([&] { return Names(); }, names);
  }
  std::vector<std::string> Path() {
    std::vector<std::string> captions;
    for (int i = 0; i <= Window().myPathBar->Count(); ++i) {
      captions.push_back(Window().myPathBar->Item(i).Caption.toStdString());
    }
    return captions;
  }
  void ClickCancel() {
    QLineEdit& edit = Field().MyEditField();
    for (QAction* action : edit.actions()) {
      if (action->toolTip() == QStringLiteral("Cancel search")) action->trigger();
    }
    QApplication::processEvents();
  }
};

TEST(Search, InTheFolderHighlights) {
  Searching program({"beach.jpg", "Sunny Beach.jpg", "hill.jpg"});
  program.Type("beach");
  EXPECT_THAT(program.Selected(), ElementsAre("beach.jpg", "Sunny Beach.jpg"));
  EXPECT_TRUE(program.Field().CancelButton());
  program.Field().Text("");
  EXPECT_EQ(program.Browser().SelectedCount(), 0);
  EXPECT_FALSE(program.Field().CancelButton());
  // Return takes one to what was found; the search is remembered once.
  program.Type("hill");
  Key(program.Window(), Qt::Key_Return);
  EXPECT_TRUE(program.Browser().IconView().hasFocus());
  program.Type("x");
  program.Field().Text("hill");
  Key(program.Window(), Qt::Key_Return);
  program.Field().Text("");
  EXPECT_THAT(program.Field().RecentSearches(), ElementsAre("hill", ""));
  program.Window().close();
  program.Start();
  EXPECT_THAT(program.Field().RecentSearches(), ElementsAre("hill", ""));
}

TEST(Search, OfTheComputerShowsTheHitsAsAFolder) {
  Searching program({"a.jpg"});
  ASSERT_FALSE(program.home.Child("Beaches").CreateAsFolder());
  ASSERT_FALSE(program.home.Child(".beach-cache").CreateAsFolder());
  program.home.Write("beach.txt", "words");
  program.Photo("Beaches/BEACH 10.jpg", 40, 30);
  program.Photo("Beaches/my beach 2.png", 40, 30);
  program.SearchIn(QStringLiteral("Search Entire Computer"));
  program.Type("be");
  EXPECT_EQ(program.Browser().CurrentFolder(), program.Pictures());
  program.Type("ach");
  program.Finds("beach", ElementsAre("BEACH 10.jpg", "Beaches", "my beach 2.png"));
  EXPECT_THAT(program.Path(), ElementsAre("\"beach\" Search Results"));
  Sidebar& bar = *program.Window().mySideBar;
  ASSERT_NE(bar.ItemAt(bar.ListIndex()), nullptr);
  EXPECT_EQ(bar.ItemAt(bar.ListIndex())->Caption, "\"beach\" Search Results");
  // Hits of an earlier text that are none of the new one go.
  program.Type(" 2");
  program.Finds("beach 2", ElementsAre("my beach 2.png"));
  program.Field().Text("beaches");
  program.Finds("beaches", ElementsAre("Beaches"));
  // A folder among the hits opens, and the way back leads to them.
  program.Browser().setFocus();
  program.Browser().ListIndex(0);
  Key(program.Window(), Qt::Key_Return);
  EXPECT_EQ(program.Browser().CurrentFolder(), program.home.Child("Beaches"));
  program.Window().myPathBar->Goback();
  EXPECT_THAT(program.Names(), ElementsAre("Beaches"));
  program.ClickCancel();
  EXPECT_EQ(program.Browser().CurrentFolder(), program.Pictures());
  EXPECT_EQ(program.Window().currentSearchItem, nullptr);
  EXPECT_EQ(program.Field().Text(), "");
  EXPECT_EQ(bar.item.size(), 3U);
  program.Field().Text("nothing of this name");
  program.Finds("nothing of this name", IsEmpty());
}

TEST(Search, LeavingTheResultsEndsTheSearch) {
  Searching program({"a.jpg"});
  program.SearchIn(QStringLiteral("Search Entire Computer"));
  program.Type("abc");
  program.Window().DisplayContainer(program.home.Item());
  EXPECT_FALSE(program.Window().mySpotlightSearch.Running());
  Settle();
  EXPECT_EQ(program.Browser().CurrentFolder(), program.home.Item());
}

TEST(Search, TellsWhereItIsAndEndsWithWhatThereIs) {
  Searching program({"a.jpg"});
  program.SearchIn(QStringLiteral("Search Entire Computer"));
  program.Type("nothing");
  program.Finds("nothing", IsEmpty());
  // As the threads report it.
  program.Window().mySpotlightSearch.Progress("/home/ann/Pictures", 3);
  QPushButton* cancel = nullptr;
  for (QPushButton* button : program.Window().findChildren<QPushButton*>()) {
    if (button->text() == QStringLiteral("Cancel")) cancel = button;
  }
  ASSERT_NE(cancel, nullptr);
  ASSERT_TRUE(cancel->isVisible());
  const auto labels = program.Window().findChildren<QLabel*>();
  EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
    return label->text() == QStringLiteral("Searching /home/ann/Pictures (3 found)");
  }));
  program.Field().Text("a.jpg");
  Click(*cancel);
  EXPECT_TRUE(Until([&] { return !cancel->isVisible(); }));
}

TEST(Search, ComputerHoldsTheDisks) {
  Searching program({"a.jpg"});
  program.Window().DisplayContainer(FolderItem("/"));
  ASSERT_TRUE(Until([&] { return program.Listed(FolderItem("/")); }));
  program.Browser().setFocus();
  Key(program.Window(), Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(program.Browser().currentView(),
            multiViewFileBrowser::Container(program.app->myComputer()));
  ASSERT_GE(program.Browser().Count(), 1);
  program.Browser().ListIndex(0);
  Key(program.Window(), Qt::Key_Return);
  EXPECT_EQ(program.Browser().CurrentFolder(), FolderItem("/"));
}

std::string LibraryXml(const FolderItem& photo) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>"
         "<key>List of Albums</key><array><dict><key>AlbumName</key><string>Best</string>"
         "<key>KeyList</key><array><string>1</string></array></dict></array>"
         "<key>List of Rolls</key><array><dict><key>RollID</key><integer>7</integer>"
         "<key>RollName</key><string>Trip</string>"
         "<key>KeyList</key><array><string>1</string></array></dict></array>"
         "<key>Master Image List</key><dict><key>1</key><dict>"
         "<key>MediaType</key><string>Image</string><key>Caption</key><string>At sea</string>"
         "<key>ImagePath</key><string>" +
         photo.ShellPath() + "</string><key>ThumbPath</key><string>" + photo.ShellPath() +
         "</string></dict></dict></dict></plist>";
}

TEST(Library, ItsAlbumsAndEventsShowAndTheirPhotosOpen) {
  Searching program({"a.jpg"});
  const FolderItem photo = program.Photo("sea.jpg", 80, 60);
  Sidebar& hidden = *program.Window().mySideBar;
  EXPECT_FALSE(hidden.item[MainWindow::kLibrarySection]->Visible);
  ASSERT_FALSE(program.Pictures().Child("iPhoto Library").CreateAsFolder());
  program.home.Write("Pictures/iPhoto Library/AlbumData.xml", LibraryXml(photo));
  program.Start();
  ASSERT_TRUE(Until([&] { return !program.Window().iPhotolibrary.empty(); }));
  Sidebar& bar = *program.Window().mySideBar;
  ASSERT_EQ(bar.ItemAt(1)->Caption, "Events (1)");
  ASSERT_EQ(bar.ItemAt(2)->Caption, "Best (1)");
  Click(*bar.viewport(), bar.RowRect(1).center());
  EXPECT_THAT(program.Names(), ElementsAre("Trip (1)"));
  EXPECT_THAT(program.Path(), ElementsAre("Events (1)"));
  program.Browser().setFocus();
  program.Browser().ListIndex(0);
  Key(program.Window(), Qt::Key_Return);
  EXPECT_THAT(program.Path(), ElementsAre("Events (1)", "Trip (1)"));
  EXPECT_THAT(program.Names(), ElementsAre("At sea"));
  // The photo's own preview, not an icon.
  EXPECT_TRUE(Until([&] {
    const QImage cell = program.Browser().CellPicture(0, 64).toImage();
    return cell.width() * 3 == cell.height() * 4;
  }));
  ifkPathBar& path = *program.Window().myPathBar;
  Click(path, path.ButtonRect(0).center());
  EXPECT_THAT(program.Names(), ElementsAre("Trip (1)"));
  Click(*bar.viewport(), bar.RowRect(2).center());
  program.Browser().ListIndex(0);
  Key(program.Window(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(program.Window().DisplayPane, MainWindow::kBrowserPane);
  program.Browser().setFocus();
  Key(program.Window(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(program.Document().Name, "At sea");
}

TEST(Library, PreviewsAreReadBesideTheWindowAndOnce) {
  Searching program({});
  const FolderItem photo = program.Photo("sea.jpg", 80, 60);
  const auto item = std::make_shared<iPhotoItem>();
  item->Caption = "At sea";
  item->ImagePath = item->ThumbPath = photo.ShellPath();
  const auto album = std::make_shared<iPhotoAlbum>();
  album->item.emplace_back(item);
  album->item.emplace_back(std::make_shared<iPhotoItem>(*item));
  program.Window().DisplayContainer(album);
  // At once there is an icon, which is square; nothing is read meanwhile.
  const QImage first = program.Browser().CellPicture(0, 64).toImage();
  EXPECT_EQ(first.width(), first.height());
  EXPECT_TRUE(program.Browser().Thumbnail(program.Browser().item(0)).isNull());
  // Nor by a look at all of them.
  program.Browser().SelectAll();
  program.Choose("FileQuickLook");
  ASSERT_EQ(program.Window().QuickLook()->items().size(), 2U);
  EXPECT_TRUE(program.Window().QuickLook()->items()[0].Thumbnail.isNull());
  program.Window().QuickLook()->close();
  const auto drawn = [&](int side) {
    const QImage image = program.Browser().CellPicture(0, side).toImage();
    return image.width() * 3 == image.height() * 4;
  };
  EXPECT_TRUE(Until([&] { return drawn(64); }));
  ASSERT_FALSE(photo.Delete());
  EXPECT_TRUE(drawn(64));
  EXPECT_TRUE(drawn(48));
  EXPECT_TRUE(item->DynamicPreview().IsNil());
}

TEST(SearchField, WithoutLiveSearchOnlyReturnTells) {
  ifkSearchField field;
  int told = 0;
  field.TextChanged = [&] { ++told; };
  field.resize(200, 30);
  field.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&field));
  field.MyEditField().setFocus();
  QTest::keyClicks(&field.MyEditField(), QStringLiteral("sea"));
  EXPECT_EQ(told, 0);
  QTest::keyClick(&field.MyEditField(), Qt::Key_Return);
  QTest::keyClick(&field.MyEditField(), Qt::Key_Return);
  EXPECT_EQ(told, 2);
  EXPECT_THAT(field.RecentSearches(), ElementsAre("sea", "sea"));
  // The grey text is none of the field's.
  QTest::keyClick(&field.MyEditField(), Qt::Key_Escape);
  EXPECT_EQ(field.Text(), "");
  EXPECT_EQ(field.MyEditField().placeholderText(), QStringLiteral("Search"));
  // The owner may take the click that cancels.
  field.Text("hill");
  field.CancelClicked = [] { return true; };
  QAction* cancel = field.MyEditField().actions().back();
  ASSERT_TRUE(cancel->isVisible());
  cancel->trigger();
  EXPECT_EQ(field.Text(), "hill");
  field.CancelClicked = nullptr;
  cancel->trigger();
  EXPECT_EQ(field.Text(), "");
  EXPECT_EQ(told, 3);
  EXPECT_FALSE(cancel->isVisible());
}

TEST(SearchField, MenuChoosesAndRepeatsEarlierSearches) {
  ifkSearchField field;
  field.useLiveSearch = true;
  field.Menu = {{"Here", "HERE", {}, true, true, {}}, {"There", "THERE", {}, false, true, {}}};
  field.RecentSearches({"sea & hill"});
  std::string chosen;
  field.MenuAction = [&](MenuItem& item) { chosen = item.Tag; };
  const auto trigger = [&](const QString& text) {
    QMenu* menu = field.MakeMenu();
    for (QAction* action : menu->actions()) {
      if (action->text() == text) action->trigger();
    }
    delete menu;
  };
  trigger(QStringLiteral("There"));
  EXPECT_EQ(chosen, "THERE");
  trigger(QStringLiteral("sea && hill"));
  EXPECT_EQ(field.Text(), "sea & hill");
  trigger(QStringLiteral("Clear Recent Searches"));
  EXPECT_THAT(field.RecentSearches(), ElementsAre("sea & hill"));
}

}  // namespace
}  // namespace brivolant::test
