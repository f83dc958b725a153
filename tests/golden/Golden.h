// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/pictures/Picture.h"
#include "platform/services/Services.h"

namespace brivolant::test {

/// What an effect makes of the golden input, at settings that show it.
struct GoldenRender {
  /// Class of the effect: the name of its golden picture.
  std::string name;
  Picture picture;
};

/// All finished effects of the foreground, sliders at 70 of 100, with fixed dice.
std::vector<GoldenRender> RenderGolden(const Picture& input, const Services& services);

}  // namespace brivolant::test
