// SPDX-License-Identifier: MIT
#include "engine/pictures/AdvancedGraphics.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>

#include "engine/pictures/CanvasLayer.h"
#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/SoftShadow.h"
#include "platform/pictures/Graphics.h"
#include "platform/pictures/Parallel.h"
#include "platform/pictures/kernels/LookKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant {
namespace {

QRectF Native(const CGRect& r) {
  return {r.origin.x, r.origin.y, r.size.width, r.size.height};
}

QColor Native(Color color, double alpha) {
  return {color.Red, color.Green, color.Blue,
          static_cast<int>(std::lround(std::clamp(alpha, 0.0, 1.0) * 255))};
}

/// The painter's modes by the numbers of blend modes; it has none for the last four.
constexpr std::array kModes{
    QPainter::CompositionMode_SourceOver, QPainter::CompositionMode_Multiply,
    QPainter::CompositionMode_Screen,     QPainter::CompositionMode_Overlay,
    QPainter::CompositionMode_Darken,     QPainter::CompositionMode_Lighten,
    QPainter::CompositionMode_ColorDodge, QPainter::CompositionMode_ColorBurn,
    QPainter::CompositionMode_SoftLight,  QPainter::CompositionMode_HardLight,
    QPainter::CompositionMode_Difference, QPainter::CompositionMode_Exclusion};
constexpr int kLastBlendMode = 15;

bool NeedsLayer(int mode) {
  return mode >= static_cast<int>(kModes.size()) && mode <= kLastBlendMode;
}

QPainter::CompositionMode ModeOf(int mode) {
  const bool known = mode >= 0 && mode < static_cast<int>(kModes.size());
  return known ? kModes.at(static_cast<std::size_t>(mode)) : QPainter::CompositionMode_SourceOver;
}

/// The picture with its mask as opacity, or the bare pixels without a copy.
QImage ImageOf(const Picture& picture) {
  const Plane* mask = picture.Mask();
  if (mask == nullptr) return picture.AsImage();
  QImage image = picture.AsImage().convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      row[x] = (row[x] & 0xffffffU) | static_cast<QRgb>(255 - mask->At(x, y)) << 24;
    }
  }
  return image;
}

/// The picture no larger than it is drawn: a painter that shrinks leaves pixels out.
Picture AtMost(const Picture& picture, const QRectF& drawn, const QTransform& transform) {
  const auto pixels = [](double a, double b, double length) {
    return static_cast<int>(std::ceil(std::min(std::hypot(a, b) * std::abs(length), 1e6)));
  };
  const int width = std::max(pixels(transform.m11(), transform.m12(), drawn.width()), 1);
  const int height = std::max(pixels(transform.m21(), transform.m22(), drawn.height()), 1);
  if (width >= picture.Width() && height >= picture.Height()) return picture;
  const int w = std::min(width, picture.Width());
  const int h = std::min(height, picture.Height());
  Picture small = ScaleEffect::BilinearScale(picture, w, h);
  if (const Plane* mask = picture.Mask()) small.SetMask(ScaleEffect::BilinearScale(*mask, w, h));
  return small.IsNil() ? picture : small;
}

}  // namespace

struct AdvancedGraphics::State {
  /// Over the canvas's own coordinates.
  QTransform transform;
  double opacity = 1;
  bool antiAlias = true;
  int blendMode = 0;
  QColor fill = Qt::black;
  QPen pen{Qt::black, 1};
  QFont font;
  /// By what the font's whole pixels are multiplied.
  double fontScale = 1;
  QPointF shadowOffset;
  /// Below 0 there is no shadow.
  double shadowBlur = -1;
};

AdvancedGraphics::AdvancedGraphics(Picture& target)
    : width_(target.Width()), height_(target.Height()), target_(&target) {
  if (!target.IsNil()) image_ = std::make_unique<QImage>(target.EditImage());
  BeginOwn();
}

