// SPDX-License-Identifier: MIT
#include "engine/pictures/AdvancedGraphics.h"

#include <QFont>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <numbers>
#include <vector>

#include "platform/pictures/Parallel.h"

namespace brivolant {
namespace {

float Swapped(float value) {
  auto bytes = std::bit_cast<std::array<std::uint8_t, 4>>(value);
  std::reverse(bytes.begin(), bytes.end());
  return std::bit_cast<float>(bytes);
}

template <std::size_t kCount>
std::string BytesOf(const std::array<float, kCount>& values) {
  std::string bytes(sizeof values, '\0');
  std::memcpy(bytes.data(), values.data(), sizeof values);
  return bytes;
}

QRectF Native(const CGRect& r) {
  return {r.origin.x, r.origin.y, r.size.width, r.size.height};
}

QTransform Native(const CGAffineTransform& t) {
  return {t.a, t.b, t.c, t.d, t.tx, t.ty};
}

CGAffineTransform After(const CGAffineTransform& first, const CGAffineTransform& then) {
  const QTransform t = Native(first) * Native(then);
  return {static_cast<float>(t.m11()), static_cast<float>(t.m12()), static_cast<float>(t.m21()),
          static_cast<float>(t.m22()), static_cast<float>(t.dx()),  static_cast<float>(t.dy())};
}

QColor Native(Color color, double alpha) {
  return {color.Red, color.Green, color.Blue,
          static_cast<int>(std::lround(std::clamp(alpha, 0.0, 1.0) * 255))};
}

/// The painter's mode for a blend mode's number; hue and its kin have none and draw normally.
QPainter::CompositionMode ModeOf(int mode) {
  constexpr std::array kModes{
      QPainter::CompositionMode_SourceOver, QPainter::CompositionMode_Multiply,
      QPainter::CompositionMode_Screen,     QPainter::CompositionMode_Overlay,
      QPainter::CompositionMode_Darken,     QPainter::CompositionMode_Lighten,
      QPainter::CompositionMode_ColorDodge, QPainter::CompositionMode_ColorBurn,
      QPainter::CompositionMode_SoftLight,  QPainter::CompositionMode_HardLight,
      QPainter::CompositionMode_Difference, QPainter::CompositionMode_Exclusion};
  const bool known = mode >= 0 && mode < static_cast<int>(kModes.size());
  return known ? kModes.at(static_cast<std::size_t>(mode)) : QPainter::CompositionMode_SourceOver;
}

}  // namespace

void CGPoint::EndianSwap() {
  x = Swapped(x);
  y = Swapped(y);
}

void CGSize::EndianSwap() {
  width = Swapped(width);
  height = Swapped(height);
}

void CGRect::EndianSwap() {
  origin.EndianSwap();
  size.EndianSwap();
}

std::string CGRect::StringValue() const {
  return BytesOf(std::array{origin.x, origin.y, size.width, size.height});
}

void CGAffineTransform::EndianSwap() {
  for (float* field : {&a, &b, &c, &d, &tx, &ty}) *field = Swapped(*field);
}

std::string CGAffineTransform::StringValue() const {
  return BytesOf(std::array{a, b, c, d, tx, ty});
}

namespace AdvancedGraphicsModule {

CGRect MakeCGRect(float x, float y, float width, float height) {
  return {{x, y}, {width, height}};
}
CGAffineTransform MakeCGAffineTransform(float a, float b, float c, float d, float tx, float ty) {
  return {a, b, c, d, tx, ty};
}
double Radian(double degrees) {
  return degrees * std::numbers::pi / 180;
}
float Right(const CGRect& rect) {
  return rect.origin.x + rect.size.width;
}
float Bottom(const CGRect& rect) {
  return rect.origin.y + rect.size.height;
}

}  // namespace AdvancedGraphicsModule

AdvancedGraphicsPath::AdvancedGraphicsPath(int height)
    : path_(std::make_unique<QPainterPath>()), height_(height) {
  path_->setFillRule(Qt::WindingFill);
}
AdvancedGraphicsPath::~AdvancedGraphicsPath() = default;
AdvancedGraphicsPath::AdvancedGraphicsPath(const AdvancedGraphicsPath& other)
    : path_(std::make_unique<QPainterPath>(*other.path_)),
      height_(other.height_),
      transformation_(other.transformation_) {}
AdvancedGraphicsPath& AdvancedGraphicsPath::operator=(const AdvancedGraphicsPath& other) {
  *path_ = *other.path_;
  height_ = other.height_;
  transformation_ = other.transformation_;
  return *this;
}

void AdvancedGraphicsPath::MoveToPoint(double x, double y) {
  path_->moveTo(x, Up(y));
}
void AdvancedGraphicsPath::AddLineToPoint(double x, double y) {
  path_->lineTo(x, Up(y));
}
void AdvancedGraphicsPath::AddCurveToPoint(double c1x, double c1y, double c2x, double c2y, double x,
                                           double y) {
  path_->cubicTo(c1x, Up(c1y), c2x, Up(c2y), x, Up(y));
}
void AdvancedGraphicsPath::AddQuadCurveToPoint(double cx, double cy, double x, double y) {
  path_->quadTo(cx, Up(cy), x, Up(y));
}
void AdvancedGraphicsPath::AddRect(const CGRect& rect) {
  path_->addRect(rect.origin.x, Up(AdvancedGraphicsModule::Bottom(rect)), rect.size.width,
                 rect.size.height);
}
void AdvancedGraphicsPath::AddOval(const CGRect& rect) {
  path_->addEllipse(QRectF(rect.origin.x, Up(AdvancedGraphicsModule::Bottom(rect)), rect.size.width,
                           rect.size.height));
}
void AdvancedGraphicsPath::AddPath(const AdvancedGraphicsPath& path) {
  path_->addPath(*path.path_);
}
void AdvancedGraphicsPath::CloseSubpath() {
  path_->closeSubpath();
}

bool AdvancedGraphicsPath::ContainsPoint(double x, double y) const {
  return path_->contains(QPointF(x, Up(y)));
}

CGRect AdvancedGraphicsPath::BoundingBox() const {
  const QRectF box = path_->boundingRect();
  return {{static_cast<float>(box.x()), static_cast<float>(Up(box.y() + box.height()))},
          {static_cast<float>(box.width()), static_cast<float>(box.height())}};
}

void AdvancedGraphicsPath::Apply(const CGAffineTransform& transform) {
  *path_ = brivolant::Native(transform).map(*path_);
  transformation_ = After(transformation_, transform);
}

void AdvancedGraphicsPath::Rotate(double degrees) {
  const double angle = AdvancedGraphicsModule::Radian(degrees);
  const auto sine = static_cast<float>(std::sin(angle));
  const auto cosine = static_cast<float>(std::cos(angle));
  Apply({cosine, sine, -sine, cosine, 0, 0});
}

void AdvancedGraphicsPath::Scale(double x, double y) {
  Apply({static_cast<float>(x), 0, 0, static_cast<float>(y), 0, 0});
}

void AdvancedGraphicsPath::MovePath(double x, double y) {
  Apply({1, 0, 0, 1, static_cast<float>(x), static_cast<float>(y)});
}

struct AdvancedGraphics::State {
  QColor fill = Qt::black;
  QPen pen{Qt::black, 1};
  QPointF shadowOffset;
  double shadowBlur = -1;
};

AdvancedGraphics::AdvancedGraphics(Picture& target)
    : width_(target.Width()),
      height_(target.Height()),
      image_(std::make_unique<QImage>(target.EditImage())),
      own_(std::make_unique<QPainter>(image_.get())),
      painter_(own_.get()) {
  Begin();
}

AdvancedGraphics::AdvancedGraphics(QPainter& painter, int width, int height)
    : width_(width), height_(height), painter_(&painter) {
  painter_->save();
  Begin();
}

void AdvancedGraphics::Begin() {
  state_ = std::make_unique<State>();
  path_ = std::make_unique<QPainterPath>();
  painter_->setRenderHint(QPainter::Antialiasing);
  painter_->setRenderHint(QPainter::SmoothPixmapTransform);
  // Native coordinates: the origin at the bottom left, y up.
  painter_->translate(0, height_);
  painter_->scale(1, -1);
}

AdvancedGraphics::~AdvancedGraphics() {
  if (!own_) painter_->restore();
}

void AdvancedGraphics::SaveState() {
  painter_->save();
}
void AdvancedGraphics::RestoreState() {
  painter_->restore();
}
void AdvancedGraphics::Scale(double x, double y) {
  painter_->scale(x, y);
}
void AdvancedGraphics::Translate(double x, double y) {
  painter_->translate(x, y);
}
void AdvancedGraphics::Rotate(double degrees) {
  painter_->rotate(degrees);
}
void AdvancedGraphics::Concat(const CGAffineTransform& transform) {
  painter_->setTransform(Native(transform), true);
}
void AdvancedGraphics::Alpha(double value) {
  painter_->setOpacity(std::clamp(value, 0.0, 1.0));
}
void AdvancedGraphics::AntiAlias(bool on) {
  painter_->setRenderHint(QPainter::Antialiasing, on);
}
void AdvancedGraphics::SetFillColor(Color color, double alpha) {
  state_->fill = Native(color, alpha);
}
void AdvancedGraphics::SetStrokeColor(Color color, double alpha) {
  state_->pen.setColor(Native(color, alpha));
}
void AdvancedGraphics::SetShadow(double x, double y, double blur) {
  state_->shadowOffset = {x, y};
  state_->shadowBlur = blur;
}
void AdvancedGraphics::PenThickness(double width) {
  state_->pen.setWidthF(width);
}
void AdvancedGraphics::SetPenDashes(double on, double off) {
  const double unit = std::max(state_->pen.widthF(), 0.01);
  state_->pen.setDashPattern({on / unit, off / unit});
}
void AdvancedGraphics::BlendMode(int mode) {
  painter_->setCompositionMode(ModeOf(mode));
}
void AdvancedGraphics::SetTextFontAndSize(const std::string& name, double size) {
  QFont font(QString::fromStdString(name));
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(size))));
  painter_->setFont(font);
}

