// SPDX-License-Identifier: MIT
#include "engine/pictures/CanvasLayer.h"

#include <QPaintDevice>
#include <algorithm>
#include <cmath>

#include "engine/pictures/SoftShadow.h"
#include "platform/pictures/Picture.h"
#include "platform/pictures/kernels/BlendKernels.h"

namespace brivolant {
namespace {

std::uint8_t Level(int value) {
  return static_cast<std::uint8_t>(value);
}

}  // namespace

CanvasLayer::CanvasLayer(const QPainter& painter, const QRectF& bounds, int margin, QPointF offset,
                         const Painting& paint)
    : ratio_(painter.device()->devicePixelRatioF()) {
  // What is smoothed or hinted may stand over its bounds.
  constexpr double kOver = 2;
  const QTransform toDevice = painter.combinedTransform();
  const QRectF drawn =
      toDevice.mapRect(bounds).translated(offset).adjusted(-kOver, -kOver, kOver, kOver);
  const QRectF device(0, 0, painter.device()->width() * ratio_,
                      painter.device()->height() * ratio_);
  const QRectF visible =
      drawn.intersected(device.adjusted(-margin - 1.0, -margin - 1.0, margin + 1.0, margin + 1.0));
  if (visible.isEmpty()) return;
  const QRect rect = visible.toAlignedRect().adjusted(-margin, -margin, margin, margin);
  image_ = QImage(rect.size(), QImage::Format_ARGB32_Premultiplied);
  if (image_.isNull()) return;
  origin_ = rect.topLeft();
  image_.fill(Qt::transparent);
  QPainter layer(&image_);
  layer.setRenderHints(painter.renderHints());
  layer.setFont(painter.font());
  layer.setTransform(toDevice *
                     QTransform::fromTranslate(offset.x() - origin_.x(), offset.y() - origin_.y()));
  paint(layer);
}

void CanvasLayer::BecomeShadow(double blur) {
  Plane coverage = Plane::Uninitialized(image_.width(), image_.height());
  if (coverage.IsNil()) {
    image_ = {};
    return;
  }
  const Grey rows = coverage.Edit();
  for (int y = 0; y < rows.height; ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(image_.constScanLine(y));
    for (int x = 0; x < rows.width; ++x) rows.Row(y)[x] = Level(qAlpha(line[x]));
  }
  SoftShadow::Soften(coverage, blur);
  for (int y = 0; y < image_.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image_.scanLine(y));
    for (int x = 0; x < image_.width(); ++x) {
      line[x] =
          qRgba(0, 0, 0, static_cast<int>(std::lround(coverage.At(x, y) * SoftShadow::kDarkness)));
    }
  }
}

void CanvasLayer::BlendWith(const QImage& under, int mode) {
  constexpr int kFull = 256;
  Picture base = Picture::Uninitialized(image_.width(), image_.height());
  Picture fill = Picture::Uninitialized(image_.width(), image_.height());
  if (base.IsNil() || fill.IsNil()) return;
  const QImage beneath =
      under.copy(QRect(origin_, image_.size())).convertToFormat(QImage::Format_ARGB32);
  const auto put = [](std::uint8_t* pixel, QRgb color) {
    pixel[0] = Level(qBlue(color));
    pixel[1] = Level(qGreen(color));
    pixel[2] = Level(qRed(color));
    pixel[3] = 255;
  };
  for (int y = 0; y < image_.height(); ++y) {
    const auto* over = reinterpret_cast<const QRgb*>(image_.constScanLine(y));
    const auto* below = reinterpret_cast<const QRgb*>(beneath.constScanLine(y));
    for (int x = 0; x < image_.width(); ++x) {
      put(fill.Edit().Row(y) + std::ptrdiff_t{4} * x, qUnpremultiply(over[x]));
      put(base.Edit().Row(y) + std::ptrdiff_t{4} * x, below[x]);
    }
  }
  kernels::Blend(base.Edit(), fill.View(), mode, kFull);
  for (int y = 0; y < image_.height(); ++y) {
    auto* over = reinterpret_cast<QRgb*>(image_.scanLine(y));
    const auto* below = reinterpret_cast<const QRgb*>(beneath.constScanLine(y));
    for (int x = 0; x < image_.width(); ++x) {
      const int alpha = qAlpha(over[x]);
      if (alpha == 0) continue;
      // Where nothing lies beneath, the drawing keeps its own colour.
      const double share = qAlpha(below[x]) / 255.0;
      const Color own = fill.At(x, y);
      const Color mixed = base.At(x, y);
      const auto channel = [share](int a, int b) {
        return static_cast<int>(std::lround(a + (b - a) * share));
      };
      over[x] = qPremultiply(qRgba(channel(own.Red, mixed.Red), channel(own.Green, mixed.Green),
                                   channel(own.Blue, mixed.Blue), alpha));
    }
  }
}

void CanvasLayer::Lay(QPainter& painter) const {
  if (IsEmpty()) return;
  painter.save();
  painter.resetTransform();
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  QImage image = image_;
  image.setDevicePixelRatio(ratio_);
  painter.drawImage(QPointF(origin_) / ratio_, image);
  painter.restore();
}

}  // namespace brivolant
