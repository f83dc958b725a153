// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>

namespace brivolant {

/// A text that can be a link.
class ifkStaticText : public QWidget {
 public:
  enum TextEffect { kNoEffect = 0, kLink = 1 };

  explicit ifkStaticText(QWidget* parent = nullptr, const QString& text = {});

  int Effect = kNoEffect;
  bool Bold = false;
  bool Italic = false;
  bool Underline = false;
  bool MultiLine = false;
  Qt::Alignment Alignment = Qt::AlignLeft | Qt::AlignVCenter;

  const QString& Text() const { return text_; }
  void Text(const QString& text);
  const QString& URL() const { return url_; }
  /// Makes the text a link.
  void URL(const QString& url);

  /// The owner may take the press.
  std::function<bool(int x, int y)> MouseDown;
  /// Opens a link; the desktop's way unless replaced.
  std::function<void(const QString& url)> ShowURL;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QFont TextFont() const;
  void Follow();

  QString text_;
  QString url_;
};

}  // namespace brivolant
