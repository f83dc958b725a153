// SPDX-License-Identifier: MIT
// The program as a whole: settings, menus, languages, one instance.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDirIterator>
#include <QLineEdit>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <QToolBar>
#include <QXmlStreamReader>
#include <atomic>
#include <csignal>
#include <map>
#include <thread>

#include "WindowHelpers.h"
#include "app/AboutBox.h"
#include "app/EndSignals.h"
#include "app/PreferencesWindow.h"
#include "app/SingleInstance.h"
#include "app/browse/QuickLookWindow.h"
#include "app/commands/Menus.h"
#include "app/commands/ToolButtons.h"
#include "app/core/Translations.h"
#include "effects/FindEffect.h"
#include "export/SaveAsCopy.h"
#include "kit/AnimationCore.h"
#include "kit/Appearance.h"
#include "kit/SvgIcon.h"
#include "kit/ifkSegmentView.h"
#include "metadata/TagCatalog.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/services/SharedFolders.h"
#include "support/LanguageTools.h"

namespace brivolant::test {
namespace {

TEST(Settings, OfTheUserAreSavedByClosingTheWindow) {
  Program program;
  program.Choose("EditPreferences");
  PreferencesWindow* window = program.app->PreferencesShown();
  ASSERT_NE(window, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
  window->activateWindow();
  window->contactName().setText(QStringLiteral("Ada Lens"));
  window->contactLink().setText(QStringLiteral("https://ada.example"));
  window->copyright().setText(QStringLiteral("2026 Ada"));
  window->copyright().setCursorPosition(0);
  Click(window->copyRightButton());
  window->eMailApp().setCurrentIndex(3);
  EXPECT_EQ(program.app->usersEmailApp, "Eudora");
  window->updateCheck().setCurrentIndex(2);
  window->appearance().setCurrentIndex(Appearance::kDark);
  EXPECT_TRUE(Appearance::IsDark());
  Key(*window, Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
  program.Start();
  EXPECT_EQ(program.app->usersFullName, "Ada Lens");
  EXPECT_EQ(program.app->ContactLink(), "https://ada.example");
  EXPECT_EQ(program.app->Copyright(),
            "\xC2\xA9"
            "2026 Ada");
  EXPECT_EQ(program.app->usersEmailApp, "Eudora");
  EXPECT_EQ(program.app->UpdateCheckPeriod(), 2);
  EXPECT_TRUE(Appearance::IsDark());
  program.app->AppearanceChoice(Appearance::kLight);
  EXPECT_FALSE(Appearance::IsDark());
  // A mail program that is none of the list shows the first.
  program.app->usersEmailApp = "Pigeon";
  program.app->ShowPreferences();
  EXPECT_EQ(program.app->PreferencesShown()->eMailApp().currentIndex(), 0);
}

TEST(Settings, OfTheWindowComeBack) {
  Program program;
  MainWindow& window = program.Window();
  window.setGeometry(120, 130, 900, 640);
  program.Choose("ViewIconOnly");
  program.Choose("ViewUseSmallSize");
  program.OpenPhoto(program.Photo("photo.jpg"));
  SegmentViewPiece* advanced = window.PreviewTitle->SegmentByTag("advanced");
  ASSERT_TRUE(advanced->Selected);
  const int narrow = program.Display().width();
  program.Choose("Viewadvanced");
  Settle();
  EXPECT_GT(program.Display().width(), narrow + 200);
  const std::string frame = window.Dimensions();
  EXPECT_TRUE(window.close());
  program.Start();
  EXPECT_EQ(program.Window().Dimensions(), frame);
  EXPECT_EQ(ToolButtons::DisplayMode(*program.Window().rbToolBar), 2);
  EXPECT_EQ(ToolButtons::DisplaySize(*program.Window().rbToolBar), 2);
  EXPECT_FALSE(program.Window().PreviewTitle->SegmentByTag("advanced")->Selected);
  program.Choose("ViewHideToolbar");
  EXPECT_FALSE(program.Window().rbToolBar->isVisible());
  program.Window().EnableMenuItems();
  EXPECT_EQ(program.Menu("ViewHideToolbar").text(), QStringLiteral("Show Toolbar"));
}

TEST(Menus, EveryItemHasATextAndShortcutsAreUnique) {
  Program program;
  std::map<QString, int> enabled;
  program.Window().EnableMenuItems();
  for (const auto& [name, action] : program.Window().Menu().Items()) {
    EXPECT_FALSE(action->text().isEmpty()) << name;
    EXPECT_FALSE(action->text().contains(QLatin1Char('<'))) << name;
    if (action->shortcut().isEmpty()) continue;
    // Two commands may share keys that no pane has both of.
    enabled[action->shortcut().toString()] += action->isEnabled() ? 1 : 0;
  }
  for (const auto& [keys, count] : enabled) EXPECT_LE(count, 1) << keys.toStdString();
  // Without a photo, what needs one is disabled.
  for (const char* name : {"FileSave", "EditCrop", "EditUndo", "ViewBeforeAfter", "ViewFullScreen",
                           "ViewBrowseMyPhotos", "FileSaveACopyAs"}) {
    EXPECT_FALSE(program.Menu(name).isEnabled()) << name;
  }
}

TEST(Menus, TheBrowserAndBackKeepsTheDirtyMark) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.Choose("RotateAndFlipRotate180");
  program.dialogs.answers = {Answer::kAlternate};
  program.Choose("ViewBrowseMyPhotos");
  Settle();
  EXPECT_EQ(program.Window().DisplayPane, MainWindow::kBrowserPane);
  EXPECT_FALSE(program.Window().isWindowModified());
  EXPECT_EQ(program.Menu("ViewBrowseMyPhotos").text(), QStringLiteral("Photo Editor"));
  program.Tool(ToolButtons::Editor().Identifier);
  Settle();
  EXPECT_EQ(program.Window().DisplayPane, MainWindow::kEditorPane);
  EXPECT_TRUE(program.Window().isWindowModified());
}

TEST(Menus, FullScreenShowsTheFinishedPictureUntilAKey) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.Choose("ViewFullScreen");
  QuickLookWindow* full = program.Window().FullScreen();
  ASSERT_NE(full, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(full));
  EXPECT_TRUE(full->isFullScreen());
  EXPECT_FALSE(program.app->progressWindowOpen);
  Key(*full, Qt::Key_Escape);
  EXPECT_FALSE(full->isVisible());
}

TEST(Menus, AboutSaysNameAndVersion) {
  Program program;
  program.Choose("HelpAboutappName");
  ASSERT_NE(program.app->AboutShown(), nullptr);
  EXPECT_EQ(program.app->AboutShown()->VersionLine(), QStringLiteral("version 1.0.0 (0)"));
  EXPECT_EQ(program.Menu("HelpAboutappName").text(), QStringLiteral("About Brivolant Photos..."));
}

TEST(Toolbar, EveryButtonHasItsOwnDrawing) {
  Program program;
  std::set<QByteArray> drawings;
  for (const auto* item :
       {&ToolButtons::Browser(), &ToolButtons::Editor(), &ToolButtons::Open(), &ToolButtons::Save(),
        &ToolButtons::SaveCopy(), &ToolButtons::Copy(), &ToolButtons::Rewind(),
        &ToolButtons::Crop(), &ToolButtons::Rotate(), &ToolButtons::Undo(),
        &ToolButtons::BeforeAfter(), &ToolButtons::Quillmere()}) {
    const QIcon icon = SvgIcon(QString::fromLatin1(item->Icon));
    ASSERT_FALSE(icon.isNull()) << item->Icon;
    // Twice the density gives twice the pixels, not an enlarged picture.
    const QImage image = icon.pixmap(QSize(24, 24), 2.0).toImage();
    ASSERT_EQ(image.size(), QSize(48, 48));
    QByteArray bytes(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    EXPECT_GT(bytes.size() - bytes.count('\0'), 200) << item->Icon;
    EXPECT_TRUE(drawings.insert(bytes).second) << item->Icon;
  }
}

/// What a start in another process does.
struct OtherStart {
  OtherStart(const FolderItem& folder, const std::vector<FolderItem>& files, int patience)
      : thread([=, this] {
          SingleInstance instance(folder, "program");
          role = instance.Begin(files, patience);
          holder = instance.Holder();
          done = true;
        }) {}
  ~OtherStart() { thread.join(); }
  OtherStart(const OtherStart&) = delete;
  OtherStart& operator=(const OtherStart&) = delete;
  SingleInstance::Role role = SingleInstance::Role::kAlone;
  pid_t holder = 0;
  std::atomic<bool> done = false;
  std::thread thread;
};

TEST(Instance, OneOwnsTheLockAndTheOthersHandTheirFilesOver) {
  using Role = SingleInstance::Role;
  constexpr int kLong = 30000;
  const TemporaryFolder folder;
  const FolderItem strange("/tmp/name with \xFF and \xC3\xA9.jpg");
  const auto start = [&](const std::vector<FolderItem>& files) {
    OtherStart other(folder.Item(), files, kLong);
    EXPECT_TRUE(Until([&] { return other.done.load(); }));
    return other.role;
  };
  {
    // One that has not got as far as listening, or hangs: nobody else begins.
    const FileLock starting = FileLock::OfOwner(folder.Child("program.lock"));
    SingleInstance late(folder.Item(), "program");
    EXPECT_EQ(late.Begin({strange}, 1), Role::kUnanswered);
    EXPECT_EQ(late.Holder(), getpid());
  }
  // A socket that a crash left is in nobody's way.
  folder.Write("program.socket", "");
  {
    SingleInstance owner(folder.Item(), "program");
    ASSERT_EQ(owner.Begin({}, 0), Role::kOwner);
    // What arrives before the window stands waits for it.
    EXPECT_EQ(start({strange, FolderItem("/tmp/b.jpg")}), Role::kHandedOver);
    EXPECT_EQ(start({}), Role::kHandedOver);
    std::vector<std::vector<FolderItem>> arrived;
    owner.Serve([&](const std::vector<FolderItem>& files) { arrived.push_back(files); });
    ASSERT_EQ(arrived.size(), 2U);
    EXPECT_THAT(arrived[0], testing::ElementsAre(strange, FolderItem("/tmp/b.jpg")));
    EXPECT_TRUE(arrived[1].empty());
    EXPECT_EQ(start({strange}), Role::kHandedOver);
    EXPECT_EQ(arrived.size(), 3U);
  }
  EXPECT_EQ(start({}), Role::kOwner) << "the one before has ended";
  SingleInstance nowhere(folder.Child("no folder"), "program");
  EXPECT_EQ(nowhere.Begin({}, 0), Role::kAlone);
}

/// The program itself, in a process of its own, with a home of its own.
struct Process : QProcess {
  Process(const TemporaryFolder& home, const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString path = QString::fromStdString(home.Item().ShellPath());
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR"}) {
      environment.insert(QString::fromLatin1(name), path);
    }
    for (const char* name : {"CONFIG", "CACHE", "DATA", "STATE"}) {
      environment.remove(QStringLiteral("XDG_%1_HOME").arg(QLatin1String(name)));
    }
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    setProcessEnvironment(environment);
    start(QStringLiteral(BRIVOLANT_PROGRAM), arguments);
    EXPECT_TRUE(waitForStarted());
  }
  ~Process() override {
    kill();
    waitForFinished();
  }
  bool Ended() const { return state() == QProcess::NotRunning; }
};

TEST(Instance, OfManyStartsAtOnceOneRunsAndASignalEndsItInOrder) {
  const TemporaryFolder home;
  std::vector<std::unique_ptr<Process>> starts;
  for (int i = 0; i < 4; ++i) starts.push_back(std::make_unique<Process>(home, QStringList()));
  const auto running = [&] {
    return std::count_if(starts.begin(), starts.end(), [](const auto& p) { return !p->Ended(); });
  };
  ASSERT_TRUE(Until([&] { return running() <= 1; }));
  ASSERT_EQ(running(), 1);
  for (const auto& process : starts) {
    if (process->Ended()) {
      EXPECT_EQ(process->exitCode(), 0);
      continue;
    }
    process->terminate();
    ASSERT_TRUE(Until([&] { return process->Ended(); }));
    EXPECT_EQ(process->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process->exitCode(), 0);
  }
}

TEST(Instance, MeasuringTouchesNobodysData) {
  const TemporaryFolder home;
  const std::array<EncodeImage, 1> image{{{TestPicture(64, 48), 0.9}}};
  ASSERT_EQ(EncodeImageFile(home.Child("photo.jpg"), "public.jpeg", image), "");
  Process process(home, {QStringLiteral("--measure-start"),
                         QString::fromStdString(home.Child("photo.jpg").ShellPath())});
  ASSERT_TRUE(Until([&] { return process.Ended(); }));
  EXPECT_EQ(process.exitCode(), 0);
  EXPECT_THAT(process.readAllStandardOutput().toStdString(), testing::HasSubstr("open_ms"));
  EXPECT_THAT(home.Names(), testing::ElementsAre("photo.jpg"));
}

TEST(Signals, AreEventsOfTheLoop) {
  int arrived = 0;
  {
    const EndSignals signals([&] { ++arrived; });
    for (const int number : {SIGTERM, SIGHUP, SIGINT}) {
      const int before = arrived;
      raise(number);
      EXPECT_EQ(arrived, before) << "nothing happens within the handler";
      EXPECT_TRUE(Until([&] { return arrived == before + 1; }));
    }
  }
  struct sigaction now {};
  sigaction(SIGTERM, nullptr, &now);
  EXPECT_EQ(now.sa_handler, SIG_DFL);
}

TEST(Copies, AreCancelledBetweenTwoEffects) {
  TestServices services;
  brivolantProcessorLite processor(EffectRegistry(), services.services);
  processor.Startup();
  for (const char* name : {"Brightness & Contrast", "Exposure", "Shadow & Highlight"}) {
    ModuleNamed(processor, name).Enabled(true);
  }
  const FolderItem target = services.folder.Child("copy.jpg");
  std::string error;
  std::vector<double> told;
  const SaveAsCopy::Job job{TestPicture(60, 40), {}, processor.StyleData(), target, "public.jpeg"};
  EXPECT_EQ(SaveAsCopy::Run(
                job, services.services,
                [&](double done) {
                  told.push_back(done);
                  return told.size() < 2;
                },
                error),
            SaveAsCopy::Outcome::kCancelled);
  EXPECT_FALSE(target.Exists());
  told.clear();
  EXPECT_EQ(SaveAsCopy::Run(
                job, services.services,
                [&](double done) {
                  told.push_back(done);
                  return true;
                },
                error),
            SaveAsCopy::Outcome::kDone);
  EXPECT_TRUE(target.Exists());
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
  EXPECT_EQ(told.size(), 4U);
}

/// Keys and English texts as the sources give them.
std::map<std::string, QString> TextsOfTheSources() {
  std::map<std::string, QString> texts;
  const QRegularExpression text(QStringLiteral(
      "\"([A-Za-z0-9]+\\.[kA-Z][A-Za-z0-9]*)\",\\s*((?:\"(?:[^\"\\\\]|\\\\.)*\"\\s*)+)"));
  // Every folder that is a library, but for the command line, which stays English.
  for (const QFileInfo& folder :
       QDir(QStringLiteral(BRIVOLANT_SOURCE)).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    QFile build(folder.filePath() + QStringLiteral("/CMakeLists.txt"));
    if (folder.fileName() == QLatin1String("cli") || !build.open(QIODevice::ReadOnly) ||
        !build.readAll().contains("brivolant_library(")) {
      continue;
    }
    QDirIterator files(folder.filePath(), {QStringLiteral("*.h"), QStringLiteral("*.cpp")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
      QFile file(files.next());
      EXPECT_TRUE(file.open(QIODevice::ReadOnly));
      auto found = text.globalMatch(QString::fromUtf8(file.readAll()));
      while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        texts[match.captured(1).toStdString()] = match.captured(2);
      }
    }
  }
  // What standards call their tags, and what numbers mean in them.
  const auto add = [&](std::string_view name) {
    texts["TagCatalog." + std::string(name)] = QString::fromStdString(std::string(name));
  };
  for (const auto catalog :
       {TagCatalog::Exif(), TagCatalog::Interoperability(), TagCatalog::Gps(), TagCatalog::Tiff(),
        TagCatalog::Iptc(), TagCatalog::Photoshop(), TagCatalog::Profile()}) {
    for (const CatalogTag& tag : catalog) add(tag.Name);
  }
  for (const auto values : {TagCatalog::ExifValues(), TagCatalog::TiffValues()}) {
    for (const CatalogValue& value : values) add(value.Text);
  }
  return texts;
}

/// The messages of a file of translations that say something, by their keys.
std::map<std::string, QString> TranslationsOf(const char* language) {
  std::map<std::string, QString> texts;
  QFile file(QStringLiteral(BRIVOLANT_SOURCE "/resources/translations/brivolant_%1.ts")
                 .arg(QLatin1String(language)));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  QXmlStreamReader xml(&file);
  std::string key;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    if (xml.name() == QLatin1String("message")) {
      key = xml.attributes().value(QLatin1String("id")).toString().toStdString();
    } else if (xml.name() == QLatin1String("translation") && xml.attributes().isEmpty()) {
      texts[key] = xml.readElementText();
    }
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  std::erase_if(texts, [](const auto& text) { return text.second.isEmpty(); });
  return texts;
}

/// The placeholders of a text, whatever their order and case.
std::multiset<QString> PlaceholdersOf(const QString& text) {
  std::multiset<QString> names;
  auto found = QRegularExpression(QStringLiteral("<[A-Za-z]+>")).globalMatch(text);
  while (found.hasNext()) names.insert(found.next().captured().toLower());
  return names;
}

TEST(Languages, GermanTranslatesEveryTextOfTheProgram) {
  const FolderItem folder = otherSharedComponents::ResourcesFolder().Child("translations");
  EXPECT_EQ(LanguageTools::UsersLangeuageID(), 0);
  EXPECT_FALSE(LoadTranslations(folder, "xx"));
  ASSERT_TRUE(LoadTranslations(folder, "de_AT"));
  EXPECT_EQ(LanguageTools::UsersLangeuageID(), 3);
  EXPECT_EQ(Menus::kFileOpen.Text(),
            "&\xC3\x96"
            "ffnen...");
  const auto texts = TextsOfTheSources();
  EXPECT_GT(texts.size(), 250U);
  EXPECT_TRUE(texts.contains("SaveAsCopy.kSaving")) << "the smallest library";
  // What is shown does not tell: the reworded English lies beneath every language.
  const auto translations = TranslationsOf("de");
  for (const auto& [key, english] : texts) {
    const auto german = translations.find(key);
    if (german == translations.end()) {
      ADD_FAILURE() << "no German for " << key;
      continue;
    }
    const LocalizedText text{key.c_str(), ""};
    EXPECT_EQ(text.Text(), german->second.toStdString()) << key;
    EXPECT_EQ(PlaceholdersOf(german->second), PlaceholdersOf(english)) << key;
  }
  InstallTranslations(nullptr);
  EXPECT_EQ(Menus::kFileOpen.Text(), "&Open...");
  EXPECT_EQ(TagCatalog::NameOf(TagCatalog::Exif(), "829A"), "Exposure Time");
}

TEST(Languages, EnglishAndGermanSayWhatThisDesktopSays) {
  const FolderItem folder = otherSharedComponents::ResourcesFolder().Child("translations");
  const auto texts = TextsOfTheSources();
  const QRegularExpression strange(
      QStringLiteral("finder|usercreated|radience|\\bmacs?\\b|iphoto|eiher|avilable|\u02D9|screwed|"
                     "\\bform the\\b|"
                     "\\balias|writeable"),
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
  int differing = 0;
  for (const char* language : {"C", "en_GB", "de"}) {
    LoadTranslations(folder, language);
    for (const auto& [key, source] : texts) {
      const QString shown =
          QString::fromStdString(LocalizedText{key.c_str(), source.toUtf8().constData()}.Text());
      EXPECT_FALSE(shown.contains(strange) || shown.contains(QLatin1String("PIcture")))
          << language << " " << key << ": " << shown.toStdString();
      EXPECT_EQ(PlaceholdersOf(shown), PlaceholdersOf(source)) << key;
      if (shown != source) ++differing;
    }
    if (language != std::string_view("de")) {
      EXPECT_EQ(Menus::kFileShowInFinder.Text(), "Show In File Manager");
      EXPECT_EQ(Menus::kRotateAndFlipRotate90.Text(), "Rotate 90\xC2\xB0 Clockwise");
      EXPECT_EQ(Menus::kFileOpen.Text(), "&Open...") << "what is said well stays";
    }
  }
  EXPECT_GT(differing, 80);
  // Every message of the English file has a text in the sources: none is misspelled or left over.
  const auto english = TranslationsOf("en");
  for (const auto& [key, text] : english) EXPECT_TRUE(texts.contains(key)) << key;
  EXPECT_GT(english.size(), 30U);
  InstallTranslations(nullptr);
  EXPECT_EQ(Menus::kFileShowInFinder.Text(), "Show In Finder") << "the command line's texts";
}

}  // namespace
}  // namespace brivolant::test
