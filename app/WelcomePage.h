// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/values/Text.h"

namespace brivolant {

struct DragItem;
class ifkButton;

/// Where the program begins: opens a photo, takes a dropped one, and shows those edited last.
class WelcomePage final : public QWidget {
 public:
  static constexpr LocalizedText kOpen{"WelcomePage.kOpen", "Open a Photo..."};
  static constexpr LocalizedText kDrop{"WelcomePage.kDrop", "or drop one here"};
  static constexpr LocalizedText kRecent{"WelcomePage.kRecent", "Edited last"};

  explicit WelcomePage(QWidget* parent = nullptr);
  ~WelcomePage() override;

  /// Shows these files; their previews arrive as they are read.
  void Show(const std::vector<std::string>& paths);
  ifkButton& OpenButton() { return *open_; }
  /// Where a recent item stands; empty for one that has no room.
  QRect ItemRect(int index) const;
  /// Number of previews that have arrived.
  int PreviewsShown() const;

  std::function<void()> Open;
  std::function<void(const std::string& path)> OpenRecent;
  std::function<void(const DragItem&)> Dropped;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool event(QEvent* event) override;

 private:
  struct Item {
    std::string path;
    QString name;
    QImage preview;
    bool asked = false;
  };
  struct Previews;
  int Columns() const;
  void PlaceButton();
  int ItemAt(const QPoint& position) const;
  QRect DropZone() const;

  ifkButton* open_;
  std::vector<Item> items_;
  int hover_ = -1;
  int focused_ = 0;
  bool dropping_ = false;
  /// Shared with the thread that reads previews, which may outlive the page.
  std::shared_ptr<Previews> previews_;
};

}  // namespace brivolant