AdvancedGraphics::AdvancedGraphics(Plane& target)
    : width_(target.Width()), height_(target.Height()) {
  if (!target.IsNil()) {
    const Grey grey = target.Edit();
    image_ =
        std::make_unique<QImage>(grey.data, grey.width, grey.height,
                                 static_cast<qsizetype>(grey.stride), QImage::Format_Grayscale8);
  }
  BeginOwn();
}

AdvancedGraphics::AdvancedGraphics(Graphics& graphics)
    : width_(graphics.Width()), height_(graphics.Height()), target_(graphics.TargetPicture()) {
  if (target_ != nullptr && !target_->IsNil()) {
    image_ = std::make_unique<QImage>(target_->EditImage());
  } else if (Plane* plane = graphics.TargetPlane(); plane != nullptr && !plane->IsNil()) {
    const Grey grey = plane->Edit();
    image_ =
        std::make_unique<QImage>(grey.data, grey.width, grey.height,
                                 static_cast<qsizetype>(grey.stride), QImage::Format_Grayscale8);
  }
  BeginOwn();
}

AdvancedGraphics::AdvancedGraphics(QPainter& painter, int width, int height)
    : width_(width), height_(height), painter_(&painter) {
  if (!painter.isActive()) {
    BeginOwn();
    return;
  }
  painter_->save();
  Begin();
}

void AdvancedGraphics::BeginOwn() {
  if (!image_ || image_->isNull()) {
    // Drawing then goes nowhere, on a pixel of its own.
    lastError_ = kNoCanvas;
    target_ = nullptr;
    image_ = std::make_unique<QImage>(1, 1, QImage::Format_RGB32);
  }
  own_ = std::make_unique<QPainter>(image_.get());
  painter_ = own_.get();
  Begin();
}

void AdvancedGraphics::Begin() {
  state_ = std::make_unique<State>();
  state_->font = painter_->font();
  state_->opacity = own_ ? 1 : painter_->opacity();
  path_ = std::make_unique<QPainterPath>();
  painter_->setRenderHint(QPainter::SmoothPixmapTransform);
  // Native coordinates: the origin at the bottom left, y up.
  base_ = std::make_unique<QTransform>(painter_->worldTransform());
  base_->translate(0, height_);
  base_->scale(1, -1);
  Use(*state_);
}

void AdvancedGraphics::Use(const State& state) {
  painter_->setWorldTransform(state.transform * *base_);
  painter_->setOpacity(state.opacity);
  painter_->setRenderHint(QPainter::Antialiasing, state.antiAlias);
  painter_->setCompositionMode(ModeOf(state.blendMode));
  painter_->setFont(state.font);
}

AdvancedGraphics::~AdvancedGraphics() {
  Close();
  if (!own_) painter_->restore();
}

void AdvancedGraphics::Close() {
  if (!transparent_) return;
  const Pixels pixels = target_->Edit();
  Plane* mask = target_->Mask(true);
  if (mask == nullptr) return;
  const Grey clear = mask->Edit();
  for (int y = 0; y < pixels.height; ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(image_->constScanLine(y));
    for (int x = 0; x < pixels.width; ++x) {
      const int alpha = qAlpha(line[x]);
      const QRgb color = alpha == 0 ? qRgb(255, 255, 255) : qUnpremultiply(line[x]);
      std::uint8_t* pixel = pixels.Row(y) + std::ptrdiff_t{4} * x;
      pixel[0] = static_cast<std::uint8_t>(qBlue(color));
      pixel[1] = static_cast<std::uint8_t>(qGreen(color));
      pixel[2] = static_cast<std::uint8_t>(qRed(color));
      clear.Row(y)[x] = static_cast<std::uint8_t>(255 - alpha);
    }
  }
}

void AdvancedGraphics::BecomeTransparent() {
  if (transparent_) return;
  const QImage shown = ImageOf(*target_);
  auto image = std::make_unique<QImage>(shown.convertToFormat(QImage::Format_ARGB32_Premultiplied));
  if (image->isNull()) return;
  own_.reset();
  image_ = std::move(image);
  own_ = std::make_unique<QPainter>(image_.get());
  painter_ = own_.get();
  painter_->setRenderHint(QPainter::SmoothPixmapTransform);
  transparent_ = true;
  Use(*state_);
}

