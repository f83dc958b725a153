// SPDX-License-Identifier: MIT
// Finding photos, by real events on the real window.
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <thread>

#include "BrowsingHelpers.h"
#include "app/browse/QuickLookWindow.h"
#include "app/commands/ToolButtons.h"
#include "browser/ui/BrowserViews.h"
#include "browser/ui/Sidebar.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "kit/DesktopServices.h"
#include "kit/ifkPathBar.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;

TEST(Browser, OpensEditsSavesAndComesBackToTheSamePlace) {
  Browsing program({"a.jpg", "b.jpg"});
  EXPECT_THAT(program.Names(), ElementsAre("a.jpg", "b.jpg"));
  ASSERT_TRUE(Until([&] { return !program.Browser().Rows().Item(1)->image.isNull(); }));
  DoubleClick(program.Grid(), program.Cell(1));
  Settle();
  ASSERT_EQ(program.Window().DisplayPane, MainWindow::kEditorPane);
  EXPECT_EQ(program.Document().Name, "b");
  program.Choose("RotateAndFlipRotate90");
  program.fileDialogs.files = {program.Pictures().Child("edited.brvPhoto")};
  program.Choose("FileSave");
  program.Tool(ToolButtons::Browser().Identifier);
  Settle();
  EXPECT_EQ(program.Window().DisplayPane, MainWindow::kBrowserPane);
  ASSERT_TRUE(program.Shows({"a.jpg", "b.jpg", "edited.brvPhoto"}));
  EXPECT_THAT(program.Selected(), ElementsAre("b.jpg"));
  // A document shows its edited picture.
  const auto document = program.Browser().Rows().Item(2);
  ASSERT_TRUE(Until([&] { return !document->image.isNull(); }));
  EXPECT_LT(document->image.width(), document->image.height());
  // Saved again, it shows the new one.
  DoubleClick(program.Grid(), program.Cell(2));
  Settle();
  program.Choose("RotateAndFlipRotate90");
  // The cache of the desktop counts in whole seconds: the next save is to fall into another one.
  const auto saved = program.Pictures().Child("edited.brvPhoto").ModificationDate();
  ASSERT_TRUE(saved);
  ASSERT_TRUE(Until([&] { return Date::Now() > *saved; }));
  program.Choose("FileSave");
  program.Tool(ToolButtons::Browser().Identifier);
  EXPECT_TRUE(Until([&] {
    const auto again = program.Browser().Count() > 2 ? program.Browser().Rows().Item(2) : nullptr;
    return again && again->image.width() > again->image.height();
  }));
  EXPECT_THAT(program.dialogs.messages, testing::IsEmpty());
}

TEST(Browser, MouseSelectsOneSeveralARangeAndByTheRubberBand) {
  Browsing program({"a.jpg", "b.jpg", "c.jpg", "d.jpg"});
  Click(program.Grid(), program.Cell(1));
  EXPECT_THAT(program.Selected(), ElementsAre("b.jpg"));
  Click(program.Grid(), program.Cell(3), Qt::ControlModifier);
  EXPECT_THAT(program.Selected(), ElementsAre("b.jpg", "d.jpg"));
  Click(program.Grid(), program.Cell(3), Qt::ControlModifier);
  Click(program.Grid(), program.Cell(3), Qt::ShiftModifier);
  EXPECT_THAT(program.Selected(), ElementsAre("b.jpg", "c.jpg", "d.jpg"));
  // A press on one of them keeps all, for a drag.
  Click(program.Grid(), program.Cell(2));
  EXPECT_EQ(program.Browser().SelectedCount(), 3);
  const QPoint below(program.Cell(0).x(), program.Grid().height() - 10);
  Click(program.Grid(), below);
  EXPECT_EQ(program.Browser().SelectedCount(), 0);
  int changes = 0;
  const auto told = program.Browser().SelectionChanged;
  program.Browser().SelectionChanged = [&] {
    ++changes;
    told();
  };
  Drag(program.Grid(), below, program.Cell(1));
  EXPECT_THAT(program.Selected(), ElementsAre("a.jpg", "b.jpg"));
  EXPECT_EQ(changes, 1);
}

