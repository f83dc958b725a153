// SPDX-License-Identifier: MIT
// What is done with files in the browser: that nothing is lost by it, and that it is taken back.
#include <QApplication>
#include <QDesktopServices>
#include <QLineEdit>
#include <QProcess>
#include <QTest>
#include <QTextBrowser>
#include <QUrl>
#include <atomic>
#include <thread>

#include "BrowsingHelpers.h"
#include "app/commands/ToolButtons.h"
#include "browser/ui/ColumnPreview.h"
#include "browser/ui/Sidebar.h"
#include "files/FolderitemExtensions.h"
#include "kit/DesktopServices.h"
#include "kit/ifkPathBar.h"
#include "kit/ifkSearchField.h"
#include "kit/ifkSlider.h"
#include "platform/files/FileAddress.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Types a new name for the one that is selected.
void Rename(Browsing& program, const std::string& from, const std::string& to) {
  program.Browser().setFocus();
  program.Browser().HighLightItem(from, false);
  program.Browser().BeginRename();
  QLineEdit* field = program.Browser().RenameField();
  ASSERT_NE(field, nullptr);
  field->setText(QString::fromStdString(to));
  Key(program.Window(), Qt::Key_Return);
  Settle();
}

TEST(FileWork, ALinkDoesNotTakeTheNameOfItsPhoto) {
  Browsing program({"photo.jpg"});
  const FolderItem photo = program.Pictures().Child("photo.jpg");
  const std::string bytes = ReadFile(photo).value();
  ASSERT_TRUE(FolderitemExtensions::MakeAlias(photo, program.Pictures().Child("link.jpg")));
  ASSERT_TRUE(program.Shows({"link.jpg", "photo.jpg"}));
  Rename(program, "link.jpg", "photo.jpg");
  EXPECT_EQ(program.dialogs.messages.size(), 1U);
  EXPECT_FALSE(photo.Alias());
  EXPECT_EQ(ReadFile(photo), bytes);
  EXPECT_TRUE(program.Pictures().Child("link.jpg").Alias());
  // Nor does a second name of the file itself.
  std::filesystem::create_hard_link(photo.Path(), program.Pictures().Child("second.jpg").Path());
  ASSERT_TRUE(program.Shows({"link.jpg", "photo.jpg", "second.jpg"}));
  Rename(program, "second.jpg", "photo.jpg");
  EXPECT_EQ(program.dialogs.messages.size(), 2U);
  EXPECT_TRUE(program.Pictures().Child("second.jpg").Exists());
}

TEST(FileWork, ADropIsACopyAndSaysSo) {
  Browsing program({"a.jpg"});
  const FolderItem outside = program.Photo("b.jpg", 64, 48);
  ASSERT_FALSE(program.home.Child("Documents").Child("x").CreateAsFolder());
  program.Start();
  ASSERT_TRUE(program.Shows({"a.jpg"}));
  Sidebar& bar = *program.Window().mySideBar;
  int documents = -1;
  for (int i = 0; i < bar.RowCount(); ++i) {
    if (bar.ItemAt(i) && bar.ItemAt(i)->Caption == "Documents") documents = i;
  }
  ASSERT_GE(documents, 0);
  bool taken = false;
  const QPoint free(program.Grid().width() - 5, program.Grid().height() - 5);
  EXPECT_EQ(DropToMove(program.Grid(), {outside}, free, taken), Qt::CopyAction);
  EXPECT_TRUE(taken);
  EXPECT_TRUE(program.Shows({"a.jpg", "b.jpg"}));
  EXPECT_EQ(DropToMove(*bar.viewport(), {outside}, bar.RowRect(documents).center(), taken),
            Qt::CopyAction);
  EXPECT_TRUE(Until([&] { return program.home.Child("Documents").Child("b.jpg").Exists(); }));
  program.Choose("ViewAsList");
  QWidget& list = *program.Browser().ListView().viewport();
  const FolderItem third = program.Photo("c.jpg", 64, 48);
  EXPECT_EQ(DropToMove(list, {third}, {50, list.height() - 5}, taken), Qt::CopyAction);
  EXPECT_TRUE(program.Shows({"a.jpg", "b.jpg", "c.jpg"}));
  program.OpenPhoto(outside);
  EXPECT_EQ(DropToMove(program.Display(), {third}, {50, 50}, taken), Qt::CopyAction);
  Settle();
}

