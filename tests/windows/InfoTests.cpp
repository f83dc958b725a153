// SPDX-License-Identifier: MIT
// What is known of files, in windows: read, filtered, edited, saved; and given to many at once.
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>

#include "BrowsingHelpers.h"
#include "app/browse/EditInfoSheet.h"
#include "app/browse/InfoController.h"
#include "app/info/FloatingMetaData.h"
#include "app/info/InfoWindows.h"
#include "kit/ifkSearchField.h"
#include "metadata/MetadataWriter.h"
#include "metadata/PhotoFacts.h"
#include "platform/services/Preferences.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Act = MetadataChange::Act;

struct Informing : Browsing {
  Informing() : Browsing({"a.jpg", "b.jpg"}) {
    Browser().setFocus();
    Say(a, {{Act::kSet, MetadataBlock::kTiff, "013B", "Anna Beispiel"},
            {Act::kAdd, MetadataBlock::kIptc, "25", "sea"},
            {Act::kAdd, MetadataBlock::kIptc, "25", "sky"}});
  }
  static void Say(const FolderItem& file, const std::vector<MetadataChange>& changes) {
    EXPECT_EQ(MetadataWriter::Write(file, changes), "");
  }
  void Select(const std::vector<FolderItem>& files) {
    Browser().SelectFiles(files);
    EXPECT_TRUE(Until([&] { return Browser().SelectedCount() == static_cast<int>(files.size()); }));
    Window().EnableMenuItems();
  }
  std::vector<FloatingMetaData*> Windows() { return app->Info()->Open(); }
  /// The window of a file, read and filled.
  FloatingMetaData& Info(const FolderItem& file) {
    Select({file});
    Choose("FileGetInfo");
    return Filled(file);
  }
  FloatingMetaData& Filled(const FolderItem& file) {
    FloatingMetaData* found = nullptr;
    // Its picture comes last.
    EXPECT_TRUE(Until([&] {
      for (FloatingMetaData* window : Windows()) {
        const QTreeWidgetItem* first = window->mdc->topLevelItem(0);
        if (window->File() == file && first != nullptr && !first->isHidden()) found = window;
      }
      return found != nullptr;
    }));
    // Keys go to the window that is active.
    found->activateWindow();
    EXPECT_TRUE(Until([&] { return found->isActiveWindow(); }));
    return *found;
  }
  static QTreeWidgetItem* Row(const FloatingMetaData& window, const std::string& label,
                              const std::string& value = {}) {
    for (int i = 0; i < window.mdc->topLevelItemCount(); ++i) {
      QTreeWidgetItem* section = window.mdc->topLevelItem(i);
      for (int j = 0; j < section->childCount(); ++j) {
        QTreeWidgetItem* row = section->child(j);
        if (row->text(0).toStdString() != label) continue;
        if (value.empty() || row->text(1).toStdString() == value) return row;
      }
    }
    return nullptr;
  }
  /// Clicks the value of a row, types, and presses Return.
  static void EditRow(FloatingMetaData& window, QTreeWidgetItem* row, const std::string& text) {
    ASSERT_NE(row, nullptr);
    window.mdc->scrollToItem(row);
    const QRect place = window.mdc->visualItemRect(row);
    Click(*window.mdc->viewport(), {window.mdc->columnWidth(0) + 20, place.center().y()});
    auto* edit = qobject_cast<QLineEdit*>(window.focusWidget());
    ASSERT_NE(edit, nullptr) << "the row is not edited";
    edit->selectAll();
    Type(window, text);
    Key(window, Qt::Key_Return);
    Settle();
  }
  static int ShownRows(const FloatingMetaData& window) {
    int rows = 0;
    for (int i = 0; i < window.mdc->topLevelItemCount(); ++i) {
      const QTreeWidgetItem* section = window.mdc->topLevelItem(i);
      for (int j = 0; j < section->childCount(); ++j) {
        if (!section->isHidden() && !section->child(j)->isHidden()) ++rows;
      }
    }
    return rows;
  }
  EditInfoSheet& Sheet() {
    EXPECT_TRUE(Until([&] { return Window().Infos().Sheet() != nullptr; }));
    return *Window().Infos().Sheet();
  }
  void Accept(QDialog& sheet) {
    QPointer<QDialog> open = &sheet;
    sheet.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
    EXPECT_TRUE(Until([&] { return open.isNull(); }));
    Window().FileWork().Finish();
    Finish();
  }
  FolderItem a = Pictures().Child("a.jpg");
  FolderItem b = Pictures().Child("b.jpg");
};

