// SPDX-License-Identifier: MIT
#include "app/core/GlobalApplicationSpecificProperties.h"

namespace brivolant::GlobalApplicationSpecificProperties {

Version ApplicationVersion() {
  return {BRIVOLANT_VERSION_MAJOR, BRIVOLANT_VERSION_MINOR, BRIVOLANT_VERSION_BUG, 0};
}

std::string VersionText() {
  const Version version = ApplicationVersion();
  return std::to_string(version.Major) + '.' + std::to_string(version.Minor) + '.' +
         std::to_string(version.Bug);
}

std::string CreatedWithString() {
  return ApplicationName.Text() + '/' + VersionText() + '.' +
         std::to_string(ApplicationVersion().NonRelease) + "/Mac/x86/";
}

}  // namespace brivolant::GlobalApplicationSpecificProperties