TEST(FileWork, ASlipWithinTheFolderCopiesNothing) {
  Browsing program({"a.jpg", "b.jpg"});
  const FolderItem outside = program.Photo("c.jpg", 64, 48);
  bool taken = false;
  const QPoint free(program.Grid().width() - 5, program.Grid().height() - 5);
  DropToMove(program.Grid(), {program.Pictures().Child("a.jpg"), outside}, free, taken);
  // What lay elsewhere comes; what lies here stays one.
  EXPECT_TRUE(Until([&] { return program.Pictures().Child("c.jpg").Exists(); }));
  program.Finish();
  EXPECT_TRUE(program.Shows({"a.jpg", "b.jpg", "c.jpg"}));
  // Pasted, it is wanted twice.
  program.Browser().HighLightItem("a.jpg", false);
  program.Choose("EditCopy");
  program.Choose("EditPaste");
  EXPECT_TRUE(program.Shows({"a-1.jpg", "a.jpg", "b.jpg", "c.jpg"}));
}

TEST(FileWork, WhatIsSaidBesideAPhotoGoesWithIt) {
  Browsing program({"a.jpg", "b.jpg"});
  const auto there = [&](const char* name) { return program.Pictures().Child(name).Exists(); };
  program.home.Write("Pictures/a.jpg.xmp", "said of a");
  Rename(program, "a.jpg", "c.jpg");
  program.Finish();
  EXPECT_TRUE(there("c.jpg") && there("c.jpg.xmp") && !there("a.jpg.xmp"));
  program.Choose("EditUndo");
  program.Finish();
  EXPECT_TRUE(there("a.jpg") && there("a.jpg.xmp"));
  // Somebody else's is never replaced, nor left with a stranger.
  program.home.Write("Pictures/d.jpg.xmp", "of nobody");
  Rename(program, "a.jpg", "d.jpg");
  program.Finish();
  EXPECT_EQ(program.dialogs.messages.size(), 1U);
  EXPECT_TRUE(there("a.jpg") && there("a.jpg.xmp") && !there("d.jpg"));
  program.Browser().HighLightItem("a.jpg", false);
  program.Choose("FileMoveToTrash");
  program.Finish();
  EXPECT_FALSE(there("a.jpg") || there("a.jpg.xmp"));
  program.Choose("EditUndo");
  program.Finish();
  EXPECT_EQ(ReadFile(program.Pictures().Child("a.jpg.xmp")), "said of a");
  EXPECT_TRUE(there("a.jpg"));
  // Another extension leaves the short name of a raw file as it is.
  program.Photo("Pictures/e.cr2", 64, 48);
  program.home.Write("Pictures/e.xmp", "said of e");
  ASSERT_TRUE(Until([&] {
    const auto names = program.Names();
    return std::find(names.begin(), names.end(), "e.cr2") != names.end();
  }));
  Rename(program, "e.cr2", "e.CR2");
  program.Finish();
  EXPECT_TRUE(there("e.CR2"));
  EXPECT_EQ(ReadFile(program.Pictures().Child("e.xmp")), "said of e");
  // Another photo has the name when it is to come back: what is said of the first stays with it.
  program.Browser().HighLightItem("a.jpg", false);
  program.Choose("FileMoveToTrash");
  program.Finish();
  program.Photo("Pictures/a.jpg", 64, 48);
  ASSERT_TRUE(program.Shows({"a.jpg", "b.jpg", "d.jpg.xmp"}) || there("a.jpg"));
  program.Choose("EditUndo");
  program.Finish();
  EXPECT_FALSE(there("a.jpg.xmp"));
}

TEST(FileWork, ACopyOfWhichSomethingWasSaidSinceStaysWithIt) {
  Browsing program({"a.jpg"});
  const auto there = [&](const char* name) { return program.Pictures().Child(name).Exists(); };
  const FolderItem one = program.Photo("one.jpg", 64, 48);
  const FolderItem two = program.Photo("two.jpg", 64, 48);
  const FolderItem three = program.Photo("three.jpg", 64, 48);
  program.home.Write("one.jpg.xmp", "said");
  program.home.Write("two.jpg.xmp", "said");
  program.Window().CopyFilesInto({one, two, three}, program.Pictures());
  program.Finish();
  ASSERT_TRUE(Until([&] { return there("one.jpg.xmp") && there("two.jpg.xmp"); }));
  program.home.Write("Pictures/two.jpg.xmp", "said since");
  program.home.Write("Pictures/three.jpg.xmp", "said since");
  program.Choose("EditUndo");
  program.Finish();
  EXPECT_FALSE(there("one.jpg") || there("one.jpg.xmp"));
  EXPECT_TRUE(there("two.jpg") && there("two.jpg.xmp"));
  EXPECT_TRUE(there("three.jpg") && there("three.jpg.xmp"));
}

