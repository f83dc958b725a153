// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

class QApplication;

namespace brivolant {

/// Light or dark windows, and the colours of both.
namespace Appearance {

enum Scheme { kFollowDesktop = 0, kLight = 1, kDark = 2 };

/// Gives the whole program the style and the palette of a scheme.
void Apply(QApplication& application, Scheme scheme);
/// What was applied: kLight or kDark.
Scheme InForce();
bool IsDark();
/// What the desktop's settings portal prefers; kLight without one.
Scheme DesktopPreference();

/// The one accent colour.
QColor Accent();

}  // namespace Appearance
}  // namespace brivolant
