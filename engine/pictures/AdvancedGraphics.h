// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/pictures/Picture.h"
#include "platform/values/Pair.h"

class QPainter;
class QPainterPath;
class QImage;
class QRectF;
class QTransform;

namespace brivolant {

class AdvancedGraphics;
class Graphics;

struct CGPoint {
  float x = 0;
  float y = 0;
  void EndianSwap();
};

struct CGSize {
  float width = 0;
  float height = 0;
  void EndianSwap();
};

struct CGRect {
  CGPoint origin;
  CGSize size;
  void EndianSwap();
  /// The 16 bytes of the four floats.
  std::string StringValue() const;
};

/// x' = a x + c y + tx, y' = b x + d y + ty.
struct CGAffineTransform {
  float a = 1;
  float b = 0;
  float c = 0;
  float d = 1;
  float tx = 0;
  float ty = 0;
  void EndianSwap();
  /// The 24 bytes of the six floats.
  std::string StringValue() const;
};

namespace AdvancedGraphicsModule {
/// The short form: vector drawing on what a Graphics draws on, while that one rests.
brivolant::AdvancedGraphics AdvancedGraphics(Graphics& graphics);
CGRect MakeCGRect(float x, float y, float width, float height);
CGAffineTransform MakeCGAffineTransform(float a, float b, float c, float d, float tx, float ty);
double Radian(double degrees);
float Right(const CGRect& rect);
float Bottom(const CGRect& rect);
}  // namespace AdvancedGraphicsModule

/// What is done with a shape.
enum DrawMode { kFill = 0, kStroke = 2, kFillAndStroke = 3 };

/// A shape of lines and curves. Points come from the top left, y down, and are kept with y up, as
/// the canvas that made the path has them.
class AdvancedGraphicsPath {
 public:
  /// `height` is that of the canvas.
  explicit AdvancedGraphicsPath(int height);
  ~AdvancedGraphicsPath();
  AdvancedGraphicsPath(const AdvancedGraphicsPath& other);
  AdvancedGraphicsPath& operator=(const AdvancedGraphicsPath& other);

  void MoveToPoint(double x, double y);
  void AddLineToPoint(double x, double y);
  void AddCurveToPoint(double c1x, double c1y, double c2x, double c2y, double x, double y);
  void AddQuadCurveToPoint(double cx, double cy, double x, double y);
  void AddRect(const CGRect& rect);
  void AddOval(const CGRect& rect);
  void AddPath(const AdvancedGraphicsPath& path);
  void CloseSubpath();
  /// Tested as the path now lies, after its turns and moves.
  bool ContainsPoint(double x, double y) const;
  CGRect BoundingBox() const;
  // About the canvas's origin, bottom left.
  void Rotate(double degrees);
  void Scale(double x, double y);
  void MovePath(double x, double y);

  /// What was done to the path so far.
  const CGAffineTransform& Transformation() const { return transformation_; }
  const QPainterPath& Native() const { return *path_; }

 private:
  double Up(double y) const { return height_ - y; }
  void Apply(const CGAffineTransform& transform);

  std::unique_ptr<QPainterPath> path_;
  int height_;
  CGAffineTransform transformation_;
};

/// An icon: the same picture in one or several sizes.
using IconReference = std::vector<Picture>;
/// Where an icon lies along a side of its rectangle that it does not fill; one of each direction
/// may be added up.
enum IconAlignment {
  kIconCenter = 0,
  kIconTop = 1,
  kIconBottom = 2,
  kIconLeft = 4,
  kIconRight = 8
};
/// How an icon shows its state: disabled is faint and grey, selected is darkened.
enum IconTransform { kIconNormal = 0, kIconDisabled = 1, kIconSelected = 2 };

/// Smooth vector drawing with opacity, paths and transformations on a picture. Rectangles and path
/// objects have their origin at the top left; points given to the canvas itself are native: bottom
/// left, y up. Lives for the drawing that makes it.
class AdvancedGraphics {
 public:
  /// Values of LastError.
  enum Error { kNoError = 0, kNoCanvas = -1 };

  /// The picture must outlive the object and not be edited elsewhere meanwhile.
  explicit AdvancedGraphics(Picture& target);
  /// The same on a mask, in grey: white is transparent.
  explicit AdvancedGraphics(Plane& target);
  /// On the picture or mask of a Graphics, which must not draw meanwhile.
  explicit AdvancedGraphics(Graphics& graphics);
  /// Draws with a painter that belongs to someone else, on a canvas of that size.
  AdvancedGraphics(QPainter& painter, int width, int height);
  ~AdvancedGraphics();
  AdvancedGraphics(const AdvancedGraphics&) = delete;
  AdvancedGraphics& operator=(const AdvancedGraphics&) = delete;

