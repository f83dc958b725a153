// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleSegment.h"

#include <algorithm>
#include <vector>

#include "engine/pictures/AdvancedGraphics.h"
#include "engine/pictures/SoftShadow.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/LookKernels.h"
#include "platform/pictures/kernels/ScaleKernels.h"

namespace brivolant {

namespace {

struct Grid {
  int columns;
  int rows;
};

Grid GridFor(int tileCount, bool wide) {
  switch (tileCount) {
    case 0:
      return wide ? Grid{2, 1} : Grid{1, 2};
    case 1:
      return wide ? Grid{3, 1} : Grid{1, 3};
    case 5:
      return {3, 2};
    case 6:
      return {3, 3};
    default:
      return {2, 2};
  }
}

/// Where something lies, in pixels and their parts.
using kernels::SourceArea;

/// Lays the `from` part of a picture over the whole pixels `at`. It belongs on `to`, of which `at`
/// is the rounding: so its content lies where it does at every size.
void Lay(const Picture& picture, const SourceArea& from, const SourceArea& to, const SourceArea& at,
         Picture& sheet) {
  Picture piece = Picture::Uninitialized(static_cast<int>(at.width), static_cast<int>(at.height));
  if (piece.IsNil()) return;
  const double across = from.width / to.width;
  const double down = from.height / to.height;
  kernels::Scale(picture.View(),
                 {from.x + (at.x - to.x) * across, from.y + (at.y - to.y) * down, at.width * across,
                  at.height * down},
                 piece.Edit());
  kernels::Compose(sheet.Edit(), piece.View(), {}, static_cast<int>(at.x), static_cast<int>(at.y));
}

CGRect Rect(int x, int y, int w, int h) {
  return AdvancedGraphicsModule::MakeCGRect(static_cast<float>(x), static_cast<float>(y),
                                            static_cast<float>(w), static_cast<float>(h));
}

}  // namespace

void EffectModuleSegment::ApplyEffect(Picture& picture, double scale) {
  constexpr int kMat = 3;
  constexpr int kInset = 4;
  const int w = picture.Width();
  const int h = picture.Height();
  const Grid grid = GridFor(tileCount, h <= w);
  const double left = std::clamp(1 - Distance / 100.0, 0.0, 1.0);
  const int cw = w / grid.columns;
  const int ch = h / grid.rows;
  const int tw = static_cast<int>(w * left) / grid.columns;
  const int th = static_cast<int>(h * left) / grid.rows;
  const int ox = (cw - tw) / 2;
  const int oy = (ch - th) / 2;
  const int blur = static_cast<int>(15 * scale);
  if (cw == 0 || ch == 0) return;
  const int cx = (w - cw) / 2;
  const int cy = (h - ch) / 2;
  Picture sheet = picture;
  const auto fill = [&sheet](const CGRect& rect) {
    AdvancedGraphics g(sheet);
    g.SetFillColor(kBlack, 1);
    g.DrawRect(rect, kFill);
  };
  // The cells and pieces before they were rounded to pixels.
  const SourceArea cell{0, 0, 1.0 * w / grid.columns, 1.0 * h / grid.rows};
  const SourceArea piece{cell.width * (1 - left) / 2, cell.height * (1 - left) / 2,
                         cell.width * left, cell.height * left};
  const auto lay = [&](double x, double y, int toX, int toY) {
    if (tw <= 0 || th <= 0) return;
    Lay(picture, {x, y, cell.width, cell.height},
        {x + piece.x, y + piece.y, piece.width, piece.height},
        {1.0 * toX, 1.0 * toY, 1.0 * tw, 1.0 * th}, sheet);
  };
  if (tileCount == kMat) {
    fill(Rect(cx - (cw - tw), cy - (ch - th), cw + 2 * (cw - tw), ch + 2 * (ch - th)));
    if (DropShadow) {
      const SoftShadow::Side across{1.0 * cx, 1.0 * cx + cw};
      const SoftShadow::Side down{1.0 * cy + blur, 1.0 * cy + ch + blur};
      SoftShadow::LayGrid(sheet, {&across, 1}, {&down, 1}, blur);
    }
    const SourceArea middle{1.0 * cx, 1.0 * cy, 1.0 * cw, 1.0 * ch};
    Lay(picture, middle, middle, middle, sheet);
    kernels::CopyArea(sheet.View(), 0, 0, picture.Edit());
    return;
  }
  kernels::FillPixels(sheet.Edit(), backColor);
  const auto forEachCell = [&](auto action) {
    for (int row = 0; row < grid.rows; ++row) {
      for (int column = 0; column < grid.columns; ++column) action(column, row);
    }
  };
  if (DropShadow && tileCount != kInset) {
    // The shadows fall downward by as much as they are soft.
    const auto sides = [](int count, double first, int step, int length) {
      std::vector<SoftShadow::Side> all;
      all.reserve(static_cast<std::size_t>(std::max(count, 0)));
      for (int i = 0; i < count; ++i) {
        all.push_back({first + i * step, first + i * step + length});
      }
      return all;
    };
    SoftShadow::LayGrid(sheet, sides(grid.columns, ox, cw, tw), sides(grid.rows, oy + blur, ch, th),
                        blur);
  }
  forEachCell([&](int column, int row) {
    lay(column * cell.width, row * cell.height, ox + column * cw, oy + row * ch);
  });
  if (tileCount == kInset) {
    fill(Rect(cx, cy, cw, ch));
    lay((w - cell.width) / 2, (h - cell.height) / 2, cx + ox, cy + oy);
  }
  kernels::CopyArea(sheet.View(), 0, 0, picture.Edit());
}

}  // namespace brivolant
