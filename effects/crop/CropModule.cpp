// SPDX-License-Identifier: MIT
#include "effects/crop/CropModule.h"

#include <algorithm>
#include <cmath>

#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/AdvancedGraphics.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/BrivolantDocument.h"

namespace brivolant {
namespace {

constexpr LocalizedText kCrop{"CropModule.kCrop", "Crop"};
constexpr double kGrab = 0.05;
constexpr double kSmallest = 0.2;
/// The least that a stored crop shows.
constexpr double kLeast = 0.001;
constexpr double kFarthest = 0.8;
constexpr double kKeyStep = 0.01;
constexpr double kShade = 0.5;

bool Near(double a, double b) {
  return std::abs(a - b) < kGrab;
}

/// A document's rotation counts 1 to 3 quarter turns; any other number is none, as for its image.
int QuarterTurns(const BrivolantDocument& document) {
  return document.Rotation >= 1 && document.Rotation <= 3 ? document.Rotation : 0;
}

/// A document's numbers may be any; what is no number becomes `least`.
double Inside(double value, double least, double most) {
  return value > least ? std::min(value, most) : least;
}
Pair Inside(const Pair& value, double least, double most) {
  return {Inside(value.Left, least, most), Inside(value.Right, least, most)};
}

CGRect Rect(double x, double y, double w, double h) {
  return AdvancedGraphicsModule::MakeCGRect(static_cast<float>(x), static_cast<float>(y),
                                            static_cast<float>(w), static_cast<float>(h));
}

}  // namespace

std::string CropModule::getName() const {
  return kCrop.Text();
}

Pair CropModule::PhotoRatio() const {
  return SharedPictureEffects::AspectRatioAsPair(picWidth, picHeight);
}

void CropModule::ToShown() {
  double l = CropOffset.Left;
  double t = CropOffset.Right;
  double w = CropSize.Left;
  double h = CropSize.Right;
  for (int turn = 0; turn < QuarterTurns(*cDoc); ++turn) {
    const double left = l;
    l = 1 - (t + h);
    t = left;
    std::swap(w, h);
  }
  if (cDoc->Flip == 1) l = 1 - (l + w);
  if (cDoc->Flip == 2) t = 1 - (t + h);
  CropOffset = {l, t};
  CropSize = {w, h};
}

void CropModule::ToImage(Pair& offset, Pair& size) const {
  double l = CropOffset.Left;
  double t = CropOffset.Right;
  double w = CropSize.Left;
  double h = CropSize.Right;
  if (cDoc->Flip == 1) l = 1 - (l + w);
  if (cDoc->Flip == 2) t = 1 - (t + h);
  for (int turn = 0; turn < QuarterTurns(*cDoc); ++turn) {
    const double left = l;
    l = t;
    t = 1 - (left + w);
    std::swap(w, h);
  }
  offset = {l, t};
  size = {w, h};
}

void CropModule::Prepare(brivolantProcessorLite& processor) {
  myProcessor = &processor;
  cDoc = processor.Document;
  const Picture& original = cDoc->ImageOriginal();
  picWidth = original.Width();
  picHeight = original.Height();
  if (cDoc->Rotation == 1 || cDoc->Rotation == 3) std::swap(picWidth, picHeight);
  CropOffset = Inside(cDoc->CropOffSet, 0, 1 - kLeast);
  CropSize = {Inside(cDoc->CropSize.Left, kLeast, 1 - CropOffset.Left),
              Inside(cDoc->CropSize.Right, kLeast, 1 - CropOffset.Right)};
  ToShown();
  CropRatio = SharedPictureEffects::AspectRatioAsPair(static_cast<int>(CropSize.Left * picWidth),
                                                      static_cast<int>(CropSize.Right * picHeight));
  lastCropEnabled = cDoc->Crop;
  cDoc->Crop = false;
  // A change of the format cuts the picture, and the crop is chosen on all of it.
  lastOrientation = cDoc->Orientation;
  cDoc->Orientation = 0;
  processor.UpdatePreview(true);
}

void CropModule::Apply() {
  ToImage(cDoc->CropOffSet, cDoc->CropSize);
  cDoc->Crop = true;
  if (host_.SetDirty) host_.SetDirty();
  if (host_.CropMethod) host_.CropMethod();
}

void CropModule::Cancel() {
  cDoc->Crop = lastCropEnabled;
  if (host_.CropMethod) host_.CropMethod();
}

void CropModule::ClosingRoutine() {
  if (host_.CloseEditor) host_.CloseEditor();
}

void CropModule::SetCropRatio(const std::string& text) {
  using namespace CropEditorTexts;
  struct Known {
    const LocalizedText& text;
    Pair ratio;
  };
  const Known known[] = {
      {kCropAspectRatio16x9, {16, 9}}, {kCropAspectRatio1x1, {1, 1}},
      {kCropAspectRatio3x2, {3, 2}},   {kCropAspectRatio4x3, {4, 3}},
      {kCropAspectRatio8x10, {8, 10}}, {kCropAspectRatioFreeForm, {0, 0}},
  };
  CropRatio = PhotoRatio();
  for (const Known& entry : known) {
    if (text == entry.text.Text()) CropRatio = entry.ratio;
  }
  ConstrainCrop();
  myProcessor->UpdatePreview(false);
}

void CropModule::ConstrainCrop() {
  const int termW = static_cast<int>(CropRatio.Left);
  const int termH = static_cast<int>(CropRatio.Right);
  if (termW <= 0 || termH <= 0 || picWidth <= 0 || picHeight <= 0) return;
  const double pixelW = CropSize.Left * picWidth;
  const double pixelH = pixelW / CropRatio.Left * CropRatio.Right;
  CropSize = {pixelW / picWidth, pixelH / picHeight};
  if (CropOffset.Left + CropSize.Left <= 1 && CropOffset.Right + CropSize.Right <= 1) return;
  const double spaceX = std::trunc(picWidth - picWidth * CropOffset.Left);
  const double spaceY = std::trunc(picHeight - picHeight * CropOffset.Right);
  const double pw = picWidth * CropSize.Left;
  const double ph = picHeight * CropSize.Right;
  double factor = spaceX / pw;
  if (spaceY < ph * factor) factor = spaceY / ph;
  CropSize = {pw * factor / picWidth, ph * factor / picHeight};
}

int CropModule::HandleAt(double x, double y) const {
  const double l = CropOffset.Left;
  const double t = CropOffset.Right;
  const double r = l + CropSize.Left;
  const double b = t + CropSize.Right;
  if (Near(x, l)) return Near(y, t) ? kLeftTop : Near(y, b) ? kLeftBottom : kNoHandle;
  if (Near(x, r)) return Near(y, t) ? kRightTop : Near(y, b) ? kRightBottom : kNoHandle;
  return l < x && x < r && t < y && y < b ? kInside : kNoHandle;
}

bool CropModule::MouseActionDown(float x, float y, bool&) {
  lastMouse = {x, y};
  dragHandle_ = HandleAt(x, y);
  mouseDown_ = dragHandle_ != kNoHandle;
  return mouseDown_;
}

void CropModule::Drag(int handle, double dx, double dy) {
  double l = CropOffset.Left;
  double t = CropOffset.Right;
  double w = CropSize.Left;
  double h = CropSize.Right;
  const double r = l + w;
  const double b = t + h;
  switch (handle) {
    case kLeftTop:
      w -= dx;
      h -= dy;
      l = r - w;
      t = b - h;
      break;
    case kLeftBottom:
      w -= dx;
      h += dy;
      l = r - w;
      break;
    case kRightTop:
      w += dx;
      h -= dy;
      t = b - h;
      break;
    case kRightBottom:
      w += dx;
      h += dy;
      break;
    case kInside:
      l = l + w + dx >= 1 ? 1 - w : l + dx;
      t = t + h + dy >= 1 ? 1 - h : t + dy;
      break;
    default:
      return;
  }
  l = std::max(std::min(l, kFarthest), 0.0);
  t = std::max(std::min(t, kFarthest), 0.0);
  CropOffset = {l, t};
  CropSize = {std::max(std::min(w, 1 - l), kSmallest), std::max(std::min(h, 1 - t), kSmallest)};
  ConstrainCrop();
}

void CropModule::MouseActionDrag(float x, float y) {
  Drag(dragHandle_, x - lastMouse.Left, y - lastMouse.Right);
  lastMouse = {x, y};
}

void CropModule::MouseActionUp(float, float) {
  mouseDown_ = false;
  dragHandle_ = kNoHandle;
}

bool CropModule::KeyDown(const std::string& key, bool&) {
  if (key == "Left") {
    Drag(kInside, -kKeyStep, 0);
  } else if (key == "Right") {
    Drag(kInside, kKeyStep, 0);
  } else if (key == "Up") {
    Drag(kInside, 0, -kKeyStep);
  } else if (key == "Down") {
    Drag(kInside, 0, kKeyStep);
  } else if (key == "+") {
    Drag(kRightBottom, kKeyStep, kKeyStep);
  } else if (key == "-") {
    Drag(kRightBottom, -kKeyStep, -kKeyStep);
  } else if (key == "Return") {
    Apply();
  } else if (key == "Escape") {
    Cancel();
  } else {
    return false;
  }
  return true;
}

void CropModule::PostProcess(MarkCanvas& canvas, double scale) {
  const double width = canvas.Width();
  const double height = canvas.Height();
  const double x = CropOffset.Left * width;
  const double y = CropOffset.Right * height;
  const double w = CropSize.Left * width;
  const double h = CropSize.Right * height;
  AdvancedGraphics g(canvas.Painter(), canvas.Width(), canvas.Height());
  g.SetFillColor(kBlack, kShade);
  g.SetStrokeColor(kWhite, 1);
  g.DrawRect(Rect(0, 0, width, y), kFill);
  g.DrawRect(Rect(0, y + h, width, height - (y + h)), kFill);
  g.DrawRect(Rect(0, y, x, h), kFill);
  g.DrawRect(Rect(x + w, y, width - (x + w), h), kFill);
  g.PenThickness(std::max(1.0, scale / 2));
  g.DrawRect(Rect(x, y, w, h), kStroke);
  if (mouseDown_) {
    g.DrawRect(Rect(x + w / 3, y, w / 3, h), kStroke);
    g.DrawRect(Rect(x, y + h / 3, w, h / 3), kStroke);
  }
  // Corners that look as if they can be taken.
  const double arm = std::min({w, h, 24 * std::max(1.0, scale / 2)}) / 2;
  g.PenThickness(3 * std::max(1.0, scale / 2));
  for (const double cx : {x, x + w}) {
    for (const double cy : {y, y + h}) {
      AdvancedGraphicsPath corner = g.NewPath();
      corner.MoveToPoint(cx + (cx == x ? arm : -arm), cy);
      corner.AddLineToPoint(cx, cy);
      corner.AddLineToPoint(cx, cy + (cy == y ? arm : -arm));
      g.DrawPath(corner, kStroke);
    }
  }
}

void CropModule::Ended() {
  cDoc->Orientation = lastOrientation;
}

void CropModule::GotFocus() {
  if (host_.ShowEditor) host_.ShowEditor(*this);
}

void CropModule::LostFocus() {
  ClosingRoutine();
}

brivolant::MouseCursor CropModule::GetMouseCursor(int pointerState) {
  if (pointerState == kPointerDown && dragHandle_ == kInside) {
    return brivolant::MouseCursor::kClosedHand;
  }
  return brivolant::MouseCursor::kOpenHand;
}

}  // namespace brivolant
