// SPDX-License-Identifier: MIT
#include "engine/pictures/ColorEffects.h"

#include <algorithm>

#include "engine/pictures/MaskedChange.h"
#include "platform/pictures/ToneTable.h"
#include "platform/pictures/kernels/LookKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant {
namespace {

kernels::ChannelMix GreyMix(int type) {
  constexpr std::array<std::array<double, 3>, 4> kWeights{{{0.299, 0.587, 0.114},
                                                           {0.2126, 0.7152, 0.0722},
                                                           {1 / 3.0, 1 / 3.0, 1 / 3.0},
                                                           {0.25, 0.5, 0.25}}};
  const bool known = type >= 0 && type < static_cast<int>(kWeights.size());
  const auto& weights = kWeights.at(static_cast<std::size_t>(known ? type : 0));
  return kernels::MakeChannelMix({weights, weights, weights});
}

/// The matrix of sepia(amount), amount 0 to 1.
kernels::ChannelMix SepiaMix(double amount) {
  const double a = 1 - amount;
  return kernels::MakeChannelMix({{{0.393 + 0.607 * a, 0.769 - 0.769 * a, 0.189 - 0.189 * a},
                                   {0.349 - 0.349 * a, 0.686 + 0.314 * a, 0.168 - 0.168 * a},
                                   {0.272 - 0.272 * a, 0.534 - 0.534 * a, 0.131 + 0.869 * a}}});
}

}  // namespace

void GrayscaleEffect::ApplyInPlace(Picture& source, int grayscaleTypeValue,
                                   const Plane* mask) const {
  const kernels::ChannelMix mix = GreyMix(grayscaleTypeValue);
  Rewrite(source, mask,
          [&mix](ConstPixels from, Pixels to) { kernels::MixChannels(from, to, mix); });
}

Picture GrayscaleEffect::Apply(Picture source, int grayscaleTypeValue, const Plane* mask) const {
  ApplyInPlace(source, grayscaleTypeValue, mask);
  return source;
}

void DesaturateEffect::ApplyInPlace(Picture& source, const Plane* mask) const {
  Change(source, mask, [](Pixels pixels) { kernels::Desaturate(pixels); });
}

Picture DesaturateEffect::Apply(Picture source, const Plane* mask) const {
  ApplyInPlace(source, mask);
  return source;
}

void SepiaEffect::ApplyInPlace(Picture& source, int value, const Plane* mask) const {
  constexpr double kWhole = 50;
  const kernels::ChannelMix mix = SepiaMix(std::clamp(value / kWhole, 0.0, 1.0));
  Rewrite(source, mask,
          [&mix](ConstPixels from, Pixels to) { kernels::MixChannels(from, to, mix); });
}

Picture SepiaEffect::Apply(Picture source, int value, const Plane* mask) const {
  ApplyInPlace(source, value, mask);
  return source;
}

void ColorFilterEffect::ApplyInPlace(Picture& source, int red, int green, int blue,
                                     const Plane* mask) const {
  const auto table = [](int share) {
    return MakeTable([share](int i) { return i * std::clamp(share, 0, 255) / 255.0; });
  };
  const ToneTables tables{table(red), table(green), table(blue)};
  Rewrite(source, mask,
          [&tables](ConstPixels from, Pixels to) { kernels::ApplyToneTables(from, to, tables); });
}

Picture ColorFilterEffect::Apply(Picture source, int red, int green, int blue,
                                 const Plane* mask) const {
  ApplyInPlace(source, red, green, blue, mask);
  return source;
}

}  // namespace brivolant
