// SPDX-License-Identifier: MIT
// The value types of the vector layer, and its path.
#include <QPainterPath>
#include <QTransform>
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <numbers>

#include "engine/pictures/AdvancedGraphics.h"

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

QTransform QtTransform(const CGAffineTransform& t) {
  return {t.a, t.b, t.c, t.d, t.tx, t.ty};
}

CGAffineTransform After(const CGAffineTransform& first, const CGAffineTransform& then) {
  const QTransform t = QtTransform(first) * QtTransform(then);
  return {static_cast<float>(t.m11()), static_cast<float>(t.m12()), static_cast<float>(t.m21()),
          static_cast<float>(t.m22()), static_cast<float>(t.dx()),  static_cast<float>(t.dy())};
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
brivolant::AdvancedGraphics AdvancedGraphics(Graphics& graphics) {
  return brivolant::AdvancedGraphics(graphics);
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
  *path_ = QtTransform(transform).map(*path_);
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

}  // namespace brivolant
