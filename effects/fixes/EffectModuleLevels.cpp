// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleLevels.h"

#include <algorithm>

#include "effects/fixes/LevelRange.h"
#include "platform/pictures/Graphics.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant {
namespace {

constexpr int kThumbnailWidth = 128;
constexpr std::uint32_t kGridStep = 500;
constexpr Color kGrid{192, 192, 192};
constexpr Color kBlue{0, 0, 255};

}  // namespace

std::optional<ToneTables> EffectModuleLevels::Tables(const Picture&) {
  // As floats: a stored style may hold any integers.
  const double shadows = Shadows;
  const double black = OutBlack;
  const double white = OutWhite;
  const double range = Highlights - shadows;
  // Where both ends meet, everything above them is white and everything below black.
  const double ratio = range == 0 ? 255.0 * 255.0 : (white - black) / range;
  return ToneTables::All(MakeTable(
      [&](int i) { return black + std::max(std::min((i - shadows) * ratio, white), 0.0); }));
}

void EffectModuleLevels::PostProcess(MarkCanvas& canvas, double) {
  Picture& picture = canvas.Target();
  const int w = picture.Width() / 4;
  const int h = picture.Height() / 5;
  const Picture histogram = Histogram(picture, w, h);
  Graphics(picture).DrawPicture(histogram, picture.Width() - w, picture.Height() - h);
}

Picture EffectModuleLevels::Histogram(const Picture& source, int width, int height) const {
  const Picture small = HistogramThumbnail(
      source, kThumbnailWidth,
      static_cast<int>(static_cast<double>(source.Height()) * kThumbnailWidth / source.Width()));
  const auto counts = kernels::CountLevels(small.View()).Value;
  const std::uint32_t tallest = *std::max_element(counts.begin() + 1, counts.end() - 1);
  const int threshold = static_cast<int>(small.Width() * small.Height() * 0.001);

  // Drawn at twice its size and reduced, so that thin bars keep their share.
  Picture picture = NewPicture(2 * width, 2 * height, 32);
  if (picture.IsNil()) return picture;
  {
    Graphics g(picture);
    g.UseOldRenderer = true;
    const int w = picture.Width();
    const int h = picture.Height();
    const double scale = tallest == 0 ? 0 : static_cast<double>(h) / tallest;
    const auto line = [&](double count) {
      const double y = h - count * scale;
      g.DrawLine(0, y, w - 1, y);
    };
    g.ForeColor = kGrid;
    for (std::uint32_t at = kGridStep; at <= tallest; at += kGridStep) line(at);
    g.ForeColor = kBlack;
    for (int bin = 1; bin <= 254; ++bin) {
      const int bar = static_cast<int>(counts[static_cast<std::size_t>(bin)] * scale);
      const int x = static_cast<int>(bin * (w / 256.0));
      g.FillRect(x, h - bar, std::max(1, w / 256), bar);
    }
    g.ForeColor = kBlue;
    line(threshold);
    g.ForeColor = kGrid;
    g.DrawRect(0, 0, w, h);
  }
  Picture result = NewPicture(width, height, 32);
  if (!result.IsNil()) {
    Graphics(result).DrawPicture(picture, 0, 0, width, height, 0, 0, picture.Width(),
                                 picture.Height());
  }
  return result;
}

}  // namespace brivolant
