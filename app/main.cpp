// SPDX-License-Identifier: MIT
#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QSessionManager>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <optional>
#include <string_view>

#include "app/App.h"
#include "app/EndSignals.h"
#include "app/MainWindow.h"
#include "app/SingleInstance.h"
#include "app/core/GlobalApplicationSpecificProperties.h"
#include "app/core/Jobs.h"
#include "app/core/Translations.h"
#include "browser/DiskThreads.h"
#include "engine/ui/EditorDisplay.h"
#include "kit/Appearance.h"
#include "kit/DesktopServices.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/services/SharedFolders.h"
#include "platform/values/Numbers.h"

namespace {

using namespace brivolant;

/// Catches what an event handler lets through, so that one mistake does not end the session.
class Application final : public QApplication {
 public:
  Application(int& argc, char** argv) : QApplication(argc, argv) {}
  App* app = nullptr;
  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception& exception) {
      if (app != nullptr) app->UnhandledException(exception.what());
    } catch (...) {
      if (app != nullptr) app->UnhandledException("unknown");
    }
    return true;
  }
};

struct Arguments {
  std::vector<FolderItem> files;
  bool version = false;
  bool help = false;
  /// Starts, opens the photo if one is given, prints what it took, and ends.
  bool measure = false;
};

Arguments Read(int argc, char** argv) {
  Arguments arguments;
  bool options = true;
  // From the bytes that were given: a name need not be valid in any encoding.
  for (int i = 1; i < argc; ++i) {
    const std::string_view text = argv[i];
    if (options && text == "--") {
      options = false;
    } else if (options && text == "--version") {
      arguments.version = true;
    } else if (options && (text == "--help" || text == "-h")) {
      arguments.help = true;
    } else if (options && text == "--measure-start") {
      arguments.measure = true;
    } else if (!options || !text.starts_with('-')) {
      arguments.files.emplace_back(std::filesystem::absolute(text));
    }
  }
  return arguments;
}

/// Raised once, when the window has painted itself.
class FirstPaint final : public QObject {
 public:
  explicit FirstPaint(std::function<void()> then) : then_(std::move(then)) {}

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint && then_) {
      QTimer::singleShot(0, std::exchange(then_, nullptr));
    }
    return false;
  }

 private:
  std::function<void()> then_;
};

/// A home that is nobody's, gone with the object. The settings are those of the user, copied, so
/// that the window is the one that the user sees.
class NobodysHome {
 public:
  NobodysHome() {
    const FolderItem settings = ConfigurationFolder().Child(
        std::string(GlobalApplicationSpecificProperties::kPreferencesID) + ".plist");
    std::string pattern = std::filesystem::temp_directory_path() / "brivolant-measure-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) return;
    folder_ = FolderItem(std::filesystem::path(pattern));
    setenv("HOME", pattern.c_str(), 1);
    for (const auto& [variable, name] : {std::pair{"XDG_CONFIG_HOME", "config"},
                                         {"XDG_DATA_HOME", "data"},
                                         {"XDG_CACHE_HOME", "cache"},
                                         {"XDG_STATE_HOME", "state"}}) {
      const FolderItem place = folder_.Child(name);
      made_ = !place.CreateAsFolder() && setenv(variable, place.ShellPath().c_str(), 1) == 0;
      if (!made_) return;
    }
    if (settings.Exists())
      (void)settings.CopyFileTo(folder_.Child("config").Child(settings.Name()));
  }
  ~NobodysHome() {
    if (folder_) (void)folder_.DeleteFolder();
  }
  NobodysHome(const NobodysHome&) = delete;
  NobodysHome& operator=(const NobodysHome&) = delete;
  explicit operator bool() const { return made_; }
  /// A copy in it: opening a document may write an older form anew.
  FolderItem Copy(const FolderItem& file) const {
    FolderItem copy = folder_.Child(file.Name());
    std::error_code error;
    std::filesystem::copy(file.Path(), copy.Path(), std::filesystem::copy_options::recursive,
                          error);
    return error ? FolderItem() : copy;
  }

 private:
  FolderItem folder_;
  bool made_ = false;
};

/// Ends at once if a disk holds a thread that works with what would be taken down next.
void EndIfHeld(int code) {
  if (DiskThreads::Finish() && !Jobs::SomeAreApart()) return;
  std::fflush(nullptr);
  std::_Exit(code);
}

