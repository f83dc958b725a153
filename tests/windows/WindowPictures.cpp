// SPDX-License-Identifier: MIT
// Pictures of the windows, written under the build folder for eyes to look at; the tests assert
// what a machine can see of them.
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPixmap>
#include <QTest>

#include "WindowHelpers.h"
#include "app/AboutBox.h"
#include "app/PreferencesWindow.h"
#include "app/browse/EditInfoSheet.h"
#include "app/browse/PasteEditsSheet.h"
#include "app/browse/QuickLookWindow.h"
#include "app/commands/ToolButtons.h"
#include "app/core/Translations.h"
#include "app/edit/CropEditor.h"
#include "app/edit/OneClickEditor.h"
#include "app/info/FloatingMetaData.h"
#include "app/info/InfoWindows.h"
#include "browser/ui/ColumnPreview.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "effects/text/EffectModuleText.h"
#include "kit/Appearance.h"
#include "kit/ifkColors.h"
#include "kit/ifkFontComboBox.h"
#include "kit/templateSelector.h"
#include "metadata/MetadataWriter.h"
#include "platform/services/SharedFolders.h"

namespace brivolant::test {
namespace {

QImage Take(QWidget& window, const QString& name) {
  Settle();
  const QPixmap pixmap = window.grab();
  const QString folder = QStringLiteral(BRIVOLANT_PICTURES);
  QDir().mkpath(folder);
  const QString scale = QString::number(pixmap.devicePixelRatio());
  EXPECT_TRUE(pixmap.save(folder + QLatin1Char('/') + name + QStringLiteral("-") + scale +
                          QStringLiteral("x.png")));
  EXPECT_EQ(pixmap.size(), window.size() * window.devicePixelRatioF());
  return pixmap.toImage();
}

/// A photo that is worth looking at: the sample of the project.
FolderItem Sample(Program& program) {
  const FolderItem file = program.home.Child("sample.jpg");
  const std::string command =
      std::string(BRIVOLANT_SAMPLE) + " '" + file.ShellPath() + "' 1500 1000 >/dev/null";
  EXPECT_EQ(std::system(command.c_str()), 0);  // NOLINT: a tool of this build
  return file;
}

TEST(WindowPictures, OfTheEditorInBothAppearances) {
  Program program;
  program.OpenPhoto(Sample(program));
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.62));
  for (const auto& [scheme, name] :
       {std::pair{Appearance::kLight, "editor-light"}, {Appearance::kDark, "editor-dark"}}) {
    program.app->AppearanceChoice(scheme);
    const QImage image = Take(program.Window(), QString::fromLatin1(name));
    const QRgb panel = image.pixel(image.width() - 60 * image.devicePixelRatio(),
                                   image.height() - 40 * image.devicePixelRatio());
    EXPECT_EQ(qGray(panel) < 128, scheme == Appearance::kDark);
  }
  // Every pixel of the preview is a pixel of the screen: nothing was scaled on its way.
  const QImage shown = program.Display().grab().toImage();
  const QRect rect = program.Display().PreviewRect();
  const Picture preview = program.Shown();
  ASSERT_EQ(rect.size(), QSize(preview.Width(), preview.Height()));
  int differing = 0;
  for (int y = 5; y < rect.height() - 5; y += 7) {
    for (int x = 5; x < rect.width() - 5; x += 7) {
      const QRgb pixel = shown.pixel(rect.x() + x, rect.y() + y);
      const Color color = preview.At(x, y);
      differing += pixel != qRgb(color.Red, color.Green, color.Blue);
    }
  }
  EXPECT_EQ(differing, 0);
  program.Choose("ViewBeforeAfter");
  Take(program.Window(), QStringLiteral("before-after"));
  program.Choose("ViewBeforeAfter");
  program.SelectRow("Levels");
  Take(program.Window(), QStringLiteral("levels"));
  program.app->AppearanceChoice(Appearance::kLight);
  program.Tool(ToolButtons::Browser().Identifier);
}

TEST(WindowPictures, OfTextAndTheMenuOfFonts) {
  Program program;
  program.OpenPhoto(Sample(program));
  program.SelectRow("Text");
  Type(program.Window(), "Summer");
  auto& text = dynamic_cast<EffectModuleText&>(program.Module("Text"));
  text.myTextEngine.item.at(0)->TextColor = kWhite;
  text.myTextEngine.Add().Text("Hello");
  text.myTextEngine.CurrentTextItem->Caption = 1;
  text.myTextEngine.CurrentTextItem->Top = 0.1F;
  text.myTextEngine.SelectAll();
  program.Render();
  program.Panel().update();
  Take(program.Window(), QStringLiteral("text"));
  ifkFontComboBoxMenu& menu = ifkFontComboBoxMenu::Instance();
  QTimer::singleShot(100, [&] {
    menu.resize(menu.width(), 400);
    Take(menu, QStringLiteral("fonts"));
    menu.hide();
  });
  const std::string kept = menu.Popup(10, 10, 180, "DejaVu Sans Mono");
  EXPECT_EQ(kept, "DejaVu Sans Mono");
}

