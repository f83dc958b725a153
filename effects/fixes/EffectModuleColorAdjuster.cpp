// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleColorAdjuster.h"

namespace brivolant {

std::optional<ToneTables> EffectModuleColorAdjuster::Tables(const Picture&) {
  const auto channel = [](double gain) { return MakeTable([gain](int i) { return i * gain; }); };
  return ToneTables{channel(Red), channel(Green), channel(Blue)};
}

void EffectModuleColorAdjuster::Neutralize(Color color) {
  const int r = color.Red;
  const int g = color.Green;
  const int b = color.Blue;
  const int largest = g <= r && b <= r ? r : r <= g && b <= g ? g : b;
  const auto gain = [largest](int component) {
    return 1 + static_cast<float>(largest - component) / 255;
  };
  Red = gain(r);
  Green = gain(g);
  Blue = gain(b);
}

bool EffectModuleColorAdjuster::ButtonPushed(int index) {
  if (index == kSelectRow && PickColor) PickColor();
  return false;
}

}  // namespace brivolant
