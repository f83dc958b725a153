// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <QLocale>
#include <csignal>
#include <cstdio>

#include "cli/Commands.h"
#include "platform/values/Numbers.h"

namespace {

/// The toolkit's own remarks are none of the user's business, unless the program cannot go on.
void Hear(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtCriticalMsg || type == QtFatalMsg) {
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
  }
}

}  // namespace

int main(int argc, char** argv) {
  // A disk quota is reported by the write that meets it, not by a signal.
  std::signal(SIGXFSZ, SIG_IGN);
  qInstallMessageHandler(Hear);
  // Effects that draw texts need fonts, and fonts an application; there is never a screen.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int count = 1;
  const QGuiApplication fonts(count, argv);
  // What is printed may be read by another program: it is the same everywhere.
  brivolant::KeepLibraryNumbersPlain();
  brivolant::KeepLibraryLettersPlain();
  brivolant::KeepLibraryWordsPlain();
  QLocale::setDefault(QLocale::c());
  return brivolant::cli::RunCommandLine(argc, argv);
}