TEST(FileWork, CopiesAreTakenBackUnlessTheyWereChanged) {
  Browsing program({"a.jpg"});
  const FolderItem one = program.Photo("one.jpg", 64, 48);
  const FolderItem two = program.Photo("two.jpg", 64, 48);
  program.Window().CopyFilesInto({one, two}, program.Pictures());
  program.Finish();
  ASSERT_TRUE(program.Shows({"a.jpg", "one.jpg", "two.jpg"}));
  ExpectSoon([&] { return program.Selected(); }, ElementsAre("one.jpg", "two.jpg"));
  program.home.Write("Pictures/two.jpg", "worked on since");
  program.Choose("EditUndo");
  EXPECT_TRUE(program.Shows({"a.jpg", "two.jpg"}));
  EXPECT_EQ(ReadFile(program.Pictures().Child("two.jpg")), "worked on since");
  EXPECT_EQ(program.dialogs.messages.size(), 1U);
  EXPECT_TRUE(one.Exists() && two.Exists());
  // In the trash, not gone.
  EXPECT_TRUE(program.home.Child("data/Trash/files/one.jpg").Exists());
}

TEST(FileWork, NamesThatDifferInCaseAreTwo) {
  Browsing program({"a.jpg", "A.jpg"});
  const FolderItem outside = program.Photo("b.jpg", 64, 48);
  program.home.Write("Pictures/B.JPG", "another");
  ASSERT_TRUE(Until([&] { return program.Browser().Count() == 3; }));
  program.Browser().HighLightItem("a.jpg", false);
  EXPECT_THAT(program.Selected(), ElementsAre("a.jpg"));
  program.Window().CopyFilesInto({outside}, program.Pictures());
  program.Finish();
  ASSERT_TRUE(Until([&] { return program.Browser().Count() == 4; }));
  ExpectSoon([&] { return program.Selected(); }, ElementsAre("b.jpg"));
  program.Browser().setFocus();
  Key(program.Window(), Qt::Key_Delete);
  program.Finish();
  EXPECT_EQ(ReadFile(program.Pictures().Child("B.JPG")), "another");
  EXPECT_FALSE(program.Pictures().Child("b.jpg").Exists());
}

TEST(FileWork, AFolderThatVanishesLeavesTheEditorAlone) {
  Browsing program({"a.jpg"});
  const FolderItem trip = program.Pictures().Child("Trip");
  ASSERT_FALSE(trip.CreateAsFolder());
  program.Window().DisplayContainer(trip);
  ASSERT_TRUE(Until([&] { return program.Listed(trip); }));
  program.OpenPhoto(program.Pictures().Child("a.jpg"));
  program.Choose("RotateAndFlipRotate90");
  ASSERT_FALSE(trip.DeleteFolder());
  ASSERT_TRUE(Until([&] { return program.Browser().CurrentFolder() == program.Pictures(); }));
  Settle();
  EXPECT_EQ(program.Window().DisplayPane, MainWindow::kEditorPane);
  EXPECT_THAT(program.dialogs.questions, IsEmpty());
  EXPECT_EQ(program.Document().Name, "a");
}

TEST(FileWork, AnotherFolderShowsNoPreviewOfTheOneBefore) {
  Browsing program({"a.jpg"});
  ASSERT_FALSE(program.Pictures().Child("Trip").CreateAsFolder());
  ASSERT_TRUE(program.Shows({"Trip", "a.jpg"}));
  program.Choose("ViewAsColumns");
  ColumnPreview& preview = program.Browser().previewCanvas();
  Click(program.Grid(), program.Cell(1));
  ASSERT_TRUE(Until([&] { return !preview.Shown().isNull(); }));
  program.Window().DisplayContainer(program.Pictures().Child("Trip"));
  EXPECT_TRUE(preview.Shown().isNull());
  EXPECT_THAT(preview.columnPreviewDisplayData(), IsEmpty());
}

