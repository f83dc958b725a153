// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleAutoLevels.h"

#include "platform/pictures/kernels/ToneKernels.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {
constexpr LocalizedText kName{"EffectModuleAutoLevels.kName", "Auto Levels"};
constexpr int kThumbnailSize = 320;
}  // namespace

std::string EffectModuleAutoLevels::getName() const {
  return kName.Text();
}

void EffectModuleAutoLevels::calculateAutoLevels(const Picture& picture) {
  double scale = static_cast<double>(kThumbnailSize) / picture.Width();
  if (picture.Height() * scale > kThumbnailSize) {
    scale = static_cast<double>(kThumbnailSize) / picture.Height();
  }
  const Picture small = HistogramThumbnail(picture, static_cast<int>(picture.Width() * scale),
                                           static_cast<int>(picture.Height() * scale));
  const kernels::Histograms counts = kernels::CountLevels(small.View());
  const int pixels = small.Width() * small.Height();
  red_ = LevelRange::Of(counts.Red, pixels);
  green_ = LevelRange::Of(counts.Green, pixels);
  blue_ = LevelRange::Of(counts.Blue, pixels);
}

std::optional<ToneTables> EffectModuleAutoLevels::Tables(const Picture& picture) {
  calculateAutoLevels(picture);
  return ToneTables{red_.Stretch(), green_.Stretch(), blue_.Stretch()};
}

}  // namespace brivolant