TEST(Browser, KeysMoveTypeOpenAndTakeBackWhatWasTrashed) {
  Browsing program({"alpha.jpg", "beta.jpg", "berta.jpg", "zoo.jpg"});
  EXPECT_THAT(program.Names(), ElementsAre("alpha.jpg", "berta.jpg", "beta.jpg", "zoo.jpg"));
  program.Browser().setFocus();
  MainWindow& window = program.Window();
  const auto name = [&] { return program.Browser().Rows().Name(program.Browser().ListIndex()); };
  Key(window, Qt::Key_Right);
  EXPECT_EQ(name(), "alpha.jpg");
  Key(window, Qt::Key_End);
  EXPECT_EQ(name(), "zoo.jpg");
  Key(window, Qt::Key_Home);
  Key(window, Qt::Key_Left);
  EXPECT_EQ(name(), "alpha.jpg");
  Key(window, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_THAT(program.Selected(), ElementsAre("alpha.jpg", "berta.jpg"));
  Type(window, "bet");
  EXPECT_EQ(name(), "beta.jpg");
  Key(window, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(program.Browser().SelectedCount(), 4);
  Key(window, Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
  Click(program.Grid(), program.Cell(1));
  Key(window, Qt::Key_Delete);
  ASSERT_TRUE(program.Shows({"alpha.jpg", "beta.jpg", "zoo.jpg"}));
  EXPECT_TRUE(Until([&] { return !program.Pictures().Child("berta.jpg").Exists(); }));
  Key(window, Qt::Key_Z, Qt::ControlModifier);
  ASSERT_TRUE(program.Shows({"alpha.jpg", "berta.jpg", "beta.jpg", "zoo.jpg"}));
  EXPECT_THAT(program.Selected(), ElementsAre("berta.jpg"));
  Key(window, Qt::Key_Up, Qt::ControlModifier);
  ASSERT_TRUE(Until([&] { return program.Browser().CurrentFolder() == program.home.Item(); }));
  EXPECT_THAT(program.Selected(), ElementsAre("Pictures"));
  Key(window, Qt::Key_Return);
  ASSERT_TRUE(Until([&] { return program.Browser().CurrentFolder() == program.Pictures(); }));
  Key(window, Qt::Key_Down);
  Key(window, Qt::Key_Return);
  Settle();
  EXPECT_EQ(window.DisplayPane, MainWindow::kEditorPane);
}

TEST(Browser, ListAndIconsShareOrderAndSelection) {
  Browsing program({"img10.jpg", "img2.jpg"});
  program.home.Write("Pictures/a.txt", std::string(100000, 'x'));
  ASSERT_TRUE(program.Shows({"a.txt", "img2.jpg", "img10.jpg"}));
  Click(program.Grid(), program.Cell(2));
  program.Choose("ViewAsList");
  BrowserListView& list = program.Browser().ListView();
  ASSERT_TRUE(list.isVisible());
  EXPECT_THAT(program.Selected(), ElementsAre("img10.jpg"));
  QHeaderView& header = list.Header();
  const QPoint size(header.sectionViewportPosition(2) + 20, header.height() / 2);
  Click(*header.viewport(), size);
  Click(*header.viewport(), size);
  EXPECT_EQ(program.Names().front(), "a.txt");
  const QPoint nameColumn(20, header.height() / 2);
  Click(*header.viewport(), nameColumn);
  Click(*header.viewport(), nameColumn);
  EXPECT_THAT(program.Names(), ElementsAre("img10.jpg", "img2.jpg", "a.txt"));
  EXPECT_THAT(program.Selected(), ElementsAre("img10.jpg"));
  Click(*list.viewport(), list.RowRect(1).center());
  EXPECT_THAT(program.Selected(), ElementsAre("img2.jpg"));
  program.Choose("ViewAsIcons");
  EXPECT_THAT(program.Names(), ElementsAre("img10.jpg", "img2.jpg", "a.txt"));
  EXPECT_THAT(program.Selected(), ElementsAre("img2.jpg"));
  // The mode survives a restart.
  program.Choose("ViewAsList");
  program.Window().close();
  program.Start();
  EXPECT_EQ(program.Browser().Mode(), multiViewFileBrowser::kListView);
}

TEST(Browser, PathBarWalksItsHistory) {
  Browsing program({"a.jpg"});
  const FolderItem trip = program.Pictures().Child("Trip");
  ASSERT_FALSE(trip.CreateAsFolder());
  ifkPathBar& bar = *program.Window().myPathBar;
  program.Window().DisplayContainer(trip);
  EXPECT_EQ(bar.Item(bar.Count()).Caption, QStringLiteral("Trip"));
  Click(bar, bar.ButtonRect(ifkPathBar::kBackButton).center());
  EXPECT_EQ(program.Browser().CurrentFolder(), program.Pictures());
  Click(bar, bar.ButtonRect(ifkPathBar::kForwardButton).center());
  EXPECT_EQ(program.Browser().CurrentFolder(), trip);
  // The same path again adds no history; a new one after going back ends what lay ahead.
  Click(bar, bar.ButtonRect(ifkPathBar::kBackButton).center());
  EXPECT_FALSE(bar.CanGoBack());
  program.Window().DisplayContainer(program.Pictures());
  EXPECT_FALSE(bar.CanGoBack());
  EXPECT_TRUE(bar.CanGoForward());
  Click(bar, bar.ButtonRect(bar.Count() - 1).center());
  EXPECT_EQ(program.Browser().CurrentFolder(), program.home.Item());
  EXPECT_FALSE(bar.CanGoForward());
}

TEST(Browser, PlacesAndFoldsSurviveARestart) {
  Browsing program({});
  ASSERT_FALSE(program.Pictures().Child("Trip").CreateAsFolder());
  ASSERT_TRUE(program.Shows({"Trip"}));
  Click(program.Grid(), program.Cell(0));
  program.Choose("FileAddToSideBar");
  const auto row = [&](const std::string& caption) {
    Sidebar& bar = *program.Window().mySideBar;
    for (int i = 0; i < bar.RowCount(); ++i) {
      if (bar.ItemAt(i) && bar.ItemAt(i)->Caption == caption) return i;
    }
    return -1;
  };
  ASSERT_TRUE(Until([&] { return row("Trip") >= 0; }));
  // The first header is that of the devices.
  Click(*program.Window().mySideBar->viewport(),
        program.Window().mySideBar->RowRect(0).topLeft() + QPoint(12, 14));
  EXPECT_FALSE(program.Window().mySideBar->item[MainWindow::kDevicesSection]->ItemsVisible);
  program.Window().close();
  program.Start();
  Sidebar& bar = *program.Window().mySideBar;
  EXPECT_FALSE(bar.item[MainWindow::kDevicesSection]->ItemsVisible);
  ASSERT_GE(row("Trip"), 0);
  Click(*bar.viewport(), bar.RowRect(row("Trip")).center());
  EXPECT_EQ(program.Browser().CurrentFolder(), program.Pictures().Child("Trip"));
  Key(program.Window(), Qt::Key_Backspace);
  EXPECT_EQ(row("Trip"), -1);
  program.Start();
  EXPECT_EQ(row("Trip"), -1);
  EXPECT_GE(row("Pictures"), 0);
}

TEST(Browser, FilesComeInByDropAndPasteUnderFreeNames) {
  Browsing program({"a.jpg"});
  const FolderItem outside = program.Photo("a.jpg");
  DropFile(program.Grid(), outside);
  ASSERT_TRUE(program.Shows({"a-1.jpg", "a.jpg"}));
  EXPECT_THAT(program.Selected(), ElementsAre("a-1.jpg"));
  program.Choose("EditCopy");
  program.Choose("EditPaste");
  ASSERT_TRUE(Until([&] { return program.Browser().Count() == 3; }));
  EXPECT_TRUE(program.Pictures().Child("a-1-1.jpg").Exists());
  // Onto a folder's cell: into the folder.
  ASSERT_FALSE(program.Pictures().Child("Trip").CreateAsFolder());
  ASSERT_TRUE(Until([&] { return program.Browser().Count() == 4; }));
  DropFile(program.Grid(), outside, program.Cell(0));
  EXPECT_TRUE(Until([&] { return program.Pictures().Child("Trip").Child("a.jpg").Exists(); }));
  // A folder does not go into itself.
  program.Window().CopyFilesInto({program.Pictures()}, program.Pictures().Child("Trip"));
  program.Finish();
  EXPECT_EQ(program.dialogs.messages.size(), 1U);
}

TEST(Browser, AsksBeforeTheOpenDocumentGoesToTheTrashAndTakesItAlongWithItsFolder) {
  Browsing program({"a.jpg"});
  const FolderItem folder = program.Pictures().Child("trips");
  EXPECT_FALSE(folder.CreateAsFolder());
  program.OpenPhoto(program.Pictures().Child("a.jpg"));
  program.fileDialogs.files = {folder.Child("doc.brvPhoto")};
  program.Window().SaveMethod();
  program.Finish();
  program.Choose("ViewBrowseMyPhotos");
  Settle();
  ExpectSoon([&] { return program.Names(); }, ElementsAre("trips", "a.jpg"));
  program.Browser().setFocus();
  // The folder may just be listed anew.
  ASSERT_TRUE(Until([&] {
    if (program.Selected().empty()) Click(program.Grid(), program.Cell(0));
    return program.Selected() == std::vector<std::string>{"trips"};
  }));
  Key(program.Window(), Qt::Key_Delete);
  ASSERT_EQ(program.dialogs.questions.size(), 1U);
  EXPECT_THAT(program.dialogs.questions[0].Message, testing::HasSubstr("doc"));
  EXPECT_TRUE(folder.Exists());
  program.Choose("FileRename");
  QLineEdit* field = program.Browser().RenameField();
  ASSERT_NE(field, nullptr);
  field->setText(QStringLiteral("journeys"));
  QTest::keyClick(field, Qt::Key_Return);
  ASSERT_TRUE(program.Shows({"journeys", "a.jpg"}));
  const FolderItem moved = program.Pictures().Child("journeys");
  EXPECT_EQ(program.Document().File, moved.Child("doc.brvPhoto"));
  program.dialogs.answers = {Answer::kAction};
  program.Choose("FileMoveToTrash");
  ASSERT_TRUE(program.Shows({"a.jpg"}));
  // Saving asks for another place then.
  program.Tool(ToolButtons::Editor().Identifier);
  program.Choose("RotateAndFlipRotate90");
  const FolderItem place = program.home.Child("again.brvPhoto");
  program.dialogs.answers = {Answer::kAction};
  program.fileDialogs.files = {place};
  program.Window().SaveMethod();
  ASSERT_TRUE(Until([&] { return place.Exists() && !program.Window().Session().Busy(); }));
  EXPECT_TRUE(place.Child("a.jpg").Exists());
}

TEST(Browser, RenamesInPlaceAndTakesItBack) {
  Browsing program({"a.jpg", "b.jpg"});
  Click(program.Grid(), program.Cell(0));
  Key(program.Window(), Qt::Key_F2);
  QLineEdit* field = program.Browser().RenameField();
  ASSERT_NE(field, nullptr);
  EXPECT_EQ(field->selectedText(), QStringLiteral("a"));
  Type(program.Window(), "summer");
  Key(program.Window(), Qt::Key_Escape);
  EXPECT_TRUE(program.Shows({"a.jpg", "b.jpg"}));
  Key(program.Window(), Qt::Key_F2);
  Type(program.Window(), "summer");
  Key(program.Window(), Qt::Key_Return);
  ASSERT_TRUE(program.Shows({"b.jpg", "summer.jpg"}));
  ExpectSoon([&] { return program.Selected(); }, ElementsAre("summer.jpg"));
  EXPECT_TRUE(program.Browser().IconView().hasFocus());
  // Neither over another file nor out of the folder.
  for (const char* name : {"b", "up/b"}) {
    Key(program.Window(), Qt::Key_F2);
    Type(program.Window(), name);
    Key(program.Window(), Qt::Key_Return);
    Settle();
  }
  EXPECT_EQ(program.dialogs.messages.size(), 2U);
  EXPECT_TRUE(program.Shows({"b.jpg", "summer.jpg"}));
  program.Choose("EditUndo");
  EXPECT_TRUE(program.Shows({"a.jpg", "b.jpg"}));
  ExpectSoon([&] { return program.Selected(); }, ElementsAre("a.jpg"));
  // In the list, over the name.
  program.Choose("ViewAsList");
  Key(program.Window(), Qt::Key_F2);
  ASSERT_NE(program.Browser().RenameField(), nullptr);
  const QRect row = program.Browser().ListView().RowRect(0);
  EXPECT_TRUE(row.adjusted(0, -6, 0, 6).contains(program.Browser().RenameField()->geometry()));
}

TEST(Browser, TheOpenDocumentFollowsItsNewName) {
  Browsing program({"a.jpg"});
  program.OpenPhoto(program.Pictures().Child("a.jpg"));
  program.fileDialogs.files = {program.Pictures().Child("edited.brvPhoto")};
  program.Choose("RotateAndFlipRotate90");
  program.Choose("FileSave");
  program.Tool(ToolButtons::Browser().Identifier);
  Settle();
  ASSERT_TRUE(program.Shows({"a.jpg", "edited.brvPhoto"}));
  program.Browser().HighLightItem("edited.brvPhoto", false);
  program.Browser().setFocus();
  Key(program.Window(), Qt::Key_F2);
  Type(program.Window(), "best");
  Key(program.Window(), Qt::Key_Return);
  const FolderItem best = program.Pictures().Child("best.brvPhoto");
  EXPECT_TRUE(Until([&] { return program.Document().File == best; }));
  program.Tool(ToolButtons::Editor().Identifier);
  Settle();
  program.Choose("RotateAndFlipRotate90");
  program.Choose("FileSave");
  EXPECT_FALSE(program.Pictures().Child("edited.brvPhoto").Exists());
  EXPECT_THAT(program.dialogs.messages, testing::IsEmpty());
}

TEST(Browser, OrderOfTheMenuSurvivesARestart) {
  Browsing program({"a.jpg"});
  program.home.Write("Pictures/b.txt", std::string(200000, 'x'));
  program.home.Write("Pictures/c.txt", "x");
  ASSERT_TRUE(program.Shows({"a.jpg", "b.txt", "c.txt"}));
  program.Choose("ViewSortBySize");
  EXPECT_THAT(program.Names(), ElementsAre("c.txt", "a.jpg", "b.txt"));
  program.Choose("ViewSortDescending");
  EXPECT_THAT(program.Names(), ElementsAre("b.txt", "a.jpg", "c.txt"));
  program.Window().close();
  program.Start();
  EXPECT_TRUE(program.Shows({"b.txt", "a.jpg", "c.txt"}));
  EXPECT_TRUE(program.Menu("ViewSortBySize").isChecked());
}

TEST(Browser, TellsAssistiveToolsOfRowsPlacesAndPath) {
  Browsing program({"a.jpg", "b.jpg"});
  QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&program.Browser().IconView());
  ASSERT_EQ(grid->childCount(), 2);
  QAccessibleInterface* second = grid->child(1);
  EXPECT_EQ(second->text(QAccessible::Name), QStringLiteral("b.jpg"));
  EXPECT_TRUE(second->text(QAccessible::Description).startsWith(QStringLiteral("JPEG")));
  second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_THAT(program.Selected(), ElementsAre("b.jpg"));
  EXPECT_TRUE(second->state().selected);
  const QPoint middle = program.Grid().mapToGlobal(program.Cell(0));
  EXPECT_EQ(grid->childAt(middle.x(), middle.y()), grid->child(0));
  EXPECT_EQ(grid->indexOfChild(second), 1);
  Sidebar& bar = *program.Window().mySideBar;
  QAccessibleInterface* sources = QAccessible::queryAccessibleInterface(&bar);
  EXPECT_EQ(sources->child(0)->role(), QAccessible::Heading);
  sources->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_FALSE(bar.item[MainWindow::kDevicesSection]->ItemsVisible);
  QAccessibleInterface* path = QAccessible::queryAccessibleInterface(program.Window().myPathBar);
  QAccessibleInterface* up = path->child(path->childCount() - 2);
  up->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(program.Browser().CurrentFolder(), program.home.Item());
  // Back by key and by the button of a mouse.
  program.Browser().setFocus();
  Key(program.Window(), Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(program.Browser().CurrentFolder(), program.Pictures());
  QTest::mouseClick(program.Window().windowHandle(), Qt::ForwardButton, {},
                    program.Grid().mapTo(&program.Window(), QPoint(5, 5)));
  EXPECT_EQ(program.Browser().CurrentFolder(), program.home.Item());
}

TEST(Browser, DragsFilesOutWithAPictureAndTheirNumber) {
  Browsing program({"a.jpg", "b.jpg", "\xC3\xA4 c.jpg"});
  EXPECT_EQ(program.Browser().DragData(), nullptr);
  ASSERT_TRUE(Until([&] { return !program.Browser().Rows().Item(0)->image.isNull(); }));
  Click(program.Grid(), program.Cell(0));
  const QImage one = program.Browser().DragImage(1).toImage();
  program.Choose("EditSelectAll");
  const auto data = program.Browser().DragData();
  ASSERT_NE(data, nullptr);
  EXPECT_THAT(TakeDrag(*data).Files,
              testing::UnorderedElementsAre(program.Pictures().Child("a.jpg"),
                                            program.Pictures().Child("b.jpg"),
                                            program.Pictures().Child("\xC3\xA4 c.jpg")));
  const QImage three = program.Browser().DragImage(3).toImage();
  EXPECT_GT(three.width(), one.width());
  // The number stands on red, in the upper right corner.
  int red = 0;
  for (int y = 0; y < three.height() / 2; ++y) {
    for (int x = three.width() / 2; x < three.width(); ++x) {
      const QColor color = three.pixelColor(x, y);
      if (color.red() > 190 && color.green() < 70 && color.alpha() == 255) ++red;
    }
  }
  EXPECT_GT(red, 50);
}

TEST(Browser, DropsOnTheSidebarGoToThePlaceOrBecomeOne) {
  Browsing program({"a.jpg"});
  ASSERT_FALSE(program.home.Child("Documents").CreateAsFolder());
  ASSERT_FALSE(program.home.Child("Trips").CreateAsFolder());
  program.Start();
  Sidebar& bar = *program.Window().mySideBar;
  int documents = -1;
  int header = -1;
  for (int i = 0; i < bar.RowCount(); ++i) {
    if (bar.ItemAt(i) && bar.ItemAt(i)->Caption == "Documents") documents = i;
    if (!bar.ItemAt(i) && bar.Parent(i) == bar.item[MainWindow::kPlacesSection]) header = i;
  }
  ASSERT_GE(documents, 0);
  DropFile(*bar.viewport(), program.Pictures().Child("a.jpg"), bar.RowRect(documents).center());
  EXPECT_TRUE(Until([&] { return program.home.Child("Documents").Child("a.jpg").Exists(); }));
  EXPECT_TRUE(program.Pictures().Child("a.jpg").Exists());
  DropFile(*bar.viewport(), program.home.Child("Trips"), bar.RowRect(header).center());
  ExpectSoon([&] { return bar.item[MainWindow::kPlacesSection]->item.back()->Caption; }, "Trips");
}

TEST(Browser, HandsFilesToTheDesktopAndTheFavorites) {
  Browsing program({"a.jpg", "b.jpg"});
  program.home.Write("Pictures/notes.txt", "words");
  ASSERT_TRUE(program.Shows({"a.jpg", "b.jpg", "notes.txt"}));
  Click(program.Grid(), program.Cell(1));
  const std::vector<FolderItem> b{program.Pictures().Child("b.jpg")};
  program.Choose("FileShowInFinder");
  EXPECT_TRUE(Until([&] { return program.desktop.revealed == b; }));
  program.Choose("menuskFileShareSetasDesktopPicture");
  EXPECT_TRUE(Until([&] { return program.desktop.pictures == b; }));
  EXPECT_NE(program.desktop.askedOn, std::this_thread::get_id());
  program.desktop.takesPictures = false;
  program.Choose("menuskFileShareSetasDesktopPicture");
  EXPECT_TRUE(Until([&] { return program.dialogs.messages.size() == 1U; }));
  program.Choose("FileAddToFavorites");
  program.Choose("FileAddToFavorites");
  Sidebar& bar = *program.Window().mySideBar;
  const auto& places = *bar.item[MainWindow::kPlacesSection];
  ASSERT_EQ(places.item.back()->Caption, "Favorites");
  Click(*bar.viewport(), bar.RowRect(bar.RowCount() - 1).center());
  ASSERT_TRUE(program.Shows({"b-1.jpg", "b.jpg"}));
  // A link opens what it leads to.
  program.Browser().ListIndex(1);
  program.Browser().setFocus();
  Key(program.Window(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(program.Document().Name, "b");
  program.Tool(ToolButtons::Browser().Identifier);
  Settle();
  program.Window().DisplayContainer(program.Pictures());
  program.Browser().HighLightItem("notes.txt", false);
  program.Window().EnableMenuItems();
  EXPECT_FALSE(program.Menu("menuskFileShareSetasDesktopPicture").isEnabled());
}

TEST(Browser, ChangesFromOutsideShow) {
  Browsing program({"beach.jpg", "Sunny Beach.jpg", "hill.jpg"});
  Click(program.Grid(), program.Cell(1));
  const std::string kept = program.Selected().front();
  program.Photo("Pictures/arrived.jpg", 64, 48);
  ASSERT_TRUE(Until([&] { return program.Browser().Count() == 4; }));
  EXPECT_THAT(program.Selected(), ElementsAre(kept));
  EXPECT_FALSE(program.Pictures().Child("hill.jpg").Delete());
  EXPECT_TRUE(Until([&] { return program.Browser().Count() == 3; }));
}

TEST(Browser, AFolderFromOutsideShowsAndThePhotoInWorkStays) {
  Browsing program({"a.jpg"});
  const FolderItem trip = program.Pictures().Child("Trip");
  ASSERT_FALSE(trip.CreateAsFolder());
  program.app->OpenDocument(trip);
  EXPECT_TRUE(Until([&] { return program.Browser().CurrentFolder() == trip; }));
  program.OpenPhoto(program.Pictures().Child("a.jpg"));
  program.Choose("RotateAndFlipRotate90");
  program.dialogs.answers = {Answer::kCancel};
  program.app->OpenDocument(program.Pictures());
  EXPECT_TRUE(Until([&] { return program.dialogs.answers.empty(); }));
  EXPECT_EQ(program.Document().Name, "a");
}

TEST(Browser, AFolderThatVanishesGivesWayToTheOneAround) {
  Browsing program({"a.jpg"});
  const FolderItem inner = program.Pictures().Child("Trip").Child("Day 1");
  ASSERT_FALSE(inner.CreateAsFolder());
  program.Window().DisplayContainer(inner);
  ASSERT_TRUE(Until([&] { return program.Listed(inner); }));
  ASSERT_FALSE(program.Pictures().Child("Trip").DeleteFolder());
  EXPECT_TRUE(Until([&] { return program.Browser().CurrentFolder() == program.Pictures(); }));
}

TEST(Browser, MenusNameWhatTheyActOnAndForgetItAgain) {
  Browsing program({"a & b.jpg", "c.jpg"});
  const auto open = [&] { Q_EMIT program.Window().Menu().Submenu("EditMenu").aboutToShow(); };
  Click(program.Grid(), program.Cell(0));
  program.Choose("EditCopy");
  open();
  EXPECT_EQ(program.Menu("EditCopy").text(), QStringLiteral("&Copy \"a && b.jpg\""));
  EXPECT_EQ(program.Menu("EditPaste").text(), QStringLiteral("&Paste \"a && b.jpg\""));
  program.Choose("EditSelectAll");
  EXPECT_EQ(program.Menu("EditCopy").text(), QStringLiteral("&Copy 2 Items"));
  program.OpenPhoto(program.Pictures().Child("c.jpg"));
  open();
  EXPECT_EQ(program.Menu("EditPaste").text(), QStringLiteral("&Paste"));
  EXPECT_EQ(program.Menu("EditCopy").text(), QStringLiteral("&Copy"));
}

TEST(Browser, BrokenFilesAndLinksLeaveTheWindowAlive) {
  Browsing program({"a.jpg"});
  program.home.Write("Pictures/empty.jpg", "");
  // Forty gigabytes, it says.
  program.home.Write("Pictures/huge.bmp",
                     Bytes("42 4D 36 00 00 00 00 00 00 00 36 00 00 00 28 00 00 00 A0 86 01 00"
                           "A0 86 01 00 01 00 20 00 00 00 00 00 00 00 00 00 13 0B 00 00 13 0B"
                           "00 00 00 00 00 00 00 00 00 00"));
  program.home.Write("Pictures/\xE9.jpg", "no photo");
  ASSERT_TRUE(
      FolderitemExtensions::MakeAlias(program.Pictures(), program.Pictures().Child("loop")));
  ASSERT_TRUE(FolderitemExtensions::MakeAlias(program.home.Child("gone"),
                                              program.Pictures().Child("broken")));
  ASSERT_TRUE(Until([&] { return program.Browser().Count() == 6; }));
  // The photo among them has its thumbnail, the others were tried.
  ASSERT_TRUE(Until([&] {
    const BrowserRows& rows = program.Browser().Rows();
    int tried = 0;
    for (int i = 0; i < rows.Count(); ++i) {
      const std::string name = rows.Name(i);
      const auto entry = rows.Item(i);
      tried += name == "a.jpg" && !entry->image.isNull();
      tried += (name == "empty.jpg" || name == "huge.bmp") && entry->HasNoThumbnail;
    }
    return tried == 3;
  }));
  program.dialogs.answers = {Answer::kAction};
  program.Browser().HighLightItem("broken", false);
  program.Browser().setFocus();
  Key(program.Window(), Qt::Key_Return);
  Settle();
  ASSERT_EQ(program.dialogs.questions.size(), 1U);
  EXPECT_TRUE(Until([&] { return program.Browser().Count() == 5; }));
  program.Browser().HighLightItem("huge.bmp", false);
  program.Choose("FileQuickLook");
  QuickLookWindow& look = *program.Window().QuickLook();
  ExpectSoon([&] { return look.windowTitle().toStdString(); }, "huge.bmp");
  // Nothing of it can be read: its icon, which is square.
  ASSERT_TRUE(Until([&] {
    return !look.Loading() && look.PictureRect().width() == look.PictureRect().height();
  }));
  look.close();
  program.Browser().setFocus();
  program.Browser().HighLightItem("loop", false);
  Key(program.Window(), Qt::Key_Return);
  EXPECT_EQ(program.Browser().CurrentFolder(), program.Pictures());
  program.Browser().HighLightItem("empty.jpg", false);
  Key(program.Window(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(program.dialogs.messages.size(), 1U);
  EXPECT_EQ(program.Window().DisplayPane, MainWindow::kBrowserPane);
}

TEST(IconGrid, CellsEdgesAndNarrowViews) {
  IconGrid grid;
  grid.Width = 600;
  grid.Height = 300;
  grid.Count = 10;
  // Cells of 168 x 168: three in a row.
  EXPECT_EQ(grid.IconsPerRow(), 3);
  EXPECT_EQ(grid.IndexAt(14, 10), 0);
  EXPECT_EQ(grid.IndexAt(14 + 168, 10 + 168), 0);
  EXPECT_EQ(grid.IndexAt(14 + 169, 10), 1);
  EXPECT_EQ(grid.IndexAt(14 + 3 * 168 + 1, 10), -1);
  EXPECT_EQ(grid.IndexAt(5, 5), -1);
  EXPECT_EQ(grid.TotalHeight(), 4 * 168 + 20);
  for (int i = 0; i < grid.Count; ++i) {
    const IconGrid::Cell cell = grid.At(i);
    EXPECT_EQ(grid.IndexAt(cell.x + 84, cell.y + 84), i);
  }
  EXPECT_EQ(grid.ScrollTo(0), 0);
  grid.Scroll = grid.ScrollTo(9);
  EXPECT_GE(grid.At(9).y, 0);
  EXPECT_LE(grid.At(9).y + grid.CellHeight(), grid.Height);
  grid.Width = 50;
  EXPECT_EQ(grid.IconsPerRow(), 1);
  grid.Count = 0;
  EXPECT_EQ(grid.Maximum(), 0);
}

}  // namespace
}  // namespace brivolant::test
