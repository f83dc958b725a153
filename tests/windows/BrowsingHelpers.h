// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <string>
#include <vector>

#include "WindowHelpers.h"
#include "browser/ui/BrowserViews.h"
#include "browser/ui/multiViewFileBrowser.h"

namespace brivolant::test {

/// The program in a home with photos in the pictures folder.
struct Browsing : Program {
  explicit Browsing(const std::vector<std::string>& names) {
    EXPECT_FALSE(home.Child("Pictures").CreateAsFolder());
    for (const std::string& name : names) Photo("Pictures/" + name, 64, 48);
    const int wanted = static_cast<int>(names.size());
    Start();
    EXPECT_TRUE(Until([&] { return Listed(Pictures()) && Browser().Count() >= wanted; }));
  }
  multiViewFileBrowser& Browser() { return *Window().imageBrowser; }
  FolderItem Pictures() { return home.Child("Pictures"); }
  QWidget& Grid() { return *Browser().IconView().viewport(); }
  QPoint Cell(int row) { return Browser().IconView().CellRect(row).center(); }
  /// Whether the folder is shown and was read to its end.
  bool Listed(const FolderItem& folder) {
    return Browser().CurrentFolder() == folder && !Browser().Listing();
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (int i = 0; i < Browser().Count(); ++i) names.push_back(Browser().Rows().Name(i));
    return names;
  }
  std::vector<std::string> Selected() {
    std::vector<std::string> names;
    for (const BrowserPayload& payload : Browser().SelectedItems()) {
      names.push_back(BrowserRows::NameOf(payload));
    }
    return names;
  }
  bool Shows(const std::vector<std::string>& names) {
    return Until([&] { return !Browser().Listing() && Names() == names; });
  }
};

/// A drag over a control and its drop, as from another program that would rather move.
inline Qt::DropAction DropToMove(QWidget& control, const std::vector<FolderItem>& files,
                                 const QPoint& at, bool& taken) {
  QMimeData data;
  QList<QUrl> urls;
  for (const FolderItem& file : files) {
    urls << QUrl::fromLocalFile(QString::fromStdString(file.ShellPath()));
  }
  data.setUrls(urls);
  const Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction;
  // The key by which one asks for a move.
  QDragEnterEvent enter(at, possible, &data, Qt::LeftButton, Qt::ShiftModifier);
  QApplication::sendEvent(&control, &enter);
  QDragMoveEvent move(at, possible, &data, Qt::LeftButton, Qt::ShiftModifier);
  QApplication::sendEvent(&control, &move);
  QDropEvent drop(at, possible, &data, Qt::LeftButton, Qt::ShiftModifier);
  EXPECT_EQ(drop.proposedAction(), Qt::MoveAction);
  QApplication::sendEvent(&control, &drop);
  taken = drop.isAccepted();
  return drop.dropAction();
}

inline void DoubleClick(QWidget& control, const QPoint& at) {
  QTest::mouseDClick(control.window()->windowHandle(), Qt::LeftButton, {},
                     control.mapTo(control.window(), at));
  QApplication::processEvents();
}

}  // namespace brivolant::test
