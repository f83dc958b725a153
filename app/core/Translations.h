// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// The language of messages, by the usual environment variables in their order.
std::string UserLanguage();
/// Loads the texts of a language, such as "de" or "de_AT", from a folder of compiled translations,
/// above English ones in the words of this desktop. False if the language has none: the texts then
/// are English. Call it before any text is shown.
bool LoadTranslations(const FolderItem& folder, const std::string& language);

}  // namespace brivolant