void AdvancedGraphics::DrawString(const std::string& text, double x, double y) {
  painter_->save();
  painter_->translate(x, y);
  painter_->scale(1, -1);
  painter_->setPen(state_->fill);
  painter_->drawText(QPointF(), QString::fromStdString(text));
  painter_->restore();
}

void AdvancedGraphics::DrawImage(const Picture& picture, const CGRect& rect) {
  if (picture.IsNil()) return;
  painter_->save();
  painter_->scale(1, -1);
  painter_->translate(0, -height_);
  QImage image = picture.AsImage();
  if (const Plane* mask = picture.Mask()) {
    image = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
      auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
      for (int x = 0; x < image.width(); ++x) {
        row[x] = (row[x] & 0xffffffU) | static_cast<QRgb>(255 - mask->At(x, y)) << 24;
      }
    }
  }
  painter_->drawImage(Native(rect), image);
  painter_->restore();
}

CGRect AdvancedGraphics::CorrectRect(const CGRect& rect) const {
  return {{rect.origin.x, static_cast<float>(height_) - (rect.origin.y + rect.size.height)},
          rect.size};
}

void AdvancedGraphics::ClearRect(const CGRect& rect) {
  painter_->save();
  painter_->setCompositionMode(QPainter::CompositionMode_Source);
  // A picture has no transparent pixels of its own: clear is white.
  painter_->fillRect(Native(CorrectRect(rect)), own_ ? Qt::white : Qt::transparent);
  painter_->restore();
}

