// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "effects/styles/OneClickWonder.h"

/// A 1-Click style as a text that people read and write:
///
///     # a comment
///     name = Slide Film
///     name[German] = Diafilm
///     about = Rich reds and deep skies.
///     category = Quill Favorites
///     blend = Overlay
///     opacity = 0.8
///
///     [top layer]
///     Levels.Shadows = 8
///     Auto Levels = on
///
///     [bottom layer]
///     Greyscale = on
///
/// Effects, keys and values are those of the command line's --set; to set a key switches its effect
/// on. Effects work in the order in which they are first named.
namespace brivolant::StyleSource {

inline constexpr LocalizedText kBadLine{"StyleSource.kBadLine",
                                        "Line <line> of the style's source, \"<text>\", <reason>."};
inline constexpr LocalizedText kNoValue{"StyleSource.kNoValue", "has no \"=\""};
inline constexpr LocalizedText kUnknownKey{"StyleSource.kUnknownKey",
                                           "names something that a style does not have"};
inline constexpr LocalizedText kUnknownEffect{"StyleSource.kUnknownEffect",
                                              "names an effect that does not exist"};
inline constexpr LocalizedText kUnknownSetting{"StyleSource.kUnknownSetting",
                                               "names a setting that its effect does not have"};
inline constexpr LocalizedText kBadValue{"StyleSource.kBadValue",
                                         "gives a value that does not fit"};
inline constexpr LocalizedText kNoName{"StyleSource.kNoName",
                                       "The style's source gives it no name."};

/// Fills names, descriptions, category, maker and stack. False, with one sentence in `error`, if a
/// line cannot be understood; then nothing has changed.
[[nodiscard]] bool Read(std::string_view text, const Services& services, OneClickWonder& style,
                        std::string& error);
/// The source of a style: settings that differ from those of a new effect.
std::string Write(const OneClickWonder& style, const Services& services);

/// The preview of a style on a picture, no side longer than `side`. Nil without a picture.
Picture Render(const std::string& styleData, const Picture& picture, int side,
               const Services& services);

}  // namespace brivolant::StyleSource
