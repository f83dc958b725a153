// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include "Helpers.h"
#include "formats/ImageFile.h"
#include "formats/PictureStrings.h"

namespace brivolant::test {

/// What a run of the program gave.
struct Outcome {
  int code;
  std::string out;
  std::string err;
};

inline Outcome Cli(const std::vector<std::string>& arguments) {
  QProcess process;
  QStringList list;
  for (const std::string& argument : arguments) list << QString::fromStdString(argument);
  process.start(QStringLiteral(BRIVOLANT_CLI), list);
  process.waitForFinished(120000);
  return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
          process.readAllStandardOutput().toStdString(),
          process.readAllStandardError().toStdString()};
}

/// An object that was printed.
inline QJsonObject Json(const std::string& text) {
  return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
}

/// Two images and the paths to them.
struct CommandLine : testing::Test {
  TemporaryFolder folder;
  Picture picture = TestPicture(90, 60);
  FolderItem image = folder.Write("photo.png", PngExporter().SaveToString(picture));
  FolderItem second = folder.Write("second.png", PngExporter().SaveToString(TestPicture(30, 50)));
  std::string Path(std::string_view name) const { return folder.Child(name).ShellPath(); }
  Picture Open(std::string_view name) const {
    std::string error;
    return ImageIO::OpenAsPictureUsingImageIO(folder.Child(name), error);
  }
};

}  // namespace brivolant::test
