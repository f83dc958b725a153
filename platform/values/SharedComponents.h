// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/values/Menu.h"
#include "platform/values/Text.h"

namespace brivolant {

class Random;

/// Small helpers that every part of the program uses.
namespace otherSharedComponents {

using brivolant::EnsureUTF8;

/// A menu item whose tag is `tag`.
MenuItem createMenuItem(std::string text, std::string tag, std::string icon, bool checked,
                        bool enabled);
/// Checks the child of `menu` at `index` and unchecks all others.
void Selected(MenuItem& menu, int index);
/// A name for uploads: blanks become "_"; dots, quotes, apostrophes and commas go; at most 31
/// characters.
std::string iNetSafe(std::string_view text);
/// The longest time between the clicks of a double click, in sixtieths of a second.
double DoubleClickTime();
/// 36 characters, 8-4-4-4-12 in upper-case hexadecimal. No version or variant bits.
std::string NewGUID(Random& random);

}  // namespace otherSharedComponents
}  // namespace brivolant
