// SPDX-License-Identifier: MIT
#include "effects/GuideGrid.h"

#include <QPainter>

namespace brivolant {

void DrawGuide(MarkCanvas& canvas) {
  constexpr int kParts = 5;
  const int stepX = canvas.Width() / kParts;
  const int stepY = canvas.Height() / kParts;
  QPainter& painter = canvas.Painter();
  for (int i = 1; i < kParts; ++i) {
    painter.fillRect(i * stepX, 0, 1, canvas.Height(), Qt::black);
    painter.fillRect(0, i * stepY, canvas.Width(), 1, Qt::black);
  }
}

}  // namespace brivolant
