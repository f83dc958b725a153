// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/FolderItem.h"

namespace brivolant {

/// The user's documents folder by the desktop's settings, else "Documents" in the home folder.
FolderItem DocumentsFolder();
/// Where this user's settings live: $XDG_CONFIG_HOME, else ".config" in the home folder.
FolderItem ConfigurationFolder();
/// Where this user's own programs keep data: $XDG_DATA_HOME, else ".local/share".
FolderItem DataFolder();

/// The folders of the program. Looked up on each call, so a test can hand in another home.
namespace otherSharedComponents {

/// The program's resources: beside the build's executables, or installed under "share". Nil if
/// they are missing; the caller then tells the user and ends.
FolderItem ResourcesFolder();
/// The user's own styles, borders and layouts: a folder of the program's name in the documents
/// folder, created if missing. Nil if it cannot be.
FolderItem userElementsFolder();
/// "My Brivolant Photos" in userElementsFolder, created if missing.
FolderItem DefaultPipDocumentsFolder();
/// "Combiner Layouts" in userElementsFolder, created if missing.
FolderItem usersCustomLayoutsFolder();
/// The message for missing resources. `supportPage` is the publisher's address.
std::string MissingResourcesMessage(const std::string& applicationName,
                                    const std::string& publisherName,
                                    const std::string& supportPage);

}  // namespace otherSharedComponents
}  // namespace brivolant
