// SPDX-License-Identifier: MIT
#include "effects/looks/EffectModulePopArt.h"

#include <array>

#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/kernels/BlendKernels.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/LookKernels.h"

namespace brivolant {

namespace {

/// Colours of dark, middle and bright parts, for each of the four copies.
constexpr std::array<std::array<std::uint32_t, 3>, 4> kPanels{{{0x37302D, 0x29D9D3, 0xCFC10C},
                                                               {0x12520A, 0xFF1E1E, 0xEEF20E},
                                                               {0x113859, 0xFF8A00, 0x9BFF62},
                                                               {0x712D15, 0x23D700, 0xFF52F6}}};

/// Black lines on white: a pencil sketch, hardened.
Picture Lines(const Picture& picture, int width, int height) {
  constexpr double kBlur = 7;
  constexpr double kDarken = -40;
  constexpr int kColorDodge = 6;
  using namespace SharedPictureEffects;
  Picture lines = Scale(picture, width, height, kScaleExactly);
  lines = Blend(lines, GaussianBlur(Invert(lines), kBlur), kColorDodge, 1);
  Exposure(lines, kDarken);
  kernels::ReduceToBlackAndWhite(lines.Edit());
  return lines;
}

}  // namespace

void EffectModulePopArt::ApplyEffect(Picture& picture, double) {
  constexpr int kDarken = 4;
  const int width = picture.Width() / 2;
  const int height = picture.Height() / 2;
  if (width == 0 || height == 0) return;
  const Picture lines = Lines(picture, width, height);
  Picture lineLayer = NewPicture(picture.Width(), picture.Height(), 24);
  Picture colorLayer = NewPicture(picture.Width(), picture.Height(), 24);
  if (lines.IsNil() || lineLayer.IsNil() || colorLayer.IsNil()) return;
  SharedPictureEffects::Exposure(picture, Threshold);
  for (std::size_t i = 0; i < kPanels.size(); ++i) {
    const int left = i % 2 == 0 ? 0 : width;
    const int top = i < 2 ? 0 : height;
    kernels::Compose(lineLayer.Edit(), lines.View(), {}, left, top);
    const auto& panel = kPanels.at(i);
    kernels::PaintByValue(
        picture.View(), colorLayer.Edit(), left, top,
        {Color::FromRGB(panel[0]), Color::FromRGB(panel[1]), Color::FromRGB(panel[2])});
  }
  kernels::Blend(colorLayer.Edit(), lineLayer.View(), kDarken, 256);
  kernels::CopyArea(colorLayer.View(), 0, 0, picture.Edit());
}

}  // namespace brivolant