TEST(WindowPictures, OfThePhotoCloseUp) {
  Program program;
  program.OpenPhoto(Sample(program));
  const auto take = [&](const char* name) {
    EXPECT_TRUE(Until([&] { return program.Window().Zoom().Sharp(); }));
    return Take(program.Window(), QString::fromLatin1(name));
  };
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.62));
  program.Choose("ViewActualSize");
  take("close-100");
  EXPECT_EQ(program.Display().PreviewRect().size(), QSize(1500, 1000));
  program.Choose("ViewBeforeAfter");
  take("close-beside");
  program.Choose("ViewBeforeAfter");
  program.SelectRow("Text");
  Type(program.Window(), "Summer");
  program.Render();
  while (program.Display().View().Scale() < 4) program.Choose("ViewZoomIn");
  take("close-text-400");
  program.Choose("EditCrop");
  program.Choose("ViewActualSize");
  program.Display().Look([](PhotoView& view) { view.Pan({500, 400}); });
  take("close-crop-100");
}

TEST(WindowPictures, OfTheStylesAndTheirEditor) {
  Program program;
  program.OpenPhoto(Sample(program));
  templateSelector& bar = *program.Window().myStylesBar;
  Click(bar, {40, templateSelector::kTop + 4 * templateSelector::kRow + 8});
  Click(bar, bar.TileRect(1).center());
  Move(bar, bar.TileRect(3).center());
  Take(program.Window(), QStringLiteral("styles"));
  EXPECT_EQ(bar.SelectedItem, 1);
  OneClickWonder style = program.app->Styles().item(1)->Clone();
  oneClickEditor editor(program.app->Desk(), &program.Window());
  editor.Fill(style, {});
  editor.show();
  Take(editor, QStringLiteral("style-editor"));
  EXPECT_EQ(editor.name->text().toStdString(), style.Name());
}

TEST(WindowPictures, OfTheCropAndItsPalette) {
  Program program;
  program.app->AppearanceChoice(Appearance::kDark);
  program.OpenPhoto(Sample(program));
  program.Tool(ToolButtons::Crop().Identifier);
  const QRect rect = program.Display().PreviewRect();
  const double ratio = program.Display().devicePixelRatioF();
  const auto at = [&](double x, double y) {
    return QPointF((rect.x() + x * rect.width()) / ratio, (rect.y() + y * rect.height()) / ratio)
        .toPoint();
  };
  Press(program.Display(), at(0.5, 0.5));
  Move(program.Display(), at(0.52, 0.52));
  Take(program.Window(), QStringLiteral("crop"));
  // Outside the rectangle the photo is darkened.
  const QImage& shown = program.Display().Buffer();
  EXPECT_LT(qGray(shown.pixel(rect.center().x(), rect.top() + 8)), 128);
  Release(program.Display(), at(0.52, 0.52));
  Take(*program.Window().Cropper(), QStringLiteral("crop-palette"));
  program.Window().CropMethod();
  program.app->AppearanceChoice(Appearance::kLight);
}

TEST(WindowPictures, OfTheSheetForPastedEdits) {
  Program program;
  program.OpenPhoto(Sample(program));
  program.Window().Session().Copied =
      std::make_shared<const CopiedEdits>(program.Window().Session().Edits());
  ManyEdits::Order order;
  order.Edits = *program.Window().Session().Copied;
  order.Items.resize(12);
  for (const Appearance::Scheme scheme : {Appearance::kLight, Appearance::kDark}) {
    program.app->AppearanceChoice(scheme);
    PasteEditsSheet sheet(program.Window(), order, program.app->Preferences());
    sheet.setAttribute(Qt::WA_DeleteOnClose, false);
    sheet.open();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&sheet));
    Take(sheet, QStringLiteral("paste-edits") +
                    (scheme == Appearance::kDark ? QStringLiteral("-dark") : QString()));
  }
  program.app->AppearanceChoice(Appearance::kLight);
}

