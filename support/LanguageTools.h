// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/values/Text.h"

/// Languages by the small numbers that style files store beside their texts.
namespace brivolant::LanguageTools {

/// Numbers run from 0 to one less.
inline constexpr int kLanguageCount = 108;
/// The number of the translation in force; every translation puts its own here.
inline constexpr LocalizedText kUserLanguageID{"LanguageTools.UserLanguageID", "0"};
inline constexpr LocalizedText kLanguage{"LanguageTools.kLanguage", "Language:"};

/// The language's name in the language in force; empty for a number outside the table.
std::string Name(int id);
std::string UserLanguageID();
/// The same as a number; 0, English, without a translation.
int UsersLangeuageID();
std::string UsersLanguageName();

}  // namespace brivolant::LanguageTools
