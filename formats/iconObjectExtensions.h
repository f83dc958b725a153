// SPDX-License-Identifier: MIT
#pragma once

#include "formats/iconObject.h"

/// Where icons come from: icon files, disks that bring their own, and the desktop's theme. Logs and
/// sources must outlive what is returned.
namespace brivolant::iconObjectExtensions {

/// True if a file is an icon by its extension: ".icns" or ".ico".
bool IsIconFile(const FolderItem& file);
/// The icon in an icon file; Error is set if it is none.
iconObject OpenAsIcon(const FolderItem& file, Log& log);
/// The icon that stands for a file or folder: what an icon file shows, what a folder or disk brings
/// along, else what the desktop's theme has for its kind. Reads the file, so it may wait for a
/// disk.
iconObject Icon(const FolderItem& file, IconSource& icons, Log& log);
/// The picture that a folder or disk brings along as its own, at `size` or the nearest there is;
/// nil if it brings none.
Picture OwnIcon(const FolderItem& folder, int size);
/// The largest side of an icon file fitted to `longest` from above where there is such a size; nil
/// if the file is no icon.
Picture Preview(const FolderItem& file, int longest);
/// The program's own icon in that size or the nearest there is; −1 for the largest.
Picture ApplicationIcon(int size, IconSource& icons, Log& log);
/// An icon of the system by the name that the older desktop gave it, such as
/// "ToolbarPicturesFolderIcon"; names of this desktop's theme are taken too.
iconObject LeopardIcon(const std::string& name, IconSource& icons, Log& log);

}  // namespace brivolant::iconObjectExtensions
