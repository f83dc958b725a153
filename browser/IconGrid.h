// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

namespace brivolant {

/// Where the cells of the icon view lie. One computation for painting, clicks, keys and the rubber
/// band. Units of the desktop's coordinates; cells are counted from 0.
struct IconGrid {
  int Width = 0;
  int Height = 0;
  int Count = 0;
  int IconSize = 128;
  int TextHeight = 16;
  /// The cells stand in the middle of the width.
  bool Centered = false;
  /// How far the view is scrolled down.
  int Scroll = 0;

  static constexpr int kInset = 20;
  static constexpr int kTop = 10;

  struct Cell {
    int x = 0;
    int y = 0;
  };

  int CellWidth() const { return IconSize + 2 * kInset; }
  int CellHeight() const { return IconSize + 8 + 2 * TextHeight; }
  int IconsPerRow() const { return std::max((Width - 2 * kMargin) / CellWidth(), 1); }
  int RowCount() const { return (Count + IconsPerRow() - 1) / IconsPerRow(); }
  int TotalHeight() const { return CellHeight() * RowCount() + 2 * kTop; }
  /// The greatest value of Scroll.
  int Maximum() const { return std::max(TotalHeight() - Height, 0); }
  int Left() const { return Centered ? (Width - CellWidth() * IconsPerRow()) / 2 : kMargin; }
  Cell At(int index) const {
    const int perRow = IconsPerRow();
    return {Left() + index % perRow * CellWidth(), kTop + index / perRow * CellHeight() - Scroll};
  }
  /// The first cell in view, and the one behind the last.
  int FirstInView() const {
    const int row = std::max(Scroll - kTop, 0) / CellHeight();
    return std::min(row * IconsPerRow(), Count);
  }
  int EndInView() const {
    const int row = (Scroll + Height - kTop + CellHeight() - 1) / CellHeight();
    return std::clamp(row * IconsPerRow(), 0, Count);
  }
  /// The first cell that holds the point, its edges included; -1 for none.
  int IndexAt(int x, int y) const {
    const auto place = [](int offset, int size) {
      // A point on an edge belongs to the cell before it.
      return offset > 0 && offset % size == 0 ? offset / size - 1 : offset / size;
    };
    const int right = x - Left();
    const int down = y + Scroll - kTop;
    if (right < 0 || down < 0) return -1;
    const int column = place(right, CellWidth());
    const int index = place(down, CellHeight()) * IconsPerRow() + column;
    return column < IconsPerRow() && index < Count ? index : -1;
  }
  /// True if the cell meets the rectangle; touching edges count.
  bool Meets(int index, int left, int top, int right, int bottom) const {
    const Cell cell = At(index);
    return cell.x <= right && cell.x + CellWidth() >= left && cell.y <= bottom &&
           cell.y + CellHeight() >= top;
  }
  /// The scroll at which a cell is in view; as it is if it is there.
  int ScrollTo(int index) const {
    const int y = At(index).y;
    if (y >= 0 && y + CellHeight() <= Height) return Scroll;
    if (y + CellHeight() > Height && y >= 0) {
      return std::min(y + CellHeight() + Scroll - Height + kTop, Maximum());
    }
    return std::clamp(y + Scroll - kTop, 0, Maximum());
  }

 private:
  static constexpr int kMargin = 14;
};

}  // namespace brivolant
