// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QString>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// Where icons are read from; set once at the program's start.
void SetIconFolder(const FolderItem& folder);
/// The program's icon of that name (a file "NAME.svg"). Drawn for every size and scale, in
/// the palette's text colour where the drawing says "currentColor". An unknown name gives an
/// empty icon.
QIcon SvgIcon(const QString& name);
/// The file of a drawing.
QString SvgPath(const QString& name);
/// The drawing at `size` units of the desktop's coordinates in one colour.
QPixmap SvgPixmap(const QString& name, const QSize& size, double ratio, const QColor& color);

}  // namespace brivolant