int Measure(App& app, const FolderItem& file, const QElapsedTimer& sinceMain) {
  constexpr double kMega = 1e6;
  double painted = 0;
  double opened = 0;
  FirstPaint watch([&] {
    painted = static_cast<double>(sinceMain.nsecsElapsed()) / kMega;
    if (file) {
      QElapsedTimer opening;
      opening.start();
      app.Window()->OpenImage(file, {});
      app.Window()->Session().Work().Finish();
      app.Window()->MyDisplay->Update(true);
      opened = static_cast<double>(opening.nsecsElapsed()) / kMega;
    }
    QApplication::quit();
  });
  app.Window()->installEventFilter(&watch);
  const int code = QApplication::exec();
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("{\"first_paint_ms\": %s, \"open_ms\": %s, \"peak_memory_bytes\": %lld}\n",
              FixedNumber(painted, 1).c_str(), FixedNumber(opened, 1).c_str(),
              static_cast<long long>(usage.ru_maxrss) * 1024);
  app.Close();
  EndIfHeld(code);
  return code;
}

int Run(int argc, char** argv) {
  QElapsedTimer sinceMain;
  sinceMain.start();
  const Arguments arguments = Read(argc, argv);
  if (arguments.version || arguments.help) {
    using namespace GlobalApplicationSpecificProperties;
    std::printf("%s %s\n", ApplicationName.Text().c_str(), VersionText().c_str());
    if (arguments.help) std::puts("usage: brivolant [--version] [--help] [PHOTO...]");
    return 0;
  }
  std::optional<NobodysHome> home;
  if (arguments.measure && !home.emplace()) {
    std::fputs("There is no folder for temporary files.\n", stderr);
    return 1;
  }
  FolderItem measured;
  if (arguments.measure && !arguments.files.empty()) {
    measured = home->Copy(arguments.files.front());
  }
  QCoreApplication::setApplicationName(QStringLiteral("brivolant-photos"));
  QGuiApplication::setDesktopFileName(QStringLiteral("brivolant-photos"));
  Application application(argc, argv);
  KeepLibraryNumbersPlain();
  KeepLibraryLettersPlain();
  QGuiApplication::setApplicationDisplayName(
      QString::fromStdString(GlobalApplicationSpecificProperties::ApplicationName.Text()));
  SingleInstance instance;
  const auto role =
      arguments.measure ? SingleInstance::Role::kAlone : instance.Begin(arguments.files);
  if (role == SingleInstance::Role::kHandedOver) return 0;
  (void)LoadTranslations(otherSharedComponents::ResourcesFolder().Child("translations"),
                         UserLanguage());
  if (role == SingleInstance::Role::kUnanswered) {
    const std::string why = WithPlaceholders(SingleInstance::kDoesNotAnswer.Text(),
                                             {{"<process>", std::to_string(instance.Holder())}});
    std::fprintf(stderr, "%s\n", why.c_str());
    // Whoever started it from a desktop sees no terminal.
    Appearance::Apply(application, Appearance::kFollowDesktop);
    WidgetDialogs().Message(why, {});
    return 1;
  }
  App app(application);
  if (!app.Open()) return 1;
  application.app = &app;
  if (arguments.measure) return Measure(app, measured, sinceMain);
  const EndSignals ending([&app] {
    app.KeepForNextStart();
    QApplication::exit();
  });
  QObject::connect(
      &application, &QGuiApplication::commitDataRequest, &application,
      [&app](QSessionManager&) { app.KeepEdits(); }, Qt::DirectConnection);
  QTimer::singleShot(0, [&] {
    // What other starts bring comes behind it, as what this one was given does.
    app.OfferRecovery();
    app.OpenDocuments(arguments.files);
    instance.Serve([&app](const std::vector<FolderItem>& arrived) {
      app.BringToFront();
      app.OpenDocuments(arrived);
    });
  });
  const int code = QApplication::exec();
  app.Close();
  // Nobody else runs, so what lies in temporary folders was left by a crash.
  if (role == SingleInstance::Role::kOwner) app.RemoveLeftovers();
  EndIfHeld(code);
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  const int code = Run(argc, argv);
  brivolant::ShutDownCodecs();
  return code;
}
