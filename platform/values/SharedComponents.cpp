// SPDX-License-Identifier: MIT
#include "platform/values/SharedComponents.h"

#include <QGuiApplication>
#include <QStyleHints>

#include "platform/services/Services.h"

namespace brivolant::otherSharedComponents {

MenuItem createMenuItem(std::string text, std::string tag, std::string icon, bool checked,
                        bool enabled) {
  return {std::move(text), std::move(tag), std::move(icon), checked, enabled, {}};
}

void Selected(MenuItem& menu, int index) {
  for (std::size_t i = 0; i < menu.Children.size(); ++i) {
    menu.Children[i].Checked = static_cast<int>(i) == index;
  }
}

std::string iNetSafe(std::string_view text) {
  constexpr std::size_t kLongest = 31;
  std::string safe;
  std::size_t characters = 0;
  for (const char c : text) {
    if (c == '.' || c == '"' || c == '\'' || c == ',') continue;
    const bool continues = (static_cast<unsigned char>(c) & 0xC0) == 0x80;
    if (!continues && ++characters > kLongest) break;
    safe += c == ' ' ? '_' : c;
  }
  return safe;
}

double DoubleClickTime() {
  constexpr double kTicksPerMillisecond = 60 / 1000.0;
  constexpr double kWithoutDesktop = 400 * kTicksPerMillisecond;
  if (QGuiApplication::instance() == nullptr) return kWithoutDesktop;
  static const double ticks =
      QGuiApplication::styleHints()->mouseDoubleClickInterval() * kTicksPerMillisecond;
  return ticks;
}

std::string NewGUID(Random& random) {
  const auto group = [&random](double highest, int digits) {
    return Hexadecimal(static_cast<std::uint64_t>(random.Rnd() * highest), digits);
  };
  std::string id = group(4294967295.0, 8) + '-';
  id += group(65535, 4) + '-';
  id += group(65535, 4) + '-';
  for (int round = 0; round < 4; ++round) {
    id += group(255, 2);
    id += group(255, 2);
    if (round == 0) id += '-';
  }
  return id;
}

}  // namespace brivolant::otherSharedComponents
