// SPDX-License-Identifier: MIT
#include "app/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "kit/InterfaceKitSupport.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

std::string Lookup(const char* key) {
  const QString text = qtTrId(key);
  // An unknown key comes back as it is.
  return text == QLatin1String(key) ? std::string() : text.toStdString();
}

}  // namespace

bool LoadTranslations(const FolderItem& folder, const std::string& language) {
  static QTranslator own;
  static QTranslator toolkit;
  const QLocale locale(ToQString(language));
  QCoreApplication::removeTranslator(&own);
  QCoreApplication::removeTranslator(&toolkit);
  InstallTranslations(nullptr);
  if (!own.load(locale, QStringLiteral("brivolant"), QStringLiteral("_"),
                ToQString(folder.ShellPath()))) {
    return false;
  }
  QCoreApplication::installTranslator(&own);
  if (toolkit.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                   QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&toolkit);
  }
  InstallTranslations(Lookup);
  return true;
}

}  // namespace brivolant
