// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/values/Variant.h"

namespace brivolant {

/// The content of a style: for each stack a dictionary of identifier to settings in stack order,
/// and the blend settings.
struct StyleContent {
  std::optional<Dictionary> Foreground;
  std::optional<Dictionary> Background;
  std::optional<float> BlendAlpha;
  std::optional<int> BlendMode;
};

/// What was wrong with style data that was read.
enum class StyleFault {
  kNone,
  kWrongHeader,  ///< Not style data at all.
  kDamaged,      ///< A record or a dictionary could not be read; the rest was used.
};

/// Style data: a header, an "EFFC" record with both stacks and a "PROC" record with the blend
/// settings. Little-endian.
std::string WriteStyleData(const Dictionary& foreground, const Dictionary& background,
                           float blendAlpha, int blendMode);
/// Reads what can be read; what is missing or damaged is left empty.
StyleContent ReadStyleData(std::string_view bytes, StyleFault& fault);

}  // namespace brivolant
