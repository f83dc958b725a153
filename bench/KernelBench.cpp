// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include "platform/pictures/Picture.h"
#include "platform/pictures/kernels/BlendKernels.h"
#include "platform/pictures/kernels/BlurKernels.h"
#include "platform/pictures/kernels/ColorKernels.h"
#include "platform/pictures/kernels/ScaleKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"
#include "platform/pictures/kernels/TurnKernels.h"

namespace {

using namespace brivolant;

Picture Noise(int width, int height) {
  Picture picture = Picture::Uninitialized(width, height);
  const Pixels pixels = picture.Edit();
  std::uint32_t state = 1;
  for (int y = 0; y < height; ++y) {
    auto* row = reinterpret_cast<std::uint32_t*>(pixels.Row(y));
    for (int x = 0; x < width; ++x) row[x] = (state = state * 1664525U + 1013904223U) | 0xFF000000U;
  }
  return picture;
}

ToneTables SomeTables() {
  ToneTable table = IdentityTable();
  table[7] = 9;
  return {table, IdentityTable(), table};
}

/// Runs an operation in place on a picture of the benchmark's size.
template <class Operation>
void InPlace(benchmark::State& state, Operation operation) {
  Picture picture = Noise(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  for (auto _ : state) {
    operation(picture.Edit());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0) * state.range(1));
}

#define BRIVOLANT_SIZES Args({1600, 1000})->Args({6000, 4000})->Unit(benchmark::kMillisecond)

void OneTable(benchmark::State& state) {
  const ToneTables tables = ToneTables::All(SomeTables().Red);
  InPlace(state, [&](Pixels p) { kernels::ApplyToneTables(p, tables); });
}
BENCHMARK(OneTable)->BRIVOLANT_SIZES;

void ThreeTables(benchmark::State& state) {
  const ToneTables tables = SomeTables();
  InPlace(state, [&](Pixels p) { kernels::ApplyToneTables(p, tables); });
}
BENCHMARK(ThreeTables)->BRIVOLANT_SIZES;

void Blur(benchmark::State& state) {
  const kernels::GaussianPlan plan(static_cast<double>(state.range(2)) / 2);
  InPlace(state, [&](Pixels p) { kernels::GaussianBlur(p, plan); });
}
BENCHMARK(Blur)->ArgsProduct({{6000}, {4000}, {2, 5, 10, 50, 180}})->Unit(benchmark::kMillisecond);

void Blend(benchmark::State& state) {
  const Picture fill = Noise(6000, 4000);
  InPlace(state,
          [&](Pixels p) { kernels::Blend(p, fill.View(), static_cast<int>(state.range(2)), 128); });
}
BENCHMARK(Blend)
    ->ArgsProduct({{6000}, {4000}, {0, 1, 3, 6, 7, 8, 11, 12, 13, 15}})
    ->Unit(benchmark::kMillisecond);

void LiftAndLower(benchmark::State& state) {
  const Plane mask(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), 100);
  InPlace(state, [&](Pixels p) { kernels::LiftAndLower(p, mask.View(), 40, 30); });
}
BENCHMARK(LiftAndLower)->BRIVOLANT_SIZES;

void TableByDarkness(benchmark::State& state) {
  const ToneTable table = SomeTables().Red;
  InPlace(state, [&](Pixels p) { kernels::BlendTableByDarkness(p, table); });
}
BENCHMARK(TableByDarkness)->BRIVOLANT_SIZES;

void HueSaturation(benchmark::State& state) {
  InPlace(state, [&](Pixels p) { kernels::ShiftHueSaturationLightness(p, 20, 30, 1); });
}
BENCHMARK(HueSaturation)->BRIVOLANT_SIZES;

void ScaleDown(benchmark::State& state) {
  Picture target = Picture::Uninitialized(1600, 1067);
  InPlace(state, [&](Pixels p) {
    kernels::Scale(p, {0, 0, static_cast<double>(p.width), static_cast<double>(p.height)},
                   target.Edit());
  });
}
BENCHMARK(ScaleDown)->Args({6000, 4000})->Unit(benchmark::kMillisecond);

void RotateQuarter(benchmark::State& state) {
  Picture target = Picture::Uninitialized(4000, 6000);
  InPlace(state, [&](Pixels p) { kernels::TurnPixels(p, target.Edit(), {true, true, false}); });
}
BENCHMARK(RotateQuarter)->Args({6000, 4000})->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
