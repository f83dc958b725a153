// SPDX-License-Identifier: MIT
#include "engine/pictures/SoftShadow.h"

#include <algorithm>
#include <cmath>

#include "engine/pictures/PictureEffects.h"
#include "platform/pictures/Parallel.h"
#include "platform/pictures/kernels/BlurKernels.h"
#include "platform/pictures/kernels/LookKernels.h"

namespace brivolant::SoftShadow {
namespace {

/// Below it nothing of a blur shows.
constexpr double kLeastBlur = 0.2;

/// How much of a shadow falls along a line of that length that many sides lie on. Empty without
/// memory.
Plane Profile(int length, std::span<const Side> sides, double blur) {
  const int reach = Reach(blur);
  Plane line(length + 2 * reach, 1, 0);
  if (line.IsNil()) return line;
  std::uint8_t* row = line.Edit().Row(0);
  for (const Side& side : sides) {
    const double from = std::clamp(side.from + reach, 0.0, line.Width() - 1.0);
    const double to = std::clamp(side.to + reach, from, static_cast<double>(line.Width()));
    for (int i = static_cast<int>(from); i < to; ++i) {
      const double covered = std::min(to, i + 1.0) - std::max(from, static_cast<double>(i));
      row[i] = static_cast<std::uint8_t>(std::min(row[i] + std::lround(255 * covered), 255L));
    }
  }
  Soften(line, blur);
  return line;
}

}  // namespace

int Reach(double blur) {
  const double sigma = blur / 2;
  if (!(blur >= kLeastBlur)) return 0;
  if (sigma <= kernels::GaussianPlan::kLargestSigma) return kernels::GaussianPlan(sigma).Reach();
  // Wider blurs are made on a smaller copy, whose pixels reach further.
  constexpr double kFarthest = 100000;
  return static_cast<int>(std::ceil(4 * std::min(sigma, kFarthest)));
}

void Soften(Plane& coverage, double blur) {
  if (coverage.IsNil() || !(blur >= kLeastBlur)) return;
  coverage = GaussianBlur(blur).ApplyEffect(std::move(coverage));
}

void LayGrid(Picture& picture, std::span<const Side> across, std::span<const Side> down,
             double blur) {
  // A Gaussian of two dimensions is the product of two of one.
  const Plane columns = Profile(picture.Width(), across, blur);
  const Plane lines = Profile(picture.Height(), down, blur);
  Plane spared = Plane::Uninitialized(picture.Width(), picture.Height());
  if (columns.IsNil() || lines.IsNil() || spared.IsNil()) return;
  constexpr int kGrain = 32;
  const int reach = Reach(blur);
  const std::uint8_t* column = columns.View().Row(0) + reach;
  const Grey rows = spared.Edit();
  ParallelRows(rows.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      // In 1/65536 of the product of both.
      const auto share =
          static_cast<std::uint32_t>(std::lround(lines.At(reach + y, 0) * kDarkness * 65536 / 255));
      std::uint8_t* row = rows.Row(y);
      for (int x = 0; x < rows.width; ++x) {
        row[x] = static_cast<std::uint8_t>(255 - ((column[x] * share + 32768) >> 16));
      }
    }
  });
  kernels::LayColor(picture.Edit(), kBlack, spared.View());
}

}  // namespace brivolant::SoftShadow