TEST(FileWork, ResultsOfASearchFollowWhatIsDoneWithThem) {
  Browsing program({"a.jpg"});
  for (const char* name : {"beach 1.jpg", "beach 2.jpg", "beach 3.jpg"})
    program.Photo(name, 40, 30);
  program.Window().mySpotlightSearch.Roots = {program.home.Item()};
  program.Window().browserSearchField->Menu[0].Checked = false;
  program.Window().browserSearchField->Menu[1].Checked = true;
  program.Window().browserSearchField->Text("beach");
  ASSERT_TRUE(program.Shows({"beach 1.jpg", "beach 2.jpg", "beach 3.jpg"}));
  program.Browser().setFocus();
  program.Browser().HighLightItem("beach 2.jpg", false);
  Key(program.Window(), Qt::Key_Delete);
  EXPECT_TRUE(program.Shows({"beach 1.jpg", "beach 3.jpg"}));
  program.Finish();
  Rename(program, "beach 3.jpg", "hill.jpg");
  EXPECT_TRUE(program.Shows({"beach 1.jpg", "hill.jpg"}));
  EXPECT_TRUE(program.Browser().Rows().Item(1)->File().Exists());
  // Elsewhere and back: what has gone does not come back.
  program.Window().DisplayContainer(program.Pictures());
  ASSERT_TRUE(program.Shows({"a.jpg"}));
  program.Window().myPathBar->Goback();
  EXPECT_TRUE(program.Shows({"beach 1.jpg", "hill.jpg"}));
  program.Choose("EditUndo");
  EXPECT_TRUE(program.Shows({"beach 1.jpg", "beach 3.jpg"}));
  program.Choose("EditUndo");
  EXPECT_TRUE(program.Shows({"beach 1.jpg", "beach 2.jpg", "beach 3.jpg"}));
  EXPECT_TRUE(program.home.Child("beach 2.jpg").Exists());
}

/// Keeps the addresses that are handed to the desktop. The toolkit calls a slot for them, and this
/// class has one that takes an address.
class Launches final : public QTextBrowser {
 public:
  Launches() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "setSource"); }
  ~Launches() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
  std::vector<std::string> addresses;

 protected:
  void doSetSource(const QUrl& url, QTextDocument::ResourceType) override {
    addresses.push_back(url.toEncoded().toStdString());
  }
};

TEST(FileWork, NamesThatAreNoTextGoOutAsTheyAre) {
  Browsing program({"a.jpg"});
  Launches launches;
  const FolderItem odd = program.home.Write("Pictures/caf\xE9.txt", "words");
  ASSERT_TRUE(Until([&] { return program.Browser().Count() == 2; }));
  program.Browser().SelectFiles({odd});
  const auto data = program.Browser().DragData();
  ASSERT_NE(data, nullptr);
  EXPECT_THAT(TakeDrag(*data).Files, ElementsAre(odd));
  program.Choose("EditCopy");
  program.Choose("EditPaste");
  ASSERT_TRUE(Until([&] { return program.Pictures().Child("caf\xE9-1.txt").Exists(); }));
  program.Browser().SelectFiles({odd});
  program.Browser().setFocus();
  Key(program.Window(), Qt::Key_Return);
  Settle();
  EXPECT_THAT(launches.addresses, ElementsAre(FileAddress::Of(odd)));
}

TEST(FileWork, PackagesOpenAsFilesAndWithAltAsFolders) {
  Browsing program({});
  Launches launches;
  const FolderItem package = program.Pictures().Child("Tool");
  ASSERT_FALSE(package.Child("Contents").CreateAsFolder());
  ASSERT_TRUE(FolderitemExtensions::MakeAlias(package, program.Pictures().Child("link")));
  ASSERT_TRUE(program.Shows({"link", "Tool"}));
  for (const int row : {0, 1}) {
    DoubleClick(program.Grid(), program.Cell(row));
    Settle();
  }
  EXPECT_THAT(launches.addresses, ElementsAre(FileAddress::Of(package), FileAddress::Of(package)));
  for (const int row : {0, 1}) {
    QTest::mouseDClick(program.Window().windowHandle(), Qt::LeftButton, Qt::AltModifier,
                       program.Grid().mapTo(&program.Window(), program.Cell(row)));
    EXPECT_TRUE(Until([&] { return program.Listed(package); })) << row;
    program.Window().DisplayContainer(program.Pictures());
    ASSERT_TRUE(program.Shows({"link", "Tool"}));
  }
  EXPECT_EQ(launches.addresses.size(), 2U);
}

