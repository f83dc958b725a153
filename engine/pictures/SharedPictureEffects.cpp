// SPDX-License-Identifier: MIT
#include "engine/pictures/SharedPictureEffects.h"

#include <algorithm>
#include <cmath>

#include "engine/pictures/BlendEffect.h"
#include "engine/pictures/PictureEffects.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/ScaleKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"
#include "platform/pictures/kernels/TurnKernels.h"
#include "platform/values/Whole.h"

namespace brivolant::SharedPictureEffects {

Picture GaussianBlur(const Picture& source, double radius) {
  if (radius == 0.0) return source;
  return brivolant::GaussianBlur(Whole(radius)).ApplyEffect(source);
}

Picture Invert(const Picture& source) {
  return InvertEffect().Apply(source);
}

Picture Blend(const Picture& base, const Picture& fill, int mode, float opacity) {
  BlendEffect blender;
  blender.BlendMode = mode;
  return blender.Apply(base, fill, opacity);
}

Picture Rotate(const Picture& source, int degrees, Color backColor, int method) {
  const RotateEffect rotator;
  Picture result = rotator.Apply(source, degrees, backColor, method);
  if (const Plane* mask = source.Mask()) {
    const auto outside = static_cast<std::uint8_t>(
        (77 * backColor.Red + 150 * backColor.Green + 29 * backColor.Blue) / 256);
    result.SetMask(rotator.Apply(*mask, degrees, outside));
  }
  return result;
}

Picture Flip(const Picture& source, int direction) {
  if (source.IsNil() || direction < 0 || direction > 2) return source;
  const bool alongX = direction != 1;
  const bool alongY = direction != 0;
  const FlipEffect flipper;
  Picture result = alongX && alongY ? flipper.ApplyBoth(source)
                   : alongX         ? flipper.ApplyHorizontal(source)
                                    : flipper.ApplyVertical(source);
  if (const Plane* mask = source.Mask()) {
    Plane flipped = Plane::Uninitialized(mask->Width(), mask->Height());
    if (!flipped.IsNil()) {
      kernels::TurnPlane(mask->View(), flipped.Edit(), {false, alongX, alongY});
    }
    result.SetMask(std::move(flipped));
  }
  return result;
}

namespace {

/// Where in the source the frame of a filling scale lies.
kernels::SourceArea FillArea(const Picture& source, int width, int height, const Pair* offset) {
  double scale = static_cast<double>(width) / source.Width();
  if (source.Height() * scale < height) scale = static_cast<double>(height) / source.Height();
  const double w = source.Width() * scale;
  const double h = source.Height() * scale;
  double x = (width - w) / 2;
  double y = (height - h) / 2;
  if (offset != nullptr) {
    // Rounding must not turn the range round.
    x = std::clamp(x + w * offset->Left / 100, std::min(width - w, 0.0), 0.0);
    y = std::clamp(y + h * offset->Right / 100, std::min(height - h, 0.0), 0.0);
  }
  return {-x / scale, -y / scale, width / scale, height / scale};
}

Picture Fill(const Picture& source, int width, int height, const Pair* offset) {
  Picture result = Picture::Uninitialized(width, height, 32);
  if (result.IsNil()) return result;
  result.HorizontalResolution = source.HorizontalResolution;
  result.VerticalResolution = source.VerticalResolution;
  const kernels::SourceArea area = FillArea(source, width, height, offset);
  kernels::Scale(source.View(), area, result.Edit());
  if (const Plane* mask = source.Mask()) {
    Plane scaled = Plane::Uninitialized(width, height);
    if (!scaled.IsNil()) kernels::Scale(mask->View(), area, scaled.Edit());
    result.SetMask(std::move(scaled));
  }
  return result;
}

}  // namespace

Picture Scale(const Picture& source, int width, int height, int mode, const Pair* offset) {
  if (source.IsNil()) return source;
  if (mode == kScaleToFill) return Fill(source, width, height, offset);
  int w = width;
  int h = height;
  if (mode == kScaleToFit) {
    double scale = static_cast<double>(width) / source.Width();
    if (height < source.Height() * scale) scale = static_cast<double>(height) / source.Height();
    // A hundredth of a pixel below the whole number is rounding, not size.
    w = std::max(1, static_cast<int>(source.Width() * scale + 0.01));
    h = std::max(1, static_cast<int>(source.Height() * scale + 0.01));
  }
  Picture result = ScaleEffect::BilinearScale(source, w, h);
  if (const Plane* mask = source.Mask()) {
    result.SetMask(ScaleEffect::BilinearScale(*mask, w, h));
  }
  return result;
}

Picture Clone(const Picture& source, int depth, bool ignoreMask) {
  if (source.IsNil()) return source;
  Picture copy = source;
  copy.Depth(depth);
  const Plane* mask = source.Mask();
  if (!ignoreMask || mask == nullptr) return copy;
  Picture drawn = NewPicture(source.Width(), source.Height(), depth);
  if (drawn.IsNil()) return drawn;
  drawn.HorizontalResolution = source.HorizontalResolution;
  drawn.VerticalResolution = source.VerticalResolution;
  kernels::Compose(drawn.Edit(), source.View(), mask->View(), 0, 0);
  return drawn;
}

Picture RotateForBestFit(const Picture& source, int targetWidth, int targetHeight) {
  const bool targetLandscape = targetWidth > targetHeight;
  const bool targetPortrait = targetWidth < targetHeight;
  const bool landscape = source.Width() > source.Height();
  const bool portrait = source.Width() < source.Height();
  if ((targetLandscape && portrait) || (targetPortrait && landscape)) {
    return Rotate(source, 270, kWhite, 1);
  }
  return source;
}

ToneTable ExposureTable(double amount) {
  ToneTable table = MakeTable([amount](int i) {
    const double x = i / 255.0;
    // sqrt(x) / (1 - x) has no value at the ends, where nothing moves.
    const double e = i == 0 || i == 255 ? 0 : x / (std::sqrt(x) / (1 - x));
    return (x + e / 10 * amount) * 255;
  });
  table.back() = 255;
  return table;
}

void Exposure(Picture& picture, double amount) {
  if (picture.IsNil()) return;
  kernels::ApplyToneTables(picture.Edit(), ToneTables::All(ExposureTable(amount)));
}

double Radians(int degrees) {
  return degrees * 0.017453292519943295;
}

int Orientation(const Picture& picture) {
  return picture.Width() < picture.Height() ? 1 : 0;
}

}  // namespace brivolant::SharedPictureEffects
