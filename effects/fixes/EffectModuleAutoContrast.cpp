// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleAutoContrast.h"

#include "platform/pictures/kernels/ToneKernels.h"
#include "platform/values/Text.h"
#include "platform/values/Whole.h"

namespace brivolant {
namespace {
constexpr LocalizedText kName{"EffectModuleAutoContrast.kName", "Auto Contrast"};
constexpr int kThumbnailWidth = 128;
}  // namespace

std::string EffectModuleAutoContrast::getName() const {
  return kName.Text();
}

void EffectModuleAutoContrast::calculateAutoLevels(const Picture& picture) {
  const double scale = static_cast<double>(kThumbnailWidth) / picture.Width();
  const Picture small =
      HistogramThumbnail(picture, kThumbnailWidth, Whole(picture.Height() * scale));
  levels_ =
      LevelRange::Of(kernels::CountLevels(small.View()).Value, small.Width() * small.Height());
}

std::optional<ToneTables> EffectModuleAutoContrast::Tables(const Picture& picture) {
  calculateAutoLevels(picture);
  return ToneTables::All(levels_.Stretch());
}

}  // namespace brivolant