  int Width() const { return width_; }
  int Height() const { return height_; }
  /// kNoCanvas if there was nothing to draw on, such as a nil picture; drawing then does nothing.
  int LastError() const { return lastError_; }
  /// Brings all that was drawn so far into the picture; drawing may go on.
  void Close();

  /// All settings: transformation, colours, pen, shadow, font, opacity, smoothing and blend mode.
  /// Restoring without a saved state does nothing.
  void SaveState();
  void RestoreState();
  void Scale(double x, double y);
  void Translate(double x, double y);
  void Rotate(double degrees);
  void Concat(const CGAffineTransform& transform);
  /// Of everything drawn from now on, 0 to 1.
  void Alpha(double value);
  void AntiAlias(bool on);
  void SetFillColor(Color color, double alpha);
  void SetStrokeColor(Color color, double alpha);
  /// A shadow under all that is drawn from now on, as opaque as that is: `x`, `y` away (y up) in
  /// pixels of the canvas, and `blur` soft, twice the standard deviation.
  void SetShadow(double x, double y, double blur);
  void PenThickness(double width);
  void SetPenDashes(double on, double off);
  /// A blend mode by its number in kBlendNames; any other blends normally. The last four need a
  /// canvas whose pixels can be read, which a widget's are not: there they blend normally.
  void BlendMode(int mode);
  void SetTextFontAndSize(const std::string& name, double size);

  void DrawString(const std::string& text, double x, double y);
  void DrawImage(const Picture& picture, const CGRect& rect);
  /// The size of the icon that fits is taken, and drawn whole in the rectangle, in proportion.
  void DrawIcon(const IconReference& icon, const CGRect& rect, int alignment = kIconCenter,
                int transform = kIconNormal);
  /// To transparent: on a picture through its mask, which is up to date after Close. What is drawn
  /// there afterwards covers again.
  void ClearRect(const CGRect& rect);
  void DrawRect(const CGRect& rect, int mode);
  void DrawOval(const CGRect& rect, int mode);
  void DrawRoundRect(const CGRect& rect, double radius, int mode);
  /// From the rectangle's top to its bottom.
  void DrawGradient(const CGRect& rect, Color start, Color end, double startAlpha, double endAlpha);

  // The canvas's own path.
  bool OpenPath() const { return openPath_; }
  void BeginPath();
  void EndPath();
  void MoveToPoint(double x, double y);
  void AddLineToPoint(double x, double y);
  void DrawLine(double x1, double y1, double x2, double y2);
  void DrawPolygon(std::span<const Point> points, int mode);

  AdvancedGraphicsPath NewPath() const { return AdvancedGraphicsPath(height_); }
  void DrawPath(const AdvancedGraphicsPath& path, int mode);
  void DrawPath(int mode);

  /// A rectangle from the top left in native coordinates.
  CGRect CorrectRect(const CGRect& rect) const;

 private:
  struct State;
  void BeginOwn();
  void Begin();
  void Use(const State& state);
  /// Makes the canvas one with opacity, which the picture gets as its mask.
  void BecomeTransparent();
  /// The pixels that are drawn on; null if they cannot be read.
  const QImage* PixelsBeneath() const;
  /// Runs `paint` with shadow and blend mode; it draws within `bounds`.
  void Paint(const QRectF& bounds, const std::function<void(QPainter&)>& paint);
  void Draw(const QPainterPath& path, int mode);

  int width_;
  int height_;
  int lastError_ = kNoError;
  Picture* target_ = nullptr;
  bool transparent_ = false;
  std::unique_ptr<QImage> image_;
  std::unique_ptr<QPainter> own_;
  QPainter* painter_ = nullptr;
  std::unique_ptr<QTransform> base_;
  std::unique_ptr<State> state_;
  std::vector<State> saved_;
  std::unique_ptr<QPainterPath> path_;
  bool openPath_ = false;
};

/// Draws on the picture in bands, on all cores: `draw` is called once for each band, with a canvas
/// of the whole picture's size, and must draw the same each time.
void DrawInBands(Picture& picture, const std::function<void(AdvancedGraphics&)>& draw);

}  // namespace brivolant