TEST(Info, ShowsAFileAndTakesEdits) {
  Informing program;
  FloatingMetaData& window = program.Info(program.a);
  EXPECT_EQ(window.windowTitle(), QStringLiteral("a.jpg Info[*]"));
  EXPECT_NE(Informing::Row(window, "Where:"), nullptr);
  EXPECT_NE(Informing::Row(window, "Dimensions:"), nullptr);
  const std::string before = ReadFile(program.a).value();
  Informing::EditRow(window, Informing::Row(window, "Artist:"), "Ben Muster");
  EXPECT_NE(Informing::Row(window, "Artist:", "Ben Muster"), nullptr);
  EXPECT_TRUE(window.isWindowModified());
  Informing::EditRow(window, Informing::Row(window, "Keywords:", "sky"), "heaven");
  EXPECT_NE(Informing::Row(window, "Keywords:", "sea"), nullptr);
  EXPECT_EQ(ReadFile(program.a).value(), before) << "nothing is written unasked";
  Key(window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(Until([&] { return !window.Dirty() && !window.Work().Busy(); }));
  EXPECT_FALSE(window.isWindowModified());
  EXPECT_EQ(PhotoFacts::Of(program.a).Creator, "Ben Muster");
  EXPECT_THAT(PhotoFacts::Of(program.a).Keywords, ElementsAre("sea", "heaven"));
  Key(window, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_NE(Informing::Row(window, "Keywords:", "sky"), nullptr);
  EXPECT_TRUE(window.isWindowModified()) << "what is written goes back too";
  // What is being typed when the window closes is meant.
  QTreeWidgetItem* row = Informing::Row(window, "Artist:");
  window.mdc->setCurrentItem(row, 1);
  window.mdc->EditCurrent();
  Type(window, "Carla");
  program.dialogs.answers = {Answer::kCancel};
  window.close();
  EXPECT_EQ(program.dialogs.questions.size(), 1U);
  EXPECT_NE(Informing::Row(window, "Artist:", "Carla"), nullptr);
  EXPECT_FALSE(Informing::Row(window, "Dimensions:")->flags().testFlag(Qt::ItemIsEditable));
}

TEST(Info, AsksBeforeEditsAreLost) {
  Informing program;
  FloatingMetaData& window = program.Info(program.a);
  Informing::EditRow(window, Informing::Row(window, "Artist:"), "Ben");
  program.dialogs.answers = {Answer::kCancel};
  window.close();
  EXPECT_TRUE(window.isVisible());
  // The end of the program asks as well, and waits for what is saved.
  program.dialogs.answers = {Answer::kCancel};
  program.Window().close();
  EXPECT_TRUE(program.Window().isVisible());
  EXPECT_TRUE(window.isVisible());
  program.dialogs.answers = {Answer::kAction};
  program.Window().close();
  EXPECT_TRUE(Until([&] { return !program.Window().isVisible(); }));
  EXPECT_EQ(PhotoFacts::Of(program.a).Creator, "Ben");
  EXPECT_EQ(program.dialogs.questions.size(), 3U);
}

TEST(Info, ClosesWithoutSavingWhenToldSo) {
  Informing program;
  FloatingMetaData& window = program.Info(program.a);
  Informing::EditRow(window, Informing::Row(window, "Artist:"), "Ben");
  program.dialogs.answers = {Answer::kAlternate};
  window.close();
  ExpectSoon([&] { return program.Windows().size(); }, 0U);
  EXPECT_EQ(PhotoFacts::Of(program.a).Creator, "Anna Beispiel");
  EXPECT_TRUE(program.Window().isVisible());
  // The next field is edited by the click that ends the one before.
  FloatingMetaData& again = program.Info(program.a);
  QTreeWidgetItem* artist = Informing::Row(again, "Artist:");
  again.mdc->setCurrentItem(artist, 1);
  again.mdc->EditCurrent();
  Type(again, "Carla");
  Informing::EditRow(again, Informing::Row(again, "Keywords:", "sea"), "lake");
  EXPECT_NE(Informing::Row(again, "Artist:", "Carla"), nullptr);
  EXPECT_NE(Informing::Row(again, "Keywords:", "lake"), nullptr);
}

TEST(Info, WhatIsNotSavedOutlivesAnEndFromOutside) {
  Informing program;
  {
    FloatingMetaData& window = program.Info(program.a);
    Informing::EditRow(window, Informing::Row(window, "Artist:"), "Ben");
    // What is being typed counts too.
    window.mdc->setCurrentItem(Informing::Row(window, "Keywords:", "sea"), 1);
    window.mdc->EditCurrent();
    Type(window, "lake");
  }
  program.app->KeepForNextStart();
  program.Start();
  EXPECT_EQ(PhotoFacts::Of(program.a).Creator, "Anna Beispiel");
  (void)program.app->OfferRecovery();
  ASSERT_TRUE(
      Until([&] { return program.Windows().size() == 1 && program.Windows()[0]->Dirty(); }));
  FloatingMetaData& window = *program.Windows()[0];
  EXPECT_EQ(window.File(), program.a);
  EXPECT_NE(Informing::Row(window, "Artist:", "Ben"), nullptr);
  EXPECT_NE(Informing::Row(window, "Keywords:", "lake"), nullptr);
  EXPECT_NE(Informing::Row(window, "Keywords:", "sky"), nullptr);
  // The photo may have another name by then.
  program.Select({program.a});
  const FolderItem c = program.Pictures().Child("c.jpg");
  program.Browser().BeginRename();
  program.Browser().RenameField()->setText(QStringLiteral("c.jpg"));
  Key(program.Window(), Qt::Key_Return);
  ASSERT_TRUE(Until([&] { return window.File() == c; }));
  EXPECT_EQ(window.windowTitle(), QStringLiteral("c.jpg Info[*]"));
  window.Save();
  ASSERT_TRUE(Until([&] { return !window.Dirty() && !window.Writing(); }));
  EXPECT_EQ(PhotoFacts::Of(c).Creator, "Ben");
  EXPECT_THAT(PhotoFacts::Of(c).Keywords, ElementsAre("lake", "sky"));
  program.Start();
  (void)program.app->OfferRecovery();
  Settle();
  EXPECT_THAT(program.Windows(), IsEmpty()) << "nothing is left";
  // Given up is given up.
  FloatingMetaData& last = program.Info(c);
  Informing::EditRow(last, Informing::Row(last, "Artist:"), "Carla");
  program.dialogs.answers = {Answer::kAlternate};
  last.close();
  ExpectSoon([&] { return program.Windows().size(); }, 0U);
  program.Start();
  (void)program.app->OfferRecovery();
  Settle();
  EXPECT_THAT(program.Windows(), IsEmpty());
}

TEST(Info, KeepsToItsFileWhateverBecomesOfIt) {
  Informing program;
  ASSERT_FALSE(program.Pictures().Child("in").CreateAsFolder());
  const FolderItem inside = program.Photo("Pictures/in/c.jpg", 64, 48);
  Informing::Say(inside, {{Act::kSet, MetadataBlock::kTiff, "013B", "Anna"}});
  program.app->Info()->Show({inside});
  FloatingMetaData& window = program.Filled(inside);
  Informing::EditRow(window, Informing::Row(window, "Artist:"), "Ben");
  // The folder has another name.
  const FolderItem folder = program.Pictures().Child("in");
  const FolderItem renamed = program.Pictures().Child("out");
  std::filesystem::rename(folder.Path(), renamed.Path());
  program.app->Info()->Follow({{folder, renamed}});
  EXPECT_EQ(window.File(), renamed.Child("c.jpg"));
  EXPECT_NE(Informing::Row(window, "Full Name:", "c.jpg"), nullptr);
  EXPECT_NE(Informing::Row(window, "Where:", window.File().ShellPath()), nullptr);
  // In the trash it takes no edits, and nobody else's name is its own.
  program.app->Info()->Follow({{window.File(), FolderItem()}});
  program.dialogs.messages.clear();
  window.Save();
  EXPECT_EQ(program.dialogs.messages.size(), 1U);
  EXPECT_TRUE(window.Dirty());
  EXPECT_EQ(PhotoFacts::Of(renamed.Child("c.jpg")).Creator, "Anna");
  program.app->Info()->Follow({{FolderItem(), window.File()}});
  program.app->KeepForNextStart();
  // Meanwhile another program says something else.
  Informing::Say(renamed.Child("c.jpg"), {{Act::kSet, MetadataBlock::kTiff, "013B", "Other"}});
  program.Start();
  (void)program.app->OfferRecovery();
  ASSERT_TRUE(Until([&] {
    return program.Windows().size() == 1 &&
           Informing::Row(*program.Windows()[0], "Artist:", "Other") != nullptr;
  }));
  EXPECT_FALSE(program.Windows()[0]->Dirty()) << "nothing is laid over what is newer";
}

TEST(Info, IsFilteredCopiedAndKeepsItsSections) {
  Informing program;
  FloatingMetaData& window = program.Info(program.a);
  const int all = Informing::ShownRows(window);
  window.Field->MyEditField().setFocus();
  Type(window, "keyw");
  EXPECT_EQ(Informing::ShownRows(window), 2);
  Key(window, Qt::Key_Escape);
  EXPECT_EQ(Informing::ShownRows(window), all);
  EXPECT_TRUE(window.isVisible());
  window.mdc->setCurrentItem(Informing::Row(window, "Artist:"), 1);
  window.mdc->setFocus();
  Key(window, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Anna Beispiel"));
  EXPECT_EQ(window.mdc->Settings().size(), 15U);
  window.mdc->Visible(MetadataSection::kIptc, false);
  const std::string settings = window.Settings();
  EXPECT_EQ(settings.size(), 23U);
  window.mdc->Settings(std::string(14, '\1'));
  EXPECT_EQ(window.Settings(), settings) << "of a wrong length";
  window.close();
  Settle();
  EXPECT_THAT(program.Windows(), IsEmpty());
  FloatingMetaData& again = program.Info(program.a);
  EXPECT_FALSE(again.mdc->Visible(MetadataSection::kIptc));
  EXPECT_TRUE(again.mdc->Visible(MetadataSection::kTiff));
  Informing::Row(again, "Keywords:")->parent()->setExpanded(true);
  EXPECT_TRUE(again.mdc->Visible(MetadataSection::kIptc));
}

TEST(Info, OffersTheTagsThatAFileLacks) {
  Informing program;
  FloatingMetaData& window = program.Info(program.a);
  const auto offers = [&](const std::string& tag) {
    const auto items = window.mdc->CreateItemsMenu();
    return std::ranges::any_of(items, [&](const MenuItem& item) { return item.Tag == tag; });
  };
  EXPECT_FALSE(offers("TIF013B")) << "it is there";
  EXPECT_TRUE(offers("TIF010D"));
  EXPECT_TRUE(offers("IPT25")) << "it repeats";
  window.mdc->handleItemsMenu("IPT105");
  auto* edit = window.mdc->findChild<QLineEdit*>();
  ASSERT_NE(edit, nullptr);
  Type(window, "News");
  Key(window, Qt::Key_Return);
  Settle();
  EXPECT_NE(Informing::Row(window, "Headline:", "News"), nullptr);
  EXPECT_FALSE(offers("IPT105"));
  bool saved = false;
  window.Save([&](bool done) { saved = done; });
  EXPECT_TRUE(Until([&] { return saved; }));
  ImageMetaData data;
  data.ReadFile(program.a);
  EXPECT_EQ(data.IPTCData->StringValue("105"), "News");
  // A file without blocks gets them first.
  FloatingMetaData& bare = program.Info(program.b);
  bare.mdc->handleItemsMenu("AddIPTC");
  bare.mdc->handleItemsMenu("IPT25");
  ASSERT_NE(bare.mdc->findChild<QLineEdit*>(), nullptr);
  Type(bare, "boat");
  Key(bare, Qt::Key_Return);
  Settle();
  EXPECT_NE(Informing::Row(bare, "Keywords:", "boat"), nullptr);
}

TEST(Info, OpensForTheFolderTheSelectionAndTheOpenPhoto) {
  Informing program;
  program.Select({program.a, program.b});
  program.Choose("FileGetInfo");
  ExpectSoon([&] { return program.Windows().size(); }, 2U);
  program.Choose("FileGetInfo");
  EXPECT_EQ(program.Windows().size(), 2U) << "a file has one window";
  const QPoint step = program.Windows()[1]->pos() - program.Windows()[0]->pos();
  EXPECT_GT(step.x(), 0);
  EXPECT_GT(step.y(), 0);
  for (FloatingMetaData* window : program.Windows()) window->close();
  Settle();
  program.Browser().SelectFiles({});
  program.Choose("FileGetInfo");
  ExpectSoon([&] { return program.Windows().size(); }, 1U);
  EXPECT_EQ(program.Windows()[0]->File(), program.Pictures());
  program.Windows()[0]->close();
  program.OpenPhoto(program.a);
  program.Choose("FileGetInfo");
  ExpectSoon([&] { return program.Windows().size(); }, 1U);
  EXPECT_EQ(program.Windows()[0]->File(), program.a) << "until it is saved";
}

TEST(Info, OfManyPhotosIsGivenAtOnceAndTakenBack) {
  Informing program;
  Informing::Say(program.b, {{Act::kSet, MetadataBlock::kExif, "9003", "2009:03:04 23:30:00"},
                             {Act::kAdd, MetadataBlock::kXmp, "dc:subject", "sea"}});
  program.Select({program.a, program.b});
  program.Choose("FileEditInfo");
  EditInfoSheet& sheet = program.Sheet();
  EXPECT_EQ(sheet.Keywords().text(), QStringLiteral("sea")) << "what both have";
  EXPECT_EQ(sheet.Field(MetadataField::kCreator).text(), QString());
  EXPECT_EQ(sheet.Field(MetadataField::kCreator).placeholderText(),
            QStringLiteral("Different values"));
  sheet.Field(MetadataField::kTitle).setText(QStringLiteral("A title"));
  sheet.Keywords().setText(QStringLiteral("sun"));
  sheet.Rating().setCurrentIndex(sheet.Rating().findData(4));
  sheet.Position().setText(QStringLiteral("nowhere"));
  sheet.Taken().setCurrentIndex(2);
  sheet.Hours().setValue(1);
  sheet.accept();
  EXPECT_THAT(program.dialogs.messages, ElementsAre(HasSubstr("no place")));
  sheet.Position().setText(QStringLiteral("10, 20"));
  program.Accept(sheet);
  for (const FolderItem& file : {program.a, program.b}) {
    const PhotoFacts facts = PhotoFacts::Of(file);
    EXPECT_EQ(facts.Title, "A title");
    EXPECT_EQ(facts.Rating, 4);
    ASSERT_TRUE(facts.Where);
    EXPECT_NEAR(facts.Where->Longitude, 20, 1e-6);
  }
  EXPECT_THAT(PhotoFacts::Of(program.a).Keywords, ElementsAre("sky", "sun"));
  EXPECT_EQ(PhotoFacts::Of(program.a).Creator, "Anna Beispiel") << "what differed stays";
  EXPECT_EQ(PhotoFacts::Of(program.b).Taken->Text(), "2009-03-05 00:30:00");
  program.Window().EnableMenuItems();
  EXPECT_EQ(program.Menu("EditUndo").text(), QStringLiteral("&Undo Edit Info"));
  program.Choose("EditUndo");
  program.Window().FileWork().Finish();
  ExpectSoon([&] { return PhotoFacts::Of(program.b).Keywords; }, ElementsAre("sea"));
  EXPECT_EQ(PhotoFacts::Of(program.a).Title, "");
  EXPECT_FALSE(PhotoFacts::Of(program.a).Where);
}

}  // namespace
}  // namespace brivolant::test
