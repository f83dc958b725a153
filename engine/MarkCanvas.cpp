// SPDX-License-Identifier: MIT
#include "engine/MarkCanvas.h"

#include <QImage>
#include <QPainter>

namespace brivolant {

class MarkCanvas::Drawing {
 public:
  explicit Drawing(Picture& target) : image_(target.EditImage()), painter(&image_) {}

 private:
  QImage image_;

 public:
  QPainter painter;
};

MarkCanvas::MarkCanvas(Picture& target)
    : MarkCanvas(target, {0, 0, target.Width(), target.Height()}) {}

MarkCanvas::MarkCanvas(Picture& target, const QRect& photo) : target_(target), photo_(photo) {}

MarkCanvas::~MarkCanvas() = default;

QPainter& MarkCanvas::Painter() {
  if (!drawing_) {
    drawing_ = std::make_unique<Drawing>(target_);
    drawing_->painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                                     QPainter::SmoothPixmapTransform);
    drawing_->painter.translate(photo_.topLeft());
  }
  return drawing_->painter;
}

}  // namespace brivolant
