// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <string>

#include "platform/pictures/Picture.h"
#include "platform/pictures/ToneTable.h"
#include "platform/values/Pair.h"

namespace brivolant {

/// Draws on a picture or a mask. Coordinates are pixels from the top left corner. Texts need a
/// running QGuiApplication, for its fonts.
class Graphics {
 public:
  /// Stands for the picture's own width or height in DrawPicture.
  static constexpr int kOwnSize = -10000;

  /// The target must outlive the object, and must not be edited elsewhere meanwhile.
  explicit Graphics(Picture& target);
  explicit Graphics(Plane& target);
  ~Graphics();
  Graphics(const Graphics&) = delete;
  Graphics& operator=(const Graphics&) = delete;

  Color ForeColor = kBlack;
  std::string TextFont;
  /// Points at 72 to the inch, that is pixels.
  double TextSize = 12;
  bool Bold = false;
  /// True draws without smoothed edges, for pixels that are read back.
  bool UseOldRenderer = false;

  int Width() const;
  int Height() const;
  /// What is drawn on: one of the two, the other is null. Ends this object's own drawing for now,
  /// so that another one may draw on it.
  Picture* TargetPicture();
  Plane* TargetPlane();

  /// Fills with white.
  void ClearRect(double x, double y, double w, double h);
  void DrawLine(double x1, double y1, double x2, double y2);
  void DrawOval(double x, double y, double w, double h);
  void DrawRect(double x, double y, double w, double h);
  void DrawRoundRect(double x, double y, double w, double h, double arcWidth, double arcHeight);
  void FillOval(double x, double y, double w, double h);
  void FillRect(double x, double y, double w, double h);
  void FillRoundRect(double x, double y, double w, double h, double arcWidth, double arcHeight);
  void DrawPolygon(std::span<const Point> points);
  void FillPolygon(std::span<const Point> points);
  /// `y` is the baseline.
  void DrawString(const std::string& text, double x, double y);
  double StringWidth(const std::string& text);
  /// Height of the text broken at `wrapWidth` pixels.
  double StringHeight(const std::string& text, double wrapWidth);
  double TextHeight();
  double TextAscent();
  Color Pixel(int x, int y) const;

  /// Draws a part of a picture, scaled if the sizes differ, through its mask. kOwnSize stands for
  /// the picture's own size. A picture of depth 1 keeps only black and white; a plane takes the
  /// luma.
  void DrawPicture(const Picture& picture, int x, int y, int w = kOwnSize, int h = kOwnSize,
                   int sourceX = 0, int sourceY = 0, int sourceW = kOwnSize,
                   int sourceH = kOwnSize);

 private:
  class Painter;
  Painter& Paint();

  Picture* picture_ = nullptr;
  Plane* plane_ = nullptr;
  std::unique_ptr<Painter> painter_;
};

/// Pixel access to a picture.
class RGBSurface {
 public:
  explicit RGBSurface(Picture& picture) : picture_(picture) {}

  Color Pixel(int x, int y) const { return picture_.At(x, y); }
  void Pixel(int x, int y, Color color);
  /// One table for all channels, or one for each.
  void Transform(const ToneTable& map);
  void Transform(const ToneTable& red, const ToneTable& green, const ToneTable& blue);
  /// Gives `color` to the pixel and all that touch it by a side and have its colour.
  void FloodFill(int x, int y, Color color);

 private:
  Picture& picture_;
};

}  // namespace brivolant
