// SPDX-License-Identifier: MIT
#include "engine/ModuleParameter.h"

#include <cmath>

#include "platform/values/Hash.h"

namespace brivolant {
namespace parameters {

void Convert(const Variant& value, bool& result) {
  result = value.ToBool();
}
void Convert(const Variant& value, Color& result) {
  result = value.ToColor();
}
void Convert(const Variant& value, std::string& result) {
  result = value.ToText();
}

const char* NameOf(double) {
  return "double";
}
const char* NameOf(float) {
  return "single";
}
const char* NameOf(int) {
  return "integer";
}
const char* NameOf(bool) {
  return "boolean";
}
const char* NameOf(Color) {
  return "colour";
}
const char* NameOf(const std::string&) {
  return "string";
}

}  // namespace parameters

std::uint32_t SeedFor(std::string_view identifier, std::uint32_t throws) {
  return StableHash(identifier, throws);
}

double SliderMapping::ToPosition(double value) const {
  constexpr double kGrain = 10000;
  return std::nearbyint((value - offset) * divide / multiply * kGrain) / kGrain;
}

int TruncatedValue(double value) {
  constexpr double kRounding = 1e-9;
  return Variant(value + std::copysign(kRounding, value)).ToInt();
}

EffectModuleControl MenuParameter::Declare() const {
  MenuItem menu;
  for (const LocalizedText& text : items_) menu.Children.emplace_back().Text = text.Text();
  return {caption_.Text(), kControlMenu, std::move(menu), 0};
}

}  // namespace brivolant
