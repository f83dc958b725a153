// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <memory>

#include "platform/pictures/Picture.h"

class QPainter;

namespace brivolant {

/// What a module draws its marks on: a picture of the whole photo, or of a part that is shown
/// enlarged. Coordinates are those of the whole, so that a module need not know which it is.
class MarkCanvas {
 public:
  /// All of the picture is the photo.
  explicit MarkCanvas(Picture& target);
  /// `photo` is where the whole photo lies, in pixels of the picture.
  MarkCanvas(Picture& target, const QRect& photo);
  ~MarkCanvas();
  MarkCanvas(const MarkCanvas&) = delete;
  MarkCanvas& operator=(const MarkCanvas&) = delete;

  /// Of the whole photo, in pixels as large as those of the target.
  int Width() const { return photo_.width(); }
  int Height() const { return photo_.height(); }
  /// Draws smooth edges. The pixels become the target's own with the first call.
  QPainter& Painter();
  /// What is to be seen of the photo, for what stands in a corner of the view. It must not be
  /// edited while the painter is in use.
  Picture& Target() const { return target_; }

 private:
  class Drawing;
  Picture& target_;
  QRect photo_;
  std::unique_ptr<Drawing> drawing_;
};

}  // namespace brivolant
