// SPDX-License-Identifier: MIT
#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <cstdio>
#include <exception>
#include <string_view>

#include "app/App.h"
#include "app/MainWindow.h"
#include "app/SingleInstance.h"
#include "app/core/GlobalApplicationSpecificProperties.h"
#include "app/core/Translations.h"
#include "engine/ui/EditorDisplay.h"
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

int Measure(App& app, const Arguments& arguments, const QElapsedTimer& sinceMain) {
  constexpr double kMega = 1e6;
  double painted = 0;
  double opened = 0;
  FirstPaint watch([&] {
    painted = static_cast<double>(sinceMain.nsecsElapsed()) / kMega;
    if (!arguments.files.empty()) {
      QElapsedTimer opening;
      opening.start();
      app.Window()->OpenImage(arguments.files.front(), {});
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
  QCoreApplication::setApplicationName(QStringLiteral("brivolant-photos"));
  QGuiApplication::setDesktopFileName(QStringLiteral("brivolant-photos"));
  Application application(argc, argv);
  KeepLibraryNumbersPlain();
  KeepLibraryLettersPlain();
  QGuiApplication::setApplicationDisplayName(
      QString::fromStdString(GlobalApplicationSpecificProperties::ApplicationName.Text()));
  SingleInstance instance;
  if (!arguments.measure && instance.HandOver(arguments.files)) return 0;
  (void)LoadTranslations(otherSharedComponents::ResourcesFolder().Child("translations"),
                         UserLanguage());
  App app(application);
  if (!app.Open()) return 1;
  application.app = &app;
  if (arguments.measure) return Measure(app, arguments, sinceMain);
  const bool listening = instance.Listen();
  instance.Arrived = [&app](const std::vector<FolderItem>& arrived) {
    app.BringToFront();
    for (const FolderItem& file : arrived) app.OpenDocument(file);
  };
  QTimer::singleShot(0, [&] {
    if (app.OfferRecovery()) return;
    for (const FolderItem& file : arguments.files) app.OpenDocument(file);
  });
  const int code = QApplication::exec();
  app.Close();
  // Nobody else runs, so what lies in temporary folders was left by a crash.
  if (listening) app.RemoveLeftovers();
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  const int code = Run(argc, argv);
  brivolant::ShutDownCodecs();
  return code;
}
