// SPDX-License-Identifier: MIT
#include "effects/GuideGrid.h"

#include "platform/pictures/Graphics.h"

namespace brivolant {

void DrawGuide(Picture& picture) {
  constexpr int kParts = 5;
  const int stepX = picture.Width() / kParts;
  const int stepY = picture.Height() / kParts;
  Graphics g(picture);
  g.UseOldRenderer = true;
  for (int i = 1; i < kParts; ++i) {
    g.DrawLine(i * stepX, 0, i * stepX, picture.Height() - 1);
    g.DrawLine(0, i * stepY, picture.Width() - 1, i * stepY);
  }
}

}  // namespace brivolant