TEST(Sidebar, APlaceThatIsGoneOpensNothing) {
  Browsing program({"a.jpg"});
  const FolderItem trip = program.home.Child("Trip");
  ASSERT_FALSE(trip.CreateAsFolder());
  Sidebar& bar = *program.Window().mySideBar;
  bar.item[MainWindow::kPlacesSection]->Add("Trip", "Folder", trip);
  bar.updateList();
  const QPoint row = bar.RowRect(bar.RowCount() - 1).center();
  Click(*bar.viewport(), row);
  ASSERT_TRUE(Until([&] { return program.Listed(trip); }));
  program.Window().DisplayContainer(program.Pictures());
  ASSERT_TRUE(program.Shows({"a.jpg"}));
  ASSERT_FALSE(trip.Delete());
  Click(*bar.viewport(), row);
  EXPECT_EQ(program.Browser().CurrentFolder(), program.Pictures());
  EXPECT_EQ(bar.item[MainWindow::kPlacesSection]->item.back()->Caption, "Trip");
  // It is what is selected: the keys mean it, and no place beside it.
  EXPECT_EQ(bar.ItemAt(bar.ListIndex())->Caption, "Trip");
  const std::size_t places = bar.item[MainWindow::kPlacesSection]->item.size();
  bar.setFocus();
  Key(program.Window(), Qt::Key_Delete);
  EXPECT_EQ(bar.item[MainWindow::kPlacesSection]->item.size(), places - 1);
  EXPECT_NE(bar.item[MainWindow::kPlacesSection]->item.back()->Caption, "Trip");
}

TEST(Sidebar, EjectingWaitsElsewhere) {
  Browsing program({"a.jpg"});
  std::atomic<bool> go = false;
  std::thread::id thread;
  program.desktop.ejects = [&](const FolderItem&) {
    thread = std::this_thread::get_id();
    while (!go) std::this_thread::yield();
    return std::string("busy");
  };
  Sidebar& bar = *program.Window().mySideBar;
  SideBarCollection& devices = *bar.item[MainWindow::kDevicesSection];
  ASSERT_GE(devices.Count(), 2);
  const auto row = [&] {
    for (int i = 0; i < bar.RowCount(); ++i) {
      if (bar.ItemAt(i) == devices.item[1]) return i;
    }
    return -1;
  };
  const auto button = [&] {
    const QRect rect = bar.RowRect(row());
    return QPoint(rect.right() - 16, rect.center().y());
  };
  // What cannot be taken out has no button: the click chooses it.
  devices.item[1]->Ejectable = false;
  Click(*bar.viewport(), button());
  ASSERT_TRUE(Until([&] { return program.Listed(FolderItem("/")); }));
  devices.item[1]->Ejectable = true;
  Click(*bar.viewport(), button());
  // The window goes on meanwhile.
  program.Window().DisplayContainer(program.Pictures());
  ASSERT_TRUE(program.Shows({"a.jpg"}));
  EXPECT_THAT(program.dialogs.messages, IsEmpty());
  go = true;
  ExpectSoon([&] { return program.dialogs.messages.size(); }, 1U);
  EXPECT_NE(thread, std::this_thread::get_id());
}

/// Drags with the display's own pointer, as a hand does: the program has a loop of its own then.
void DragWithPointer(const QPoint& from, const QPoint& to) {
  const auto point = [](const QPoint& at) {
    return QStringList{QStringLiteral("mousemove"), QString::number(at.x()),
                       QString::number(at.y()), QStringLiteral("sleep"), QStringLiteral("0.1")};
  };
  QStringList hand = point(from);
  hand << QStringLiteral("mousedown") << QStringLiteral("1");
  // It begins with a few pixels, and is over its target before the button is let go.
  for (const QPoint& at : {from + QPoint(4, 4), from + QPoint(12, 12), to - QPoint(2, 2), to}) {
    hand << point(at);
  }
  hand << QStringLiteral("mouseup") << QStringLiteral("1");
  QProcess xdotool;
  xdotool.start(QStringLiteral("xdotool"), hand);
  EXPECT_TRUE(Until([&] { return xdotool.state() == QProcess::NotRunning; }));
  EXPECT_EQ(xdotool.exitCode(), 0);
  Settle();
}