void AdvancedGraphics::DrawShadow(const QPainterPath& path) {
  // A soft edge by copies of the shape from larger to smaller, each adding its share.
  constexpr int kSteps = 4;
  constexpr double kDarkness = 0.4;
  const QRectF box = path.boundingRect();
  if (box.width() <= 0 || box.height() <= 0) return;
  const QColor share(0, 0, 0, static_cast<int>(255 * kDarkness / kSteps));
  for (int i = 0; i < kSteps; ++i) {
    const double grow = state_->shadowBlur * (0.75 - 1.0 * i / kSteps);
    painter_->save();
    painter_->translate(box.center() + state_->shadowOffset);
    painter_->scale(std::max((box.width() + 2 * grow) / box.width(), 0.0),
                    std::max((box.height() + 2 * grow) / box.height(), 0.0));
    painter_->translate(-box.center());
    painter_->fillPath(path, share);
    painter_->restore();
  }
}

void AdvancedGraphics::Draw(const QPainterPath& path, int mode) {
  if (state_->shadowBlur >= 0) DrawShadow(path);
  if (mode == kFill || mode == kFillAndStroke) painter_->fillPath(path, state_->fill);
  if (mode == kStroke || mode == kFillAndStroke) painter_->strokePath(path, state_->pen);
}

