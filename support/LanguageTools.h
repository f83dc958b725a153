// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/values/Text.h"

/// Languages by the small numbers that style files store beside their texts.
namespace brivolant::LanguageTools {

/// The number of the translation in force; every translation puts its own here.
inline constexpr LocalizedText kUserLanguageID{"LanguageTools.UserLanguageID", "0"};

std::string UserLanguageID();
/// The same as a number; 0, English, without a translation.
int UsersLangeuageID();

}  // namespace brivolant::LanguageTools
