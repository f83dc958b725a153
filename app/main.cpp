// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QLocale>
#include <QTimer>
#include <exception>

#include "app/App.h"
#include "app/MainWindow.h"
#include "app/SingleInstance.h"
#include "app/Translations.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/services/SharedFolders.h"

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

/// The language of messages by the usual variables; QLocale's own looks at formats first.
std::string UserLanguage() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const QString value = qEnvironmentVariable(variable);
    if (!value.isEmpty()) return value.section(QLatin1Char('.'), 0, 0).toStdString();
  }
  return "en";
}

int Run(int argc, char** argv) {
  QCoreApplication::setApplicationName(QStringLiteral("brivolant-photos"));
  QGuiApplication::setDesktopFileName(QStringLiteral("brivolant-photos"));
  Application application(argc, argv);
  std::vector<FolderItem> files;
  const QStringList arguments = QCoreApplication::arguments();
  // From the bytes that were given: a name need not be valid in any encoding.
  for (int i = 1; i < argc; ++i) {
    if (argv[i][0] != '-') files.emplace_back(std::filesystem::absolute(argv[i]));
  }
  SingleInstance instance;
  if (instance.HandOver(files)) return 0;
  (void)LoadTranslations(otherSharedComponents::ResourcesFolder().Child("translations"),
                         UserLanguage());
  App app(application);
  if (!app.Open()) return 1;
  application.app = &app;
  (void)instance.Listen();
  instance.Arrived = [&app](const std::vector<FolderItem>& arrived) {
    app.BringToFront();
    for (const FolderItem& file : arrived) app.OpenDocument(file);
  };
  QTimer::singleShot(0, [&] {
    if (app.OfferRecovery()) return;
    for (const FolderItem& file : files) app.OpenDocument(file);
  });
  const int code = QApplication::exec();
  app.Close();
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  const int code = Run(argc, argv);
  brivolant::ShutDownCodecs();
  return code;
}