TEST(Dragging, FromTheBrowserIntoAFolderCopiesAndASlipWithinAFolderDoesNothing) {
  if (QGuiApplication::platformName() != QLatin1String("xcb")) {
    GTEST_SKIP() << "needs a display with a pointer";
  }
  Browsing program({"a.jpg"});
  ASSERT_FALSE(program.Pictures().Child("Trip").CreateAsFolder());
  ASSERT_TRUE(program.Shows({"Trip", "a.jpg"}));
  const auto at = [&](const QPoint& p) { return program.Grid().mapToGlobal(p); };
  int holds = 0;
  const auto holding = std::exchange(program.Browser().Holding, [&] {
    ++holds;
    return std::make_shared<int>(0);
  });
  const QPoint blank = program.Cell(1) + QPoint(0, program.Grid().height() / 2);
  DragWithPointer(at(program.Cell(1)), at(blank));
  EXPECT_EQ(holds, 1);
  EXPECT_EQ(program.Names(), (std::vector<std::string>{"Trip", "a.jpg"}));
  program.Browser().Holding = holding;
  DragWithPointer(at(program.Cell(1)), at(program.Cell(0)));
  EXPECT_TRUE(Until([&] { return program.Pictures().Child("Trip").Child("a.jpg").Exists(); }));
  EXPECT_TRUE(program.Pictures().Child("a.jpg").Exists());
  EXPECT_EQ(program.Names(), (std::vector<std::string>{"Trip", "a.jpg"}));
}

TEST(Copying, ThatIsCancelledLeavesWholeFilesThatUndoTakesBack) {
  Browsing program({"a.jpg"});
  ASSERT_FALSE(program.home.Child("many").CreateAsFolder());
  std::vector<FolderItem> files;
  for (int i = 0; i < 2000; ++i) {
    files.push_back(program.home.Write("many/photo " + std::to_string(i) + ".jpg", "one photo"));
  }
  program.Window().CopyFilesInto(files, program.Pictures());
  Jobs& work = program.Window().FileWork();
  EXPECT_TRUE(work.CanCancel());
  // Once some are there.
  while (work.Busy() && !program.Pictures().Child("photo 2.jpg").Exists()) {
  }
  work.Cancel();
  Settle();
  const std::vector<FolderItem> copied = program.Pictures().Children();
  EXPECT_GT(copied.size(), 3U);
  EXPECT_LT(copied.size(), files.size());
  for (const FolderItem& file : copied) {
    EXPECT_TRUE(file.Name() == "a.jpg" || ReadFile(file) == "one photo") << file.Name();
  }
  program.Choose("EditUndo");
  EXPECT_TRUE(program.Shows({"a.jpg"}));
}

TEST(IconSizes, EachViewKeepsItsOwn) {
  Browsing program({"a.jpg"});
  const auto set = [&](int value) {
    program.Window().iconSize->value(value);
    program.Window().iconSize->ValueChanged();
  };
  set(200);
  program.Choose("ViewAsList");
  set(1);
  EXPECT_EQ(program.Browser().IconSize(), 1);
  program.Window().close();
  program.Start();
  ASSERT_TRUE(program.Shows({"a.jpg"}));
  ASSERT_EQ(program.Browser().Mode(), multiViewFileBrowser::kListView);
  EXPECT_EQ(program.Browser().IconSize(), 1);
  program.Choose("ViewAsIcons");
  EXPECT_EQ(program.Browser().IconSize(), 200);
  // A larger size gets pictures of its own.
  set(64);
  program.Photo("Pictures/large.jpg", 1600, 1200);
  ASSERT_TRUE(program.Shows({"a.jpg", "large.jpg"}));
  const auto width = [&] { return program.Browser().Thumbnail(program.Browser().item(1)).width(); };
  ASSERT_TRUE(Until([&] { return width() > 0; }));
  EXPECT_LT(width(), 256);
  set(256);
  EXPECT_TRUE(Until([&] { return width() >= 256; }));
}

}  // namespace
}  // namespace brivolant::test
