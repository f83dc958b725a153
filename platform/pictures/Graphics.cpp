// SPDX-License-Identifier: MIT
#include "platform/pictures/Graphics.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <utility>
#include <vector>

#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/ScaleKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant {
namespace {

QColor ToQt(Color color) {
  return {color.Red, color.Green, color.Blue};
}

/// An outline of one pixel lies on the pixels of its rectangle's edge.
QRectF Outline(double x, double y, double w, double h) {
  return {x + 0.5, y + 0.5, w - 1, h - 1};
}

}  // namespace

class Graphics::Painter {
 public:
  explicit Painter(QImage image) : image_(std::move(image)), painter_(&image_) {}

  QPainter& With(const Graphics& graphics, bool fill) {
    painter_.setRenderHint(QPainter::Antialiasing, !graphics.UseOldRenderer);
    painter_.setRenderHint(QPainter::TextAntialiasing, true);
    const QColor color = ToQt(graphics.ForeColor);
    painter_.setPen(fill ? QPen(Qt::NoPen) : QPen(color));
    painter_.setBrush(fill ? QBrush(color) : QBrush(Qt::NoBrush));
    return painter_;
  }

 private:
  QImage image_;
  QPainter painter_;
};

Graphics::Graphics(Picture& target) : picture_(&target) {}
Graphics::Graphics(Plane& target) : plane_(&target) {}
Graphics::~Graphics() = default;

int Graphics::Width() const {
  return picture_ != nullptr ? picture_->Width() : plane_->Width();
}
int Graphics::Height() const {
  return picture_ != nullptr ? picture_->Height() : plane_->Height();
}

Picture* Graphics::TargetPicture() {
  painter_.reset();
  return picture_;
}
Plane* Graphics::TargetPlane() {
  painter_.reset();
  return plane_;
}

Graphics::Painter& Graphics::Paint() {
  if (!painter_) {
    if (picture_ != nullptr) {
      painter_ = std::make_unique<Painter>(picture_->EditImage());
    } else {
      const Grey grey = plane_->Edit();
      painter_ = std::make_unique<Painter>(QImage(grey.data, grey.width, grey.height,
                                                  static_cast<qsizetype>(grey.stride),
                                                  QImage::Format_Grayscale8));
    }
  }
  return *painter_;
}

void Graphics::ClearRect(double x, double y, double w, double h) {
  const Color color = std::exchange(ForeColor, kWhite);
  FillRect(x, y, w, h);
  ForeColor = color;
}

void Graphics::DrawLine(double x1, double y1, double x2, double y2) {
  Paint().With(*this, false).drawLine(QPointF(x1 + 0.5, y1 + 0.5), QPointF(x2 + 0.5, y2 + 0.5));
}

void Graphics::DrawOval(double x, double y, double w, double h) {
  Paint().With(*this, false).drawEllipse(Outline(x, y, w, h));
}

void Graphics::DrawRect(double x, double y, double w, double h) {
  Paint().With(*this, false).drawRect(Outline(x, y, w, h));
}

void Graphics::DrawRoundRect(double x, double y, double w, double h, double arcWidth,
                             double arcHeight) {
  Paint().With(*this, false).drawRoundedRect(Outline(x, y, w, h), arcWidth / 2, arcHeight / 2);
}

void Graphics::FillOval(double x, double y, double w, double h) {
  Paint().With(*this, true).drawEllipse(QRectF(x, y, w, h));
}

void Graphics::FillRect(double x, double y, double w, double h) {
  Paint().With(*this, true).drawRect(QRectF(x, y, w, h));
}

void Graphics::FillRoundRect(double x, double y, double w, double h, double arcWidth,
                             double arcHeight) {
  Paint().With(*this, true).drawRoundedRect(QRectF(x, y, w, h), arcWidth / 2, arcHeight / 2);
}

namespace {
QPolygonF Polygon(std::span<const Point> points) {
  QPolygonF polygon;
  for (const Point& point : points) polygon << QPointF(point.x, point.y);
  return polygon;
}

QFont FontOf(const Graphics& graphics) {
  QFont font(QString::fromStdString(graphics.TextFont));
  font.setPixelSize(std::max(1, static_cast<int>(graphics.TextSize)));
  font.setBold(graphics.Bold);
  return font;
}
}  // namespace

void Graphics::DrawPolygon(std::span<const Point> points) {
  Paint().With(*this, false).drawPolygon(Polygon(points));
}

void Graphics::FillPolygon(std::span<const Point> points) {
  Paint().With(*this, true).drawPolygon(Polygon(points));
}

