// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "browser/FilePreview.h"
#include "platform/values/Text.h"

namespace brivolant {

/// The selected file large, on a dark ground, with a few lines about it. Stands beside the icons
/// in the column view.
class ColumnPreview final : public QWidget {
 public:
  static constexpr LocalizedText kInformationShow{"multiViewFileBrowser.kInformationShow",
                                                  "Show Information"};
  static constexpr LocalizedText kInformationHide{"multiViewFileBrowser.kInformationHide",
                                                  "Hide Information"};
  static constexpr LocalizedText kPreview{"multiViewFileBrowser.kPreview", "Preview"};

  explicit ColumnPreview(std::shared_ptr<const FilePreviewer> previewer, QWidget* parent = nullptr);

  /// Shows a file; `stamp` changes when the file does. `image` stands for it at once, and stays if
  /// the file holds no picture. The same file again changes nothing.
  void Display(const FolderItem& file, std::int64_t stamp, const QString& title,
               const QImage& image);
  void Clear();
  bool PreviewDisplayMetaData() const { return previewDisplayMetaData_; }
  void PreviewDisplayMetaData(bool display);
  /// Where the switch of the lines is.
  QRect InformationRect() const;
  const std::vector<std::string>& columnPreviewDisplayData() const { return lines_; }
  const QImage& Shown() const { return image_; }
  bool Loading() const { return loader_.Loading() || resized_.isActive(); }

  /// The user switched the lines.
  std::function<void()> InformationSwitched;
  std::function<void()> DoubleClicked;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int NeededSide() const;
  void Load();
  void Take(FilePreview preview);
  void Switch();
  void PaintLines(QPainter& painter, int top);

  PreviewLoader loader_;
  QTimer resized_;
  FolderItem file_;
  std::int64_t stamp_ = 0;
  QImage image_;
  /// The picture at the size it was last painted.
  QImage scaled_;
  std::vector<std::string> lines_;
  /// Longest side, in pixels, that was asked for.
  int loadedSide_ = 0;
  bool previewDisplayMetaData_ = true;
};

}  // namespace brivolant
