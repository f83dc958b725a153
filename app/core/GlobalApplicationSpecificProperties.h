// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/values/ApplicationName.h"

/// Who and what the program is.
namespace brivolant::GlobalApplicationSpecificProperties {

inline constexpr LocalizedText ApplicationName = kApplicationName;
inline constexpr LocalizedText ApplicationPublisherName{
    "GlobalApplicationSpecificProperties.ApplicationPublisherName", "Quillmere"};
inline constexpr LocalizedText URLApplicationWebPage{
    "GlobalApplicationSpecificProperties.URLApplicationWebPage",
    "https://www.quillmere.example/brivolantphotos/"};
inline constexpr LocalizedText URLApplicationPublisher{
    "GlobalApplicationSpecificProperties.URLApplicationPublisher",
    "https://www.quillmere.example/"};
inline constexpr LocalizedText URLSupportEmailAddress{
    "GlobalApplicationSpecificProperties.URLSupportEmailAddress", "support@quillmere.example"};
inline constexpr LocalizedText URLSupportEmailServerAddress{
    "GlobalApplicationSpecificProperties.URLSupportEmailServerAddress",
    "https://www.quillmere.example/report"};
inline constexpr LocalizedText URLSupportEmailProductID{
    "GlobalApplicationSpecificProperties.URLSupportEmailProductID", "brivolantPhotos"};

/// The domain of the settings.
inline constexpr const char* kPreferencesID = "com.quillmere.brivolantPhotos";

/// Version numbers: major, minor, bug and non-release.
struct Version {
  int Major;
  int Minor;
  int Bug;
  int NonRelease;
};
Version ApplicationVersion();
/// "1.0.0".
std::string VersionText();
/// Name, version and platform, as documents and images carry it.
std::string CreatedWithString();

}  // namespace brivolant::GlobalApplicationSpecificProperties
