// SPDX-License-Identifier: MIT
#include "support/LanguageTools.h"

#include "platform/values/Variant.h"

namespace brivolant::LanguageTools {

std::string UserLanguageID() {
  return kUserLanguageID.Text();
}

int UsersLangeuageID() {
  return Variant(UserLanguageID()).ToInt();
}

}  // namespace brivolant::LanguageTools