void AdvancedGraphics::DrawRect(const CGRect& rect, int mode) {
  QPainterPath path;
  path.addRect(Native(CorrectRect(rect)));
  Draw(path, mode);
}

void AdvancedGraphics::DrawOval(const CGRect& rect, int mode) {
  QPainterPath path;
  path.addEllipse(Native(CorrectRect(rect)));
  Draw(path, mode);
}

void AdvancedGraphics::DrawRoundRect(const CGRect& rect, double radius, int mode) {
  const double x = rect.origin.x;
  const double y = rect.origin.y;
  const double w = rect.size.width;
  const double h = rect.size.height;
  const double r = std::clamp(radius, 0.0, std::min(w, h) / 2);
  // A quarter of a circle as a cubic: the usual distance of its control points from the corner.
  const double k = r * (1 - 0.5522847498);
  AdvancedGraphicsPath path = NewPath();
  path.MoveToPoint(x, y + r);
  path.AddLineToPoint(x, y + h - r);
  path.AddCurveToPoint(x, y + h - k, x + k, y + h, x + r, y + h);
  path.AddLineToPoint(x + w - r, y + h);
  path.AddCurveToPoint(x + w - k, y + h, x + w, y + h - k, x + w, y + h - r);
  path.AddLineToPoint(x + w, y + r);
  path.AddCurveToPoint(x + w, y + k, x + w - k, y, x + w - r, y);
  path.AddLineToPoint(x + r, y);
  path.AddCurveToPoint(x + k, y, x, y + k, x, y + r);
  path.CloseSubpath();
  DrawPath(path, mode);
}

void AdvancedGraphics::DrawGradient(const CGRect& rect, Color start, Color end, double startAlpha,
                                    double endAlpha) {
  const QRectF native = Native(CorrectRect(rect));
  const double middle = native.center().x();
  QLinearGradient gradient(middle, native.y() + native.height(), middle, native.y());
  gradient.setColorAt(0, Native(start, startAlpha));
  gradient.setColorAt(1, Native(end, endAlpha));
  painter_->fillRect(native, gradient);
}

void AdvancedGraphics::BeginPath() {
  *path_ = QPainterPath();
  openPath_ = true;
}
void AdvancedGraphics::EndPath() {
  openPath_ = false;
}
void AdvancedGraphics::MoveToPoint(double x, double y) {
  path_->moveTo(x, y);
}
void AdvancedGraphics::AddLineToPoint(double x, double y) {
  path_->lineTo(x, y);
}

void AdvancedGraphics::DrawLine(double x1, double y1, double x2, double y2) {
  painter_->setPen(state_->pen);
  painter_->drawLine(QPointF(x1, y1), QPointF(x2, y2));
}

void AdvancedGraphics::DrawPolygon(std::span<const Point> points, int mode) {
  if (points.empty()) return;
  QPainterPath path;
  path.moveTo(points[0].x, points[0].y);
  for (const Point& point : points.subspan(1)) path.lineTo(point.x, point.y);
  path.closeSubpath();
  Draw(path, mode);
}

void AdvancedGraphics::DrawPath(const AdvancedGraphicsPath& path, int mode) {
  Draw(path.Native(), mode);
}

void AdvancedGraphics::DrawPath(int mode) {
  Draw(*path_, mode);
  openPath_ = false;
}

void DrawInBands(Picture& picture, const std::function<void(AdvancedGraphics&)>& draw) {
  // Every band walks through all shapes: few bands, but more than cores, as they differ in work.
  constexpr int kBands = 6;
  const Pixels pixels = picture.Edit();
  const int rows = (pixels.height + kBands - 1) / kBands;
  ParallelRows(kBands, 1, [&](int from, int to) {
    for (int band = from; band < to; ++band) {
      const int top = band * rows;
      const int height = std::min(rows, pixels.height - top);
      if (height <= 0) return;
      QImage image(pixels.Row(top), pixels.width, height, static_cast<qsizetype>(pixels.stride),
                   QImage::Format_RGB32);
      QPainter painter(&image);
      painter.translate(0, -top);
      AdvancedGraphics graphics(painter, pixels.width, pixels.height);
      draw(graphics);
    }
  });
}

}  // namespace brivolant
