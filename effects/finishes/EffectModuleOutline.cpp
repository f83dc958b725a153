// SPDX-License-Identifier: MIT
#include "effects/finishes/EffectModuleOutline.h"

#include <algorithm>
#include <cmath>

#include "engine/pictures/AdvancedGraphics.h"
#include "engine/pictures/MPImageFilter.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/LookKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant {

namespace {

enum MatteShape { kSquare = 0, kRounded = 1, kOval = 2, kTube = 3, kFlower = 4, kHeart = 5 };
enum EdgeEffect { kBlurred = 1, kDiffused = 2, kWaved = 3, kPixels = 4, kGlassy = 5 };

/// Four petals around (cx, cy), reaching (a, b); the second four lie between them.
void AddPetals(AdvancedGraphicsPath& path, const AdvancedGraphics& g, double cx, double cy,
               double a, double degrees) {
  const double corners[5][2] = {{a, -a}, {-a, -a}, {-a, a}, {a, a}, {a, -a}};
  const double turn = AdvancedGraphicsModule::Radian(degrees);
  const auto place = [&](const double(&p)[2]) {
    return Point{cx + p[0] * std::cos(turn) - p[1] * std::sin(turn),
                 cy + p[0] * std::sin(turn) + p[1] * std::cos(turn)};
  };
  for (int i = 0; i < 4; ++i) {
    const Point first = place(corners[i]);
    const Point second = place(corners[i + 1]);
    AdvancedGraphicsPath petal = g.NewPath();
    petal.MoveToPoint(cx, cy);
    petal.AddCurveToPoint(first.x, first.y, second.x, second.y, cx, cy);
    path.AddPath(petal);
  }
}

}  // namespace

Picture EffectModuleOutline::Opening(int width, int height) const {
  Picture opening = NewPicture(width, height, 24);
  if (opening.IsNil()) return opening;
  kernels::FillPixels(opening.Edit(), kBlack);
  const double w = width;
  const double h = height;
  const double ow = std::trunc(w - w * Size);
  const double oh = std::trunc(h - w * Size);
  const double ox = std::trunc((w - ow) / 2);
  const double oy = std::trunc((h - oh) / 2);
  const double cx = std::trunc(w / 2);
  const double cy = std::trunc(h / 2);
  const double m = std::min(ow, oh);
  if (ow <= 0 || oh <= 0) return opening;
  AdvancedGraphics g(opening);
  g.SetFillColor(kWhite, 1);
  const CGRect rect =
      AdvancedGraphicsModule::MakeCGRect(static_cast<float>(ox), static_cast<float>(oy),
                                         static_cast<float>(ow), static_cast<float>(oh));
  AdvancedGraphicsPath path = g.NewPath();
  switch (Shape.Value()) {
    case kSquare:
      g.DrawRect(rect, kFill);
      return opening;
    case kRounded:
      // The corner's size is its diameter.
      g.DrawRoundRect(rect, std::trunc(oh * 0.25) / 2, kFill);
      return opening;
    case kOval:
      g.DrawOval(rect, kFill);
      return opening;
    case kTube: {
      const double x1 = ox + ow;
      const double y1 = oy + oh;
      path.MoveToPoint(ox, oy);
      path.AddQuadCurveToPoint(w * 0.5, oy * 0.5, x1, oy);
      path.AddQuadCurveToPoint(x1 + ox * 0.5, h * 0.5, x1, y1);
      path.AddQuadCurveToPoint(w * 0.5, y1 + oy * 0.5, ox, y1);
      path.AddQuadCurveToPoint(ox * 0.5, h * 0.5, ox, oy);
      break;
    }
    case kFlower: {
      const double a = std::trunc(m * 0.66);
      AddPetals(path, g, cx, cy, a, 0);
      AddPetals(path, g, cx, cy, a, 45);
      break;
    }
    case kHeart: {
      const double a = std::trunc(m / 2);
      const double b = std::trunc(a / 2);
      path.MoveToPoint(cx - a, cy - b);
      path.AddCurveToPoint(cx - a, cy - a, cx, cy - a, cx, cy - b);
      path.AddCurveToPoint(cx, cy - a, cx + a, cy - a, cx + a, cy - b);
      path.AddQuadCurveToPoint(cx + a, cy + b, cx, cy + a);
      path.AddQuadCurveToPoint(cx - a, cy + b, cx - a, cy - b);
      break;
    }
    default:
      break;
  }
  g.DrawPath(path, kFill);
  return opening;
}

void EffectModuleOutline::TreatEdge(Picture& opening, double scale) const {
  constexpr double kWaves = 15;
  constexpr int kBlocks = 50;
  const double blur = 30 * scale;
  using namespace SharedPictureEffects;
  switch (Effect.Value()) {
    case kBlurred:
      opening = GaussianBlur(opening, blur);
      break;
    case kDiffused:
      opening = MPImageFilter::Diffuse(GaussianBlur(opening, blur), static_cast<int>(blur), true,
                                       MPImageFilter::GrainAt(scale), Seed.Value());
      break;
    case kWaved:
      opening = MPImageFilter::Wave(std::move(opening), kWaves, kBlack);
      break;
    case kPixels: {
      const Picture blocks = Scale(opening, kBlocks, kBlocks, kScaleExactly);
      kernels::Enlarge(blocks.View(), opening.Edit());
      break;
    }
    default:
      break;
  }
}

void EffectModuleOutline::ApplyEffect(Picture& picture, double scale) {
  Picture opening = Opening(picture.Width(), picture.Height());
  if (opening.IsNil()) return;
  TreatEdge(opening, scale);
  Plane mask = Plane::Uninitialized(picture.Width(), picture.Height());
  if (mask.IsNil()) return;
  kernels::Luma(opening.View(), mask.Edit());
  if (Effect != kGlassy) {
    kernels::LayColor(picture.Edit(), outlineColor, mask.View());
    return;
  }
  Picture matte = Picture::Uninitialized(picture.Width(), picture.Height());
  if (matte.IsNil()) return;
  kernels::FillPixels(matte.Edit(), outlineColor);
  constexpr double kRadius = 30;
  matte = SharedPictureEffects::Blend(
      matte, SharedPictureEffects::GaussianBlur(picture, kRadius * scale), 0, 0.5F);
  kernels::Compose(picture.Edit(), matte.View(), mask.View(), 0, 0);
}

}  // namespace brivolant
