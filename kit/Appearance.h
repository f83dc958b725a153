// SPDX-License-Identifier: MIT
#pragma once

class QApplication;

namespace brivolant {

/// Light or dark windows, and the colours of both.
namespace Appearance {

enum Scheme { kFollowDesktop = 0, kLight = 1, kDark = 2 };

/// Gives the whole program the style and the palette of a scheme.
void Apply(QApplication& application, Scheme scheme);
/// Whether the dark scheme was applied.
bool IsDark();
/// What the desktop's settings portal prefers; kLight without one.
Scheme DesktopPreference();

}  // namespace Appearance
}  // namespace brivolant
