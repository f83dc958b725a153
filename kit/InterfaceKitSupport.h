// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QIcon>
#include <QRect>
#include <QString>

#include "platform/pictures/Picture.h"

class QPainter;
class QWidget;

namespace brivolant {

inline QString ToQString(const std::string& text) {
  return QString::fromStdString(text);
}
/// The text of a LocalizedText for the toolkit.
template <class Text>
QString Shown(const Text& text) {
  return QString::fromStdString(text.Text());
}

/// Helpers that the kit's controls share.
namespace InterfaceKitSupport {

// Variants of an icon: new pictures with the source's mask.

/// Lighter and flatter.
Picture AsDisabledIcon(const Picture& icon);
/// Darker.
Picture AsPressedIcon(const Picture& icon);
/// One pixel taller: a white copy of the shape one pixel lower, under the icon.
Picture AsEngraved(const Picture& icon);
/// The same in inverted tones.
Picture AsEngravedInversed(const Picture& icon);

/// The text, or its first characters by proportion if it is wider than `width`, less two.
QString ClipString(const QPainter& painter, const QString& text, int width);

/// Where DrawCaptionAndIcon puts the icon.
enum IconPlacement { kIconLeft = 0, kIconAbove = 1 };
/// A caption with its icon. "&&" stands for an ampersand, a single one is dropped. `alignment` is
/// a place of a 3 x 3 grid, left to right: 0 to 2 in the middle of the height, 3 to 5 at the top,
/// 6 to 8 at the bottom.
void DrawCaptionAndIcon(QPainter& painter, const QRect& rect, const QString& caption,
                        const QIcon& icon, int iconSize, int alignment, int placement,
                        bool enabled);

/// The soft shadow that a rectangle would throw, `dx`, `dy` away and `blur` wide; the rectangle
/// itself is filled, and the caller draws over it.
void DrawDropShadow(QPainter& painter, const QRectF& rect, double dx, double dy, double blur);

enum GradientKind { kGradientDown = 0, kGradientBand = 1 };
/// From one colour at the top to another at the bottom; a band goes there and back.
void DrawGradient(QPainter& painter, const QRect& rect, const QColor& from, const QColor& to,
                  GradientKind kind);

/// True if the control and all that holds it are on show.
bool Displayable(const QWidget& control);

}  // namespace InterfaceKitSupport
}  // namespace brivolant