TEST(WindowPictures, OfWhatIsKnownOfAFile) {
  Program program;
  const FolderItem photo = Sample(program);
  using Act = MetadataChange::Act;
  ASSERT_EQ(
      MetadataWriter::Write(photo,
                            std::vector<MetadataChange>{
                                {Act::kSet, MetadataBlock::kTiff, "010F", "A maker"},
                                {Act::kSet, MetadataBlock::kTiff, "013B", "Anna Beispiel"},
                                {Act::kSet, MetadataBlock::kExif, "829A", "1/250"},
                                {Act::kSet, MetadataBlock::kExif, "9003", "2009:03:04 14:05:06"},
                                {Act::kSet, MetadataBlock::kGps, "0002", "51 30 26.4"},
                                {Act::kSet, MetadataBlock::kGps, "0004", "0 7 39.9"},
                                {Act::kAdd, MetadataBlock::kIptc, "25", "sea"},
                                {Act::kAdd, MetadataBlock::kIptc, "25", "sky"},
                                {Act::kSet, MetadataBlock::kXmp, "dc:title", "A title"}}),
      "");
  for (const Appearance::Scheme scheme : {Appearance::kLight, Appearance::kDark}) {
    program.app->AppearanceChoice(scheme);
    program.app->Desk().ShowInfo({photo});
    FloatingMetaData& window = *program.app->Info()->Open().front();
    ASSERT_TRUE(Until([&] {
      const QTreeWidgetItem* first = window.mdc->topLevelItem(0);
      return first != nullptr && !first->isHidden();
    }));
    const QString mode = scheme == Appearance::kDark ? QStringLiteral("-dark") : QString();
    Take(window, QStringLiteral("get-info") + mode);
    window.close();
    Settle();
    ManyInfos::Common common;
    common.Said = {{MetadataField::kTitle, {"A title"}}, {MetadataField::kCreator, {}}};
    common.Differing = {MetadataField::kCreator};
    common.Words = {"sea", "sky"};
    common.Beside = 1;
    common.Photos = {photo, photo};
    EditInfoSheet sheet(program.Window(), common.Photos, common);
    sheet.setAttribute(Qt::WA_DeleteOnClose, false);
    sheet.Taken().setCurrentIndex(2);
    sheet.open();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&sheet));
    Take(sheet, QStringLiteral("edit-info") + mode);
  }
  program.app->AppearanceChoice(Appearance::kLight);
  // In the language whose words are longest.
  ASSERT_TRUE(
      LoadTranslations(otherSharedComponents::ResourcesFolder().Child("translations"), "de"));
  program.app->Desk().ShowInfo({photo});
  FloatingMetaData& window = *program.app->Info()->Open().front();
  ASSERT_TRUE(Until([&] {
    const QTreeWidgetItem* first = window.mdc->topLevelItem(0);
    return first != nullptr && !first->isHidden();
  }));
  Take(window, QStringLiteral("get-info-german"));
  ManyInfos::Common common;
  common.Words = {"sea"};
  common.Photos = {photo};
  EditInfoSheet sheet(program.Window(), common.Photos, common);
  sheet.setAttribute(Qt::WA_DeleteOnClose, false);
  sheet.Taken().setCurrentIndex(2);
  sheet.open();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&sheet));
  Take(sheet, QStringLiteral("edit-info-german"));
  InstallTranslations(nullptr);
}

TEST(WindowPictures, OfTheBrowserAndTheSmallWindows) {
  Program program;
  ASSERT_FALSE(program.home.Child("Pictures").CreateAsFolder());
  program.Start();
  multiViewFileBrowser& browser = *program.Window().imageBrowser;
  Take(program.Window(), QStringLiteral("browser-empty"));
  const FolderItem sample = Sample(program);
  ASSERT_FALSE(sample.CopyFileTo(program.home.Child("Pictures").Child("Evening by the lake.jpg")));
  ASSERT_FALSE(program.home.Child("Pictures").Child("Summer").CreateAsFolder());
  program.Photo("Pictures/tall.jpg", 200, 320);
  program.home.Write("Pictures/notes.txt", "words");
  program.Window().MenuAction("ViewShowHiddenFiles");
  program.Window().MenuAction("ViewShowHiddenFiles");
  const auto ready = [&] {
    return browser.Count() == 4 && !browser.Rows().Item(1)->image.isNull() &&
           !browser.Rows().Item(3)->image.isNull();
  };
  ASSERT_TRUE(Until(ready));
  browser.ListIndex(1);
  for (const Appearance::Scheme scheme : {Appearance::kLight, Appearance::kDark}) {
    program.app->AppearanceChoice(scheme);
    const QString name = scheme == Appearance::kDark ? QStringLiteral("-dark") : QString();
    program.Choose("ViewAsIcons");
    Take(program.Window(), QStringLiteral("browser-icons") + name);
    // The photo is there, and not an icon in its place.
    const QImage shown = browser.grab().toImage();
    EXPECT_GT(shown.width(), 0);
    program.Choose("ViewAsList");
    Take(program.Window(), QStringLiteral("browser-list") + name);
    program.Choose("ViewAsColumns");
    ASSERT_TRUE(
        Until([&] { return browser.previewCanvas().columnPreviewDisplayData().size() > 1; }));
    Take(program.Window(), QStringLiteral("browser-columns") + name);
  }
  program.app->AppearanceChoice(Appearance::kLight);
  program.Choose("FileQuickLook");
  QuickLookWindow& look = *program.Window().QuickLook();
  const auto read = [](const QuickLookWindow& window) {
    return !window.Loading() && window.PictureRect().width() != window.PictureRect().height();
  };
  ASSERT_TRUE(Until([&] { return read(look); }));
  Take(look, QStringLiteral("quick-look"));
  look.FullScreenMode(true);
  ASSERT_TRUE(Until([&] { return read(*look.FullScreenWindow()); }));
  Take(*look.FullScreenWindow(), QStringLiteral("quick-look-full-screen"));
  look.FullScreenWindow()->FullScreenMode(false);
  look.close();
  program.app->ShowPreferences();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(program.app->PreferencesShown()));
  Take(*program.app->PreferencesShown(), QStringLiteral("preferences"));
  program.app->ShowAboutBox();
  Take(*program.app->AboutShown(), QStringLiteral("about"));
}

}  // namespace
}  // namespace brivolant::test
