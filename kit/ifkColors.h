// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

/// The theme's colours by their use, read from the palette in force.
namespace brivolant::ifkColors {

QColor listRowColorEven();
QColor listRowColorOdd();
QColor FrameActive();
QColor FrameInactive();
QColor TextActive();
QColor TextSelected();
QColor TextDisabled();
QColor Focus();
QColor FocusHighlight();
QColor IconLabelBackgroundSelected();
QColor DocumentWindowBackground();
QColor iAppsHighLightColor();
QColor SecondaryHighlightColor();
/// What windows are filled with.
QColor FillColor();
/// The knob of a slider.
QColor Thumb(bool active);
/// Behind the pointer.
QColor Hover();

}  // namespace brivolant::ifkColors
