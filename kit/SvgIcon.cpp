// SPDX-License-Identifier: MIT
#include "kit/SvgIcon.h"

#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace brivolant {
namespace {

FolderItem& Folder() {
  static FolderItem folder;
  return folder;
}

/// The text of a drawing; empty for an unknown name. Read once.
const QByteArray& Drawing(const QString& name) {
  static QHash<QString, QByteArray> drawings;
  auto known = drawings.find(name);
  if (known == drawings.end()) {
    const auto text = ReadFile(Folder().Child(name.toStdString() + ".svg"));
    known = drawings.insert(name, text ? QByteArray::fromStdString(*text) : QByteArray());
  }
  return *known;
}

void Draw(const QString& name, QPainter& painter, const QRectF& rect, const QColor& color) {
  QByteArray text = Drawing(name);
  if (text.isEmpty()) return;
  text.replace("currentColor", color.name().toLatin1());
  QSvgRenderer renderer(text);
  const double before = painter.opacity();
  painter.setOpacity(before * color.alphaF());
  renderer.render(&painter, rect);
  painter.setOpacity(before);
}

class SvgEngine final : public QIconEngine {
 public:
  explicit SvgEngine(QString name) : name_(std::move(name)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    Draw(name_, *painter, rect, ColorFor(mode));
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    return SvgPixmap(name_, size, 1, ColorFor(mode));
  }
  QIconEngine* clone() const override { return new SvgEngine(name_); }
  bool isNull() override { return Drawing(name_).isEmpty(); }

 private:
  static QColor ColorFor(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Selected) return palette.color(QPalette::HighlightedText);
    QColor color = palette.color(QPalette::WindowText);
    if (mode == QIcon::Disabled) color.setAlphaF(0.35F);
    return color;
  }

  QString name_;
};

}  // namespace

void SetIconFolder(const FolderItem& folder) {
  Folder() = folder;
}

QString SvgPath(const QString& name) {
  return QString::fromStdString(Folder().Child(name.toStdString() + ".svg").ShellPath());
}

QIcon SvgIcon(const QString& name) {
  return Drawing(name).isEmpty() ? QIcon() : QIcon(new SvgEngine(name));
}

QPixmap SvgPixmap(const QString& name, const QSize& size, double ratio, const QColor& color) {
  // Reading the drawing anew takes longer than all else that is painted beside it.
  const QString key = QStringLiteral("svg/%1/%2/%3/%4/%5")
                          .arg(name)
                          .arg(size.width())
                          .arg(size.height())
                          .arg(ratio)
                          .arg(color.rgba());
  QPixmap pixmap;
  if (QPixmapCache::find(key, &pixmap)) return pixmap;
  pixmap = QPixmap(size * ratio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  Draw(name, painter, QRectF(QPointF(), QSizeF(pixmap.size())), color);
  painter.end();
  pixmap.setDevicePixelRatio(ratio);
  QPixmapCache::insert(key, pixmap);
  return pixmap;
}

}  // namespace brivolant
