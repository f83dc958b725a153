// SPDX-License-Identifier: MIT
#include "app/core/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "platform/values/Text.h"

namespace brivolant {
namespace {

std::string Lookup(const char* key) {
  const QString text = qtTrId(key);
  // An unknown key comes back as it is.
  return text == QLatin1String(key) ? std::string() : text.toStdString();
}

}  // namespace

std::string UserLanguage() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const QString value = qEnvironmentVariable(variable);
    if (!value.isEmpty()) return value.section(QLatin1Char('.'), 0, 0).toStdString();
  }
  return "en";
}

bool LoadTranslations(const FolderItem& folder, const std::string& language) {
  static QTranslator english;
  static QTranslator own;
  static QTranslator toolkit;
  const QLocale locale(QString::fromStdString(language));
  const QString place = QString::fromStdString(folder.ShellPath());
  for (QTranslator* translator : {&english, &own, &toolkit}) {
    QCoreApplication::removeTranslator(translator);
  }
  InstallTranslations(nullptr);
  // Whatever a language leaves out is said as this desktop says it.
  if (english.load(QStringLiteral("brivolant_en"), place)) {
    QCoreApplication::installTranslator(&english);
    InstallTranslations(Lookup);
  }
  if (!own.load(locale, QStringLiteral("brivolant"), QStringLiteral("_"), place)) return false;
  QCoreApplication::installTranslator(&own);
  if (toolkit.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                   QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&toolkit);
  }
  InstallTranslations(Lookup);
  return true;
}

}  // namespace brivolant
