// SPDX-License-Identifier: MIT
#include "engine/pictures/PictureEffects.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine/pictures/MaskedChange.h"
#include "platform/pictures/ToneTable.h"
#include "platform/pictures/kernels/BlendKernels.h"
#include "platform/pictures/kernels/BlurKernels.h"
#include "platform/pictures/kernels/ColorKernels.h"
#include "platform/pictures/kernels/ScaleKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"
#include "platform/pictures/kernels/TurnKernels.h"

namespace brivolant {
namespace {

double Sigma(double radius) {
  return radius / 2;
}

/// A radius below it moves no level.
constexpr double kLeastRadius = 0.05;

kernels::SourceArea All(int width, int height) {
  return {0, 0, static_cast<double>(width), static_cast<double>(height)};
}

/// Blurs a picture or a plane in place. A wide blur leaves no detail that a smaller copy does not
/// hold, so beyond what the kernel takes, it is that copy which is blurred.
template <class Bitmap>
void Blur(Bitmap& bitmap, double sigma) {
  if (sigma <= kernels::GaussianPlan::kLargestSigma) {
    kernels::GaussianBlur(bitmap.Edit(), kernels::GaussianPlan(sigma));
    return;
  }
  int factor = 2;
  while (sigma / factor > kernels::GaussianPlan::kLargestSigma) factor *= 2;
  const int width = bitmap.Width();
  const int height = bitmap.Height();
  Bitmap small =
      ScaleEffect::BilinearScale(bitmap, std::max(1, width / factor), std::max(1, height / factor));
  Blur(small, sigma / factor);
  kernels::Scale(small.View(), All(small.Width(), small.Height()), bitmap.Edit());
}

}  // namespace

Picture GaussianBlur::ApplyEffect(Picture source, const Plane* mask) const {
  if (!(Radius >= kLeastRadius)) return source;
  if (source.IsNil()) return source;
  const bool limited = mask != nullptr && !mask->IsNil();
  Picture blurred = limited ? source : std::move(source);
  Blur(blurred, Sigma(Radius));
  Take(source, std::move(blurred), mask);
  return source;
}

Plane GaussianBlur::ApplyEffect(Plane source) const {
  if (Radius >= kLeastRadius && !source.IsNil()) Blur(source, Sigma(Radius));
  return source;
}

Picture InvertEffect::Apply(Picture source, const Plane* mask) const {
  ApplyInPlace(source, mask);
  return source;
}

void InvertEffect::ApplyInPlace(Picture& source, const Plane* mask) const {
  Change(source, mask, [](Pixels pixels) { kernels::Invert(pixels); });
}

namespace {
Picture Turned(const Picture& source, const kernels::Turn& turn) {
  if (source.IsNil()) return source;
  const int width = turn.exchange ? source.Height() : source.Width();
  const int height = turn.exchange ? source.Width() : source.Height();
  Picture result = Picture::Uninitialized(width, height, source.Depth());
  if (result.IsNil()) return result;
  result.HorizontalResolution = source.HorizontalResolution;
  result.VerticalResolution = source.VerticalResolution;
  kernels::TurnPixels(source.View(), result.Edit(), turn);
  return result;
}

Picture Mirrored(const Picture& source, bool alongX, bool alongY) {
  Picture result = Turned(source, {false, alongX, alongY});
  if (source.Mask() != nullptr) result.SetMask(*source.Mask());
  return result;
}
}  // namespace

Picture FlipEffect::ApplyHorizontal(const Picture& source) const {
  return Mirrored(source, true, false);
}
Picture FlipEffect::ApplyVertical(const Picture& source) const {
  return Mirrored(source, false, true);
}
Picture FlipEffect::ApplyBoth(const Picture& source) const {
  return Mirrored(source, true, true);
}

void FlipEffect::ApplyInPlaceHorizontal(Picture& source) const {
  Change(source, nullptr, [](Pixels pixels) { kernels::Mirror(pixels, true, false); });
}
void FlipEffect::ApplyInPlaceVertical(Picture& source) const {
  Change(source, nullptr, [](Pixels pixels) { kernels::Mirror(pixels, false, true); });
}
void FlipEffect::ApplyInPlaceBoth(Picture& source) const {
  Change(source, nullptr, [](Pixels pixels) { kernels::Mirror(pixels, true, true); });
}

namespace {
/// The turn of 0, 90, 180 or 270 degrees clockwise; false for any other angle.
bool QuarterTurn(double angle, kernels::Turn& turn) {
  const double quarters = std::fmod(std::fmod(angle, 360) + 360, 360) / 90;
  if (quarters == 0)
    turn = {};
  else if (quarters == 1)
    turn = {true, true, false};
  else if (quarters == 2)
    turn = {false, true, true};
  else if (quarters == 3)
    turn = {true, false, true};
  else
    return false;
  return true;
}
}  // namespace

Picture RotateEffect::Apply(const Picture& source, double angle, Color backColor,
                            [[maybe_unused]] int method) const {
  if (source.IsNil()) return source;
  kernels::Turn turn;
  if (QuarterTurn(angle, turn)) return Turned(source, turn);
  int width = 0;
  int height = 0;
  CalculateDestinationSize(source.Width(), source.Height(), angle, width, height);
  Picture result = Picture::Uninitialized(width, height, source.Depth());
  if (result.IsNil()) return result;
  result.HorizontalResolution = source.HorizontalResolution;
  result.VerticalResolution = source.VerticalResolution;
  kernels::RotateAnyAngle(source.View(), result.Edit(), angle, backColor.RGB());
  return result;
}

Plane RotateEffect::Apply(const Plane& source, double angle, std::uint8_t outside) const {
  if (source.IsNil()) return source;
  int width = 0;
  int height = 0;
  CalculateDestinationSize(source.Width(), source.Height(), angle, width, height);
  Plane result = Plane::Uninitialized(width, height);
  if (result.IsNil()) return result;
  kernels::Turn turn;
  if (QuarterTurn(angle, turn)) {
    kernels::TurnPlane(source.View(), result.Edit(), turn);
  } else {
    kernels::RotateAnyAngle(source.View(), result.Edit(), angle, outside);
  }
  return result;
}

void RotateEffect::CalculateDestinationSize(int sourceWidth, int sourceHeight, double angle,
                                            int& destinationWidth, int& destinationHeight) const {
  kernels::Turn turn;
  if (QuarterTurn(angle, turn)) {
    destinationWidth = turn.exchange ? sourceHeight : sourceWidth;
    destinationHeight = turn.exchange ? sourceWidth : sourceHeight;
    return;
  }
  const double radians = angle * std::numbers::pi / 180;
  const double c = std::abs(std::cos(radians));
  const double s = std::abs(std::sin(radians));
  destinationWidth = static_cast<int>(std::ceil(sourceWidth * c + sourceHeight * s));
  destinationHeight = static_cast<int>(std::ceil(sourceWidth * s + sourceHeight * c));
}

namespace {
template <class Bitmap>
Bitmap Resampled(const Bitmap& source, Bitmap target) {
  if (target.IsNil()) return target;
  kernels::Scale(source.View(), All(source.Width(), source.Height()), target.Edit());
  return target;
}
}  // namespace

Picture ScaleEffect::BilinearScale(const Picture& source, int width, int height) {
  if (source.IsNil() || (width == source.Width() && height == source.Height())) return source;
  Picture target = Resampled(source, Picture::Uninitialized(width, height, source.Depth()));
  target.HorizontalResolution = source.HorizontalResolution;
  target.VerticalResolution = source.VerticalResolution;
  return target;
}

Plane ScaleEffect::BilinearScale(const Plane& source, int width, int height) {
  if (source.IsNil() || (width == source.Width() && height == source.Height())) return source;
  return Resampled(source, Plane::Uninitialized(width, height));
}

Picture ScaleEffect::StretchHorizontal(const Picture& source, int width) {
  return BilinearScale(source, width, source.Height());
}
Picture ScaleEffect::StretchVertical(const Picture& source, int height) {
  return BilinearScale(source, source.Width(), height);
}

Picture BrightnessEffect::Apply(Picture source, int value, const Plane* mask) const {
  ApplyInPlace(source, value, mask);
  return source;
}

void BrightnessEffect::ApplyInPlace(Picture& source, int value, const Plane* mask) const {
  Change(source, mask, [value](Pixels pixels) { kernels::AddBrightness(pixels, value); });
}

Picture ContrastEffect::Apply(Picture source, int value, const Plane* mask) const {
  ApplyInPlace(source, value, mask);
  return source;
}

void ContrastEffect::ApplyInPlace(Picture& source, int value, const Plane* mask) const {
  const double gain = 1 + std::clamp(value, -100, 100) / 100.0;
  const ToneTable table =
      MakeTable([gain](int i) { return ((i / 255.0 - 0.5) * gain + 0.5) * 255 + 0.5; });
  Change(source, mask,
         [&table](Pixels pixels) { kernels::ApplyToneTables(pixels, ToneTables::All(table)); });
}

Picture HueSaturation::ApplyEffect(Picture source, const Plane* mask) const {
  ApplyInPlace(source, mask);
  return source;
}

void HueSaturation::ApplyInPlace(Picture& source, const Plane* mask) const {
  const auto changes = [](const kernels::HueShift& shift) {
    return shift.hue != 0 || shift.saturation != 0 || shift.lightness != 0;
  };
  const bool byRange = std::any_of(shifts_.begin() + 1, shifts_.end(), changes);
  Change(source, mask, [&](Pixels pixels) {
    if (byRange) return kernels::ShiftByHue(pixels, shifts_);
    const kernels::HueShift& all = shifts_.front();
    kernels::ShiftHueSaturationLightness(pixels, all.hue, all.saturation, all.lightness);
  });
}

Picture EnsurePictureCompatible(Picture source) {
  source.Depth(24);
  return source;
}

}  // namespace brivolant
