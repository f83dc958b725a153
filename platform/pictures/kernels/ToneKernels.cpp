// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/ToneKernels.h"

#include <algorithm>
#include <cstddef>

#include "platform/pictures/Parallel.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/pictures/kernels/ToneKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace brivolant::kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Bytes = hn::ScalableTag<std::uint8_t>;

/// A 256-entry table as two halves of eight 16-byte ones. A byte shuffle gives 0 for an index of
/// 128 or more and else looks at its low four bits. So with an index below 128 that is lowered by
/// 16 at each step, all steps up to the index's own answer; `part` holds what makes their
/// exclusive-or the wanted entry.
struct SplitTable {
  alignas(64) std::uint8_t part[16][16];

  explicit SplitTable(const ToneTable& table) {
    for (std::size_t m = 0; m < 16; ++m) {
      for (std::size_t i = 0; i < 16; ++i) {
        const std::uint8_t before = m % 8 == 0 ? 0 : table[(m - 1) * 16 + i];
        part[m][i] = table[m * 16 + i] ^ before;
      }
    }
  }
};

template <class D, class V = hn::Vec<D>>
HWY_INLINE V HalfLookup(D d, const SplitTable& table, int first, V index) {
  const hn::RebindToSigned<D> signedBytes;
  // The other half's levels stay at 128 or more through all eight steps.
  index = hn::Or(index, hn::BitCast(d, hn::BroadcastSignBit(hn::BitCast(signedBytes, index))));
  V result = hn::Zero(d);
  const V sixteen = hn::Set(d, 16);
  for (int k = first; k < first + 8; ++k) {
#if HWY_ARCH_X86
    const V bounded = index;
#else
    const V bounded = hn::And(index, hn::Set(d, 0x8F));
#endif
    result = hn::Xor(result, hn::TableLookupBytesOr0(hn::LoadDup128(d, table.part[k]), bounded));
    index = hn::Sub(index, sixteen);
  }
  return result;
}

template <class D, class V = hn::Vec<D>>
HWY_INLINE V Lookup(D d, const SplitTable& table, V level) {
  return hn::Or(HalfLookup(d, table, 0, level),
                HalfLookup(d, table, 8, hn::Xor(level, hn::Set(d, 0x80))));
}

HWY_ATTR void ApplyOneTable(const std::uint8_t* from, std::uint8_t* to, std::size_t count,
                            const SplitTable& table, std::uint32_t keep) {
  const Bytes d;
  const auto kept =
      hn::BitCast(d, hn::Set(hn::RepartitionToWide<hn::RepartitionToWide<Bytes>>(), keep));
  for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
    hn::Store(hn::Or(Lookup(d, table, hn::Load(d, from + i)), kept), d, to + i);
  }
}

HWY_ATTR void ApplyThreeTables(const std::uint8_t* from, std::uint8_t* to, std::size_t count,
                               const SplitTable& red, const SplitTable& green,
                               const SplitTable& blue, const ToneTables& tables) {
  const Bytes d;
  const std::size_t step = 4 * hn::Lanes(d);
  std::size_t i = 0;
  for (; i + step <= count; i += step) {
    hn::Vec<Bytes> b;
    hn::Vec<Bytes> g;
    hn::Vec<Bytes> r;
    hn::Vec<Bytes> x;
    hn::LoadInterleaved4(d, from + i, b, g, r, x);
    hn::StoreInterleaved4(Lookup(d, blue, b), Lookup(d, green, g), Lookup(d, red, r), x, d, to + i);
  }
  for (; i < count; i += 4) {
    to[i] = tables.Blue[from[i]];
    to[i + 1] = tables.Green[from[i + 1]];
    to[i + 2] = tables.Red[from[i + 2]];
    to[i + 3] = 255;
  }
}

HWY_ATTR void ToneRows(ConstPixels source, Pixels target, int from, int to,
                       const ToneTables& tables) {
  const SplitTable red(tables.Red);
  if (tables.OneForAll()) {
    for (int y = from; y < to; ++y) {
      ApplyOneTable(source.Row(y), target.Row(y), target.stride, red, 0xFF000000U);
    }
    return;
  }
  const SplitTable green(tables.Green);
  const SplitTable blue(tables.Blue);
  for (int y = from; y < to; ++y) {
    ApplyThreeTables(source.Row(y), target.Row(y), target.stride, red, green, blue, tables);
  }
}

HWY_ATTR void InvertBytes(std::uint8_t* bytes, std::size_t count, std::uint32_t mask) {
  const Bytes d;
  const auto flip =
      hn::BitCast(d, hn::Set(hn::RepartitionToWide<hn::RepartitionToWide<Bytes>>(), mask));
  for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
    hn::Store(hn::Xor(hn::Load(d, bytes + i), flip), d, bytes + i);
  }
}

HWY_ATTR void AddBytes(std::uint8_t* bytes, std::size_t count, int amount) {
  const Bytes d;
  const auto rest =
      hn::BitCast(d, hn::Set(hn::RepartitionToWide<hn::RepartitionToWide<Bytes>>(), 0xFF000000U));
  const auto size = hn::Set(d, static_cast<std::uint8_t>(amount < 0 ? -amount : amount));
  for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
    const auto v = hn::Load(d, bytes + i);
    const auto sum = amount < 0 ? hn::SaturatedSub(v, size) : hn::SaturatedAdd(v, size);
    hn::Store(hn::Or(sum, rest), d, bytes + i);
  }
}