void AdvancedGraphics::SaveState() {
  saved_.push_back(*state_);
}
void AdvancedGraphics::RestoreState() {
  if (saved_.empty()) return;
  *state_ = saved_.back();
  saved_.pop_back();
  Use(*state_);
}
void AdvancedGraphics::Scale(double x, double y) {
  state_->transform.scale(x, y);
  Use(*state_);
}
void AdvancedGraphics::Translate(double x, double y) {
  state_->transform.translate(x, y);
  Use(*state_);
}
void AdvancedGraphics::Rotate(double degrees) {
  state_->transform.rotate(degrees);
  Use(*state_);
}
void AdvancedGraphics::Concat(const CGAffineTransform& t) {
  state_->transform = QTransform(t.a, t.b, t.c, t.d, t.tx, t.ty) * state_->transform;
  Use(*state_);
}
void AdvancedGraphics::Alpha(double value) {
  state_->opacity = std::clamp(value, 0.0, 1.0);
  painter_->setOpacity(state_->opacity);
}
void AdvancedGraphics::AntiAlias(bool on) {
  state_->antiAlias = on;
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
  state_->blendMode = mode;
  painter_->setCompositionMode(ModeOf(mode));
}
void AdvancedGraphics::SetTextFontAndSize(const std::string& name, double size) {
  QFont font(QString::fromStdString(name));
  const double pixels = std::clamp(size, 1.0, 10000.0);
  font.setPixelSize(static_cast<int>(std::ceil(pixels)));
  state_->font = font;
  state_->fontScale = pixels / std::ceil(pixels);
  painter_->setFont(font);
}

void AdvancedGraphics::Paint(const QRectF& bounds, const std::function<void(QPainter&)>& paint) {
  if (state_->shadowBlur >= 0) {
    // Shadows fall in the canvas's own coordinates, however what throws them is turned.
    const QTransform canvas = painter_->worldTransform().inverted() * painter_->combinedTransform();
    const QTransform device = *base_ * canvas;
    const double blur = state_->shadowBlur * std::sqrt(std::abs(device.determinant()));
    const QPointF offset = device.map(state_->shadowOffset) - device.map(QPointF());
    CanvasLayer shadow(*painter_, bounds, SoftShadow::Reach(blur), offset, paint);
    if (!shadow.IsEmpty()) {
      shadow.BecomeShadow(blur);
      shadow.Lay(*painter_);
    }
  }
  const QImage* under = NeedsLayer(state_->blendMode) ? PixelsBeneath() : nullptr;
  if (under == nullptr) {
    paint(*painter_);
    return;
  }
  CanvasLayer layer(*painter_, bounds, 0, {}, paint);
  if (layer.IsEmpty()) return;
  layer.BlendWith(*under, state_->blendMode);
  layer.Lay(*painter_);
}

const QImage* AdvancedGraphics::PixelsBeneath() const {
  if (image_) return image_.get();
  const QPaintDevice* device = painter_->device();
  return device->devType() == QInternal::Image ? static_cast<const QImage*>(device) : nullptr;
}

void AdvancedGraphics::DrawString(const std::string& text, double x, double y) {
  const QString string = QString::fromStdString(text);
  const double scale = state_->fontScale;
  const QFontMetricsF metrics(state_->font);
  const double over = metrics.height();
  // Letters may lean out of their line by as much as its height.
  const QRectF bounds(x - over, y - 2 * over, metrics.horizontalAdvance(string) + 2 * over,
                      4 * over);
  Paint(bounds, [&](QPainter& painter) {
    painter.save();
    painter.translate(x, y);
    painter.scale(scale, -scale);
    painter.setPen(state_->fill);
    painter.drawText(QPointF(), string);
    painter.restore();
  });
}

