// SPDX-License-Identifier: MIT
#include "effects/text/CaptionShapes.h"

#include <algorithm>
#include <cmath>

#include "engine/pictures/AdvancedGraphics.h"

namespace brivolant {
namespace {

enum Kind { kSpeech, kOvalSpeech, kOvalThought, kThought, kSquare, kOval, kRoundedSquare };

CGRect Rect(double x, double y, double w, double h) {
  return AdvancedGraphicsModule::MakeCGRect(static_cast<float>(x), static_cast<float>(y),
                                            static_cast<float>(w), static_cast<float>(h));
}

AdvancedGraphicsPath Speech(const AdvancedGraphics& g, double x, double y, double w, double h) {
  const double r = h / 5;
  AdvancedGraphicsPath path = g.NewPath();
  path.MoveToPoint(x, y + r);
  path.AddQuadCurveToPoint(x, y, x + r, y);
  path.AddLineToPoint(x + w - r, y);
  path.AddQuadCurveToPoint(x + w, y, x + w, y + r);
  path.AddLineToPoint(x + w, y + h - r);
  path.AddQuadCurveToPoint(x + w, y + h, x + w - r, y + h);
  path.AddQuadCurveToPoint(x + w - r, y + h + r, x + w - 2 * r, y + h + r);
  path.AddQuadCurveToPoint(x + w - 1.6 * r, y + h + r / 2, x + w - 2 * r, y + h);
  path.AddLineToPoint(x + r, y + h);
  path.AddQuadCurveToPoint(x, y + h, x, y + h - r);
  path.AddLineToPoint(x, y + r);
  return path;
}

AdvancedGraphicsPath OvalSpeech(const AdvancedGraphics& g, double x, double y, double w, double h) {
  const double r = h / 5;
  AdvancedGraphicsPath path = g.NewPath();
  path.MoveToPoint(x, y + h / 2);
  path.AddQuadCurveToPoint(x, y, x + w / 2, y);
  path.AddQuadCurveToPoint(x + w, y, x + w, y + h / 2);
  path.AddQuadCurveToPoint(x + w, y + h, x + w / 2 + r / 2, y + h);
  path.AddQuadCurveToPoint(x + w / 2, y + h + r / 2, x + w / 2 + r, y + h + r);
  path.AddQuadCurveToPoint(x + w / 2 - r, y + h + r, x + w / 2 - r, y + h);
  path.AddQuadCurveToPoint(x, y + h, x, y + h / 2);
  return path;
}

AdvancedGraphicsPath Cloud(const AdvancedGraphics& g, double x, double y, double w, double h,
                           double w5, double h3) {
  const double e = h / 10;
  AdvancedGraphicsPath path = g.NewPath();
  path.MoveToPoint(x + w5, y);
  path.AddCurveToPoint(x + 2 * w5 - 1, y - e, x + 2 * w5, y - e, x + 2 * w5, y);
  path.AddCurveToPoint(x + 4.75 * w5, y - e, x + w + e, y + 0.25 * h3, x + w, y + h3);
  path.AddCurveToPoint(x + w + e, y + h3, x + w + e, y + 2 * h3, x + w, y + 2 * h3);
  path.AddCurveToPoint(x + w + e, y + 2.75 * h3, x + 4.75 * w5, y + h + e, x + 4 * w5, y + h);
  path.AddCurveToPoint(x + 4 * w5, y + h + e, x + 4 * w5 - 1, y + h + e, x + 4 * w5 - 1, y + h);
  path.AddCurveToPoint(x + 0.25 * w5, y + h + e, x - e, y + 2.75 * h3, x, y + 2 * h3);
  path.AddCurveToPoint(x - e, y + 2 * h3, x - e, y + h3, x, y + h3);
  path.AddCurveToPoint(x - e, y + 0.25 * h3, x + 0.25 * w5, y - e, x + w5, y);
  return path;
}

}  // namespace

void DrawCaption(AdvancedGraphics& g, int x, int y, int w, int h, int kind) {
  g.SetFillColor(kWhite, 1);
  g.SetStrokeColor(kBlack, 1);
  g.PenThickness(std::max(h / 60.0, 0.5));
  const int w5 = w / 5;
  const int h5 = h / 5;
  const int h3 = h / 3;
  const double e = h / 10.0;
  // Two bubbles that trail down, the second to one side.
  const auto bubbles = [&](double below, int side) {
    const double bx = std::trunc(std::trunc(x + 0.75 * w) - w5 / 2.0);
    const double by = std::trunc(std::trunc(below) - h5 / 2.0);
    g.DrawOval(Rect(bx, by, w5, h5), kFillAndStroke);
    const int small = w5 / 2;
    const int flat = h5 / 2;
    g.DrawOval(Rect(bx + side * small, by + 2 * flat, small, flat), kFillAndStroke);
  };
  switch (kind) {
    case kSpeech:
      g.DrawPath(Speech(g, x, y, w, h), kFillAndStroke);
      break;
    case kOvalSpeech:
      g.DrawPath(OvalSpeech(g, x, y, w, h), kFillAndStroke);
      break;
    case kOvalThought:
      g.DrawOval(Rect(x, y, w, h), kFillAndStroke);
      bubbles(y + 0.95 * h, 1);
      break;
    case kThought:
      g.DrawPath(Cloud(g, x, y, w, h, w5, h3), kFillAndStroke);
      bubbles(y + h + e, -1);
      break;
    case kSquare:
      g.DrawRect(Rect(x, y, w, h), kFillAndStroke);
      break;
    case kOval:
      g.DrawOval(Rect(x, y, w, h), kFillAndStroke);
      break;
    case kRoundedSquare:
      g.DrawRoundRect(Rect(x, y, w, h), h / 4.0, kFillAndStroke);
      break;
    default:
      break;
  }
}

}  // namespace brivolant
