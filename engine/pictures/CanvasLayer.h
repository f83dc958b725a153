// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPainter>
#include <functional>

namespace brivolant {

/// What a drawing looks like on transparent ground, in the pixels of a painter's device: for what a
/// painter cannot do by itself, shadows and the blend modes of hue, saturation, color and
/// luminosity.
class CanvasLayer {
 public:
  using Painting = std::function<void(QPainter&)>;

  /// Runs `paint` for the part of `bounds`, in the painter's coordinates, that shows on its device
  /// or stands over it by at most `margin`. The drawing is moved by `offset` device pixels.
  CanvasLayer(const QPainter& painter, const QRectF& bounds, int margin, QPointF offset,
              const Painting& paint);

  bool IsEmpty() const { return image_.isNull(); }
  /// Turns the drawing into its shadow, blurred by that many device pixels.
  void BecomeShadow(double blur);
  /// Blends the colours with what lies under them, by a number of kBlendNames.
  void BlendWith(const QImage& under, int mode);
  /// Lays it over the painter's device, with the painter's opacity and clip.
  void Lay(QPainter& painter) const;

 private:
  QImage image_;
  /// The corner on the device.
  QPoint origin_;
  double ratio_ = 1;
};

}  // namespace brivolant
