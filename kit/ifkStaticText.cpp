// SPDX-License-Identifier: MIT
#include "kit/ifkStaticText.h"

#include <QDesktopServices>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QUrl>

#include "kit/ifkColors.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

constexpr LocalizedText kLinksTo{"ifkStaticText.kLinksTo", "Links to \"<url>\""};

}  // namespace

ifkStaticText::ifkStaticText(QWidget* parent, const QString& text) : QWidget(parent) {
  ShowURL = [](const QString& url) { QDesktopServices::openUrl(QUrl(url)); };
  Text(text);
}

void ifkStaticText::Text(const QString& text) {
  text_ = text;
  setAccessibleName(text);
  updateGeometry();
  update();
}

void ifkStaticText::URL(const QString& url) {
  url_ = url;
  Effect = kLink;
  setToolTip(
      QString::fromStdString(WithPlaceholders(kLinksTo.Text(), {{"<url>", url.toStdString()}})));
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::TabFocus);
  update();
}

QFont ifkStaticText::TextFont() const {
  QFont font = this->font();
  font.setBold(Bold || font.bold());
  font.setItalic(Italic);
  font.setUnderline(Underline || Effect == kLink);
  return font;
}

QSize ifkStaticText::sizeHint() const {
  return QFontMetrics(TextFont())
             .boundingRect(QRect(0, 0, 10000, 10000), Qt::AlignLeft, text_)
             .size() +
         QSize(2, 2);
}

void ifkStaticText::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setFont(TextFont());
  painter.setPen(Effect == kLink
                     ? palette().color(QPalette::Link)
                     : palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled,
                                       QPalette::WindowText));
  painter.drawText(rect(), static_cast<int>(Alignment) | (MultiLine ? Qt::TextWordWrap : 0), text_);
  if (hasFocus()) {
    painter.setPen(ifkColors::FocusHighlight());
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
}

void ifkStaticText::Follow() {
  if (Effect == kLink && ShowURL) ShowURL(url_);
}

void ifkStaticText::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (MouseDown && MouseDown(at.x(), at.y())) return;
  Follow();
}

void ifkStaticText::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Space) return Follow();
  QWidget::keyPressEvent(event);
}

}  // namespace brivolant