/// 77 R + 150 G + 29 B of each pixel, 0 to 65280.
template <class D32, class V = hn::Vec<D32>>
HWY_INLINE V WeightedSum(D32 d, V pixel) {
  const V byte = hn::Set(d, 0xFF);
  const V blue = hn::And(pixel, byte);
  const V green = hn::And(hn::ShiftRight<8>(pixel), byte);
  const V red = hn::And(hn::ShiftRight<16>(pixel), byte);
  return hn::Add(hn::Add(hn::Mul(red, hn::Set(d, 77)), hn::Mul(green, hn::Set(d, 150))),
                 hn::Mul(blue, hn::Set(d, 29)));
}

HWY_ATTR void LumaRow(const std::uint8_t* row, std::uint8_t* plane, int width, bool oneBit) {
  const hn::ScalableTag<std::uint32_t> d;
  const hn::Rebind<std::uint8_t, decltype(d)> d8;
  const auto* pixels = reinterpret_cast<const std::uint32_t*>(row);
  const auto half = hn::Set(d, 32640);
  for (int x = 0; x < width; x += static_cast<int>(hn::Lanes(d))) {
    const auto sum = WeightedSum(d, hn::Load(d, pixels + x));
    const auto level = oneBit ? hn::IfThenElseZero(hn::Not(hn::Lt(sum, half)), hn::Set(d, 255))
                              : hn::ShiftRight<8>(sum);
    hn::Store(hn::U8FromU32(level), d8, plane + x);
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace brivolant::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace brivolant::kernels {

HWY_EXPORT(ToneRows);
HWY_EXPORT(InvertBytes);
HWY_EXPORT(AddBytes);
HWY_EXPORT(LumaRow);

namespace {
constexpr int kGrain = 64;
constexpr std::uint32_t kColors = 0x00FFFFFFU;
}  // namespace

void ApplyToneTables(ConstPixels source, Pixels target, const ToneTables& tables) {
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    HWY_DYNAMIC_DISPATCH(ToneRows)(source, target, from, to, tables);
  });
}

void ApplyToneTables(Pixels pixels, const ToneTables& tables) {
  ApplyToneTables(pixels, pixels, tables);
}

void Invert(Pixels pixels) {
  ParallelRows(pixels.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      HWY_DYNAMIC_DISPATCH(InvertBytes)(pixels.Row(y), pixels.stride, kColors);
    }
  });
}

void Invert(Grey plane) {
  ParallelRows(plane.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      HWY_DYNAMIC_DISPATCH(InvertBytes)(plane.Row(y), plane.stride, 0xFFFFFFFFU);
    }
  });
}

void AddBrightness(Pixels pixels, int amount) {
  const int limited = std::clamp(amount, -255, 255);
  ParallelRows(pixels.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      HWY_DYNAMIC_DISPATCH(AddBytes)(pixels.Row(y), pixels.stride, limited);
    }
  });
}

namespace {
void LumaRows(ConstPixels pixels, Grey plane, bool oneBit) {
  ParallelRows(pixels.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      HWY_DYNAMIC_DISPATCH(LumaRow)(pixels.Row(y), plane.Row(y), pixels.width, oneBit);
    }
  });
}
}  // namespace

void Luma(ConstPixels pixels, Grey plane) {
  LumaRows(pixels, plane, false);
}
void BlackAndWhite(ConstPixels pixels, Grey plane) {
  LumaRows(pixels, plane, true);
}

Histograms CountLevels(ConstPixels pixels) {
  Histograms counts;
  for (int y = 0; y < pixels.height; ++y) {
    const std::uint8_t* pixel = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, pixel += 4) {
      ++counts.Blue[pixel[0]];
      ++counts.Green[pixel[1]];
      ++counts.Red[pixel[2]];
      ++counts.Value[std::max({pixel[0], pixel[1], pixel[2]})];
    }
  }
  return counts;
}

namespace reference {

void ApplyToneTables(Pixels pixels, const ToneTables& tables) {
  for (int y = 0; y < pixels.height; ++y) {
    std::uint8_t* pixel = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, pixel += 4) {
      pixel[0] = tables.Blue[pixel[0]];
      pixel[1] = tables.Green[pixel[1]];
      pixel[2] = tables.Red[pixel[2]];
    }
  }
}

void AddBrightness(Pixels pixels, int amount) {
  for (int y = 0; y < pixels.height; ++y) {
    std::uint8_t* pixel = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, pixel += 4) {
      for (int c = 0; c < 3; ++c) {
        pixel[c] = static_cast<std::uint8_t>(ClampValue(pixel[c] + amount));
      }
    }
  }
}

void Luma(ConstPixels pixels, Grey plane) {
  for (int y = 0; y < pixels.height; ++y) {
    const std::uint8_t* pixel = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, pixel += 4) {
      plane.Row(y)[x] =
          static_cast<std::uint8_t>((77 * pixel[2] + 150 * pixel[1] + 29 * pixel[0]) / 256);
    }
  }
}

void BlackAndWhite(ConstPixels pixels, Grey plane) {
  for (int y = 0; y < pixels.height; ++y) {
    const std::uint8_t* pixel = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, pixel += 4) {
      const int sum = 77 * pixel[2] + 150 * pixel[1] + 29 * pixel[0];
      plane.Row(y)[x] = sum >= 32640 ? 255 : 0;
    }
  }
}

}  // namespace reference
}  // namespace brivolant::kernels
#endif