void Graphics::DrawString(const std::string& text, double x, double y) {
  QPainter& painter = Paint().With(*this, false);
  painter.setFont(FontOf(*this));
  painter.drawText(QPointF(x, y), QString::fromStdString(text));
}

double Graphics::StringWidth(const std::string& text) {
  return QFontMetricsF(FontOf(*this)).horizontalAdvance(QString::fromStdString(text));
}

double Graphics::StringHeight(const std::string& text, double wrapWidth) {
  return QFontMetricsF(FontOf(*this))
      .boundingRect(QRectF(0, 0, wrapWidth, 1e6), Qt::TextWordWrap, QString::fromStdString(text))
      .height();
}

double Graphics::TextHeight() {
  return QFontMetricsF(FontOf(*this)).height();
}
double Graphics::TextAscent() {
  return QFontMetricsF(FontOf(*this)).ascent();
}

Color Graphics::Pixel(int x, int y) const {
  if (picture_ != nullptr) return picture_->At(x, y);
  const std::uint8_t level = plane_->At(x, y);
  return {level, level, level};
}

void Graphics::DrawPicture(const Picture& picture, int x, int y, int w, int h, int sourceX,
                           int sourceY, int sourceW, int sourceH) {
  if (picture.IsNil()) return;
  const auto orOwn = [](int value, int own) { return value == kOwnSize ? own : value; };
  const int sw = orOwn(sourceW, picture.Width() - sourceX);
  const int sh = orOwn(sourceH, picture.Height() - sourceY);
  const int tw = orOwn(w, sw);
  const int th = orOwn(h, sh);
  if (sw <= 0 || sh <= 0 || tw <= 0 || th <= 0) return;
  painter_.reset();

  Picture part = picture;
  const bool whole = sourceX == 0 && sourceY == 0 && sw == picture.Width() &&
                     sh == picture.Height() && tw == sw && th == sh;
  if (!whole) {
    const kernels::SourceArea area{static_cast<double>(sourceX), static_cast<double>(sourceY),
                                   static_cast<double>(sw), static_cast<double>(sh)};
    part = Picture::Uninitialized(tw, th, picture.Depth());
    if (part.IsNil()) return;
    kernels::Scale(picture.View(), area, part.Edit());
    if (const Plane* mask = picture.Mask()) {
      Plane scaled = Plane::Uninitialized(tw, th);
      kernels::Scale(mask->View(), area, scaled.Edit());
      part.SetMask(std::move(scaled));
    }
  }
  if (picture_ != nullptr) {
    const Plane* mask = part.Mask();
    kernels::Compose(picture_->Edit(), part.View(), mask != nullptr ? mask->View() : ConstGrey{}, x,
                     y);
    if (picture_->Depth() == 1) kernels::ReduceToBlackAndWhite(picture_->Edit());
  } else {
    Plane luma = Plane::Uninitialized(part.Width(), part.Height());
    if (luma.IsNil()) return;
    kernels::Luma(part.View(), luma.Edit());
    kernels::Compose(plane_->Edit(), luma.View(), x, y);
  }
}

void RGBSurface::Pixel(int x, int y, Color color) {
  std::uint8_t* pixel = picture_.Edit().Row(y) + std::ptrdiff_t{4} * x;
  pixel[0] = color.Blue;
  pixel[1] = color.Green;
  pixel[2] = color.Red;
}

void RGBSurface::Transform(const ToneTable& map) {
  kernels::ApplyToneTables(picture_.Edit(), ToneTables::All(map));
}

void RGBSurface::Transform(const ToneTable& red, const ToneTable& green, const ToneTable& blue) {
  kernels::ApplyToneTables(picture_.Edit(), {red, green, blue});
}

void RGBSurface::FloodFill(int x, int y, Color color) {
  if (x < 0 || y < 0 || x >= picture_.Width() || y >= picture_.Height()) return;
  const Color old = Pixel(x, y);
  if (old == color) return;
  // Runs of one row at a time; each looks at the rows above and below it.
  std::vector<std::pair<int, int>> seeds{{x, y}};
  while (!seeds.empty()) {
    const auto [seedX, row] = seeds.back();
    seeds.pop_back();
    if (Pixel(seedX, row) != old) continue;
    int left = seedX;
    while (left > 0 && Pixel(left - 1, row) == old) --left;
    int right = seedX;
    while (right + 1 < picture_.Width() && Pixel(right + 1, row) == old) ++right;
    for (int at = left; at <= right; ++at) {
      Pixel(at, row, color);
      if (row > 0 && Pixel(at, row - 1) == old) seeds.emplace_back(at, row - 1);
      if (row + 1 < picture_.Height() && Pixel(at, row + 1) == old) seeds.emplace_back(at, row + 1);
    }
  }
}

}  // namespace brivolant