void AdvancedGraphics::DrawImage(const Picture& picture, const CGRect& rect) {
  if (picture.IsNil()) return;
  const QRectF place = Native(CorrectRect(rect));
  const Picture drawn = AtMost(picture, place, painter_->combinedTransform());
  const QImage image = ImageOf(drawn);
  Paint(place, [&](QPainter& painter) {
    painter.save();
    painter.scale(1, -1);
    painter.translate(0, -height_);
    painter.drawImage(Native(rect), image);
    painter.restore();
  });
}

void AdvancedGraphics::DrawIcon(const IconReference& icon, const CGRect& rect, int alignment,
                                int transform) {
  const float width = rect.size.width;
  const float height = rect.size.height;
  const Picture* chosen = nullptr;
  for (const Picture& size : icon) {
    if (size.IsNil()) continue;
    const auto covers = [&](const Picture& p) { return p.Width() >= static_cast<int>(width); };
    const bool better =
        chosen == nullptr || (covers(*chosen) ? size.Width() < chosen->Width() && covers(size)
                                              : size.Width() > chosen->Width());
    if (better) chosen = &size;
  }
  if (chosen == nullptr || width <= 0 || height <= 0) return;
  Picture drawn = *chosen;
  if (transform == kIconSelected) {
    kernels::ApplyToneTables(drawn.Edit(), ToneTables::All(MakeTable([](int i) { return i / 2; })));
  }
  if (transform == kIconDisabled) kernels::Desaturate(drawn.Edit());
  const auto w = static_cast<float>(drawn.Width());
  const auto h = static_cast<float>(drawn.Height());
  const float scale = std::min(width / w, height / h);
  const auto place = [alignment](float room, int near, int far) {
    if ((alignment & near) != 0) return 0.0F;
    return (alignment & far) != 0 ? room : room / 2;
  };
  const CGRect fitted{{rect.origin.x + place(width - w * scale, kIconLeft, kIconRight),
                       rect.origin.y + place(height - h * scale, kIconTop, kIconBottom)},
                      {w * scale, h * scale}};
  constexpr double kFaint = 0.5;
  painter_->setOpacity(state_->opacity * (transform == kIconDisabled ? kFaint : 1));
  DrawImage(drawn, fitted);
  painter_->setOpacity(state_->opacity);
}

CGRect AdvancedGraphics::CorrectRect(const CGRect& rect) const {
  return {{rect.origin.x, static_cast<float>(height_) - (rect.origin.y + rect.size.height)},
          rect.size};
}

void AdvancedGraphics::ClearRect(const CGRect& rect) {
  if (target_ != nullptr) BecomeTransparent();
  const QImage* image = PixelsBeneath();
  // On a mask, and where nothing can be transparent, clear is white.
  const bool opaque = image != nullptr && !image->hasAlphaChannel();
  painter_->save();
  painter_->setOpacity(1);
  painter_->setCompositionMode(opaque ? QPainter::CompositionMode_SourceOver
                                      : QPainter::CompositionMode_Clear);
  painter_->fillRect(Native(CorrectRect(rect)), opaque ? Qt::white : Qt::transparent);
  painter_->restore();
}

void AdvancedGraphics::Draw(const QPainterPath& path, int mode) {
  const bool fill = mode == kFill || mode == kFillAndStroke;
  const bool stroke = mode == kStroke || mode == kFillAndStroke;
  const double over = stroke ? std::max(state_->pen.widthF(), 1.0) : 0;
  Paint(path.controlPointRect().adjusted(-over, -over, over, over), [&](QPainter& painter) {
    if (fill) painter.fillPath(path, state_->fill);
    if (stroke) painter.strokePath(path, state_->pen);
  });
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
  const double r = std::clamp(radius, 0.0, std::max(std::min(w, h) / 2, 0.0));
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
  Paint(native, [&](QPainter& painter) { painter.fillRect(native, gradient); });
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
  const double over = std::max(state_->pen.widthF(), 1.0);
  const QRectF bounds = QRectF(QPointF(x1, y1), QPointF(x2, y2)).normalized();
  Paint(bounds.adjusted(-over, -over, over, over), [&](QPainter& painter) {
    painter.setPen(state_->pen);
    painter.drawLine(QPointF(x1, y1), QPointF(x2, y2));
  });
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
