// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "platform/files/FileNames.h"
#include "platform/values/Text.h"

namespace brivolant {

/// Numbers of the values in a document's settings. 11 is free.
enum DocumentItem {
  kItemContactLink = 0,
  kItemCopyright = 1,
  kItemCreatedDate = 2,
  kItemCreatedWith = 3,
  kItemCreator = 4,
  kItemCrop = 5,
  kItemCropRectangle = 6,
  kItemFlip = 7,
  kItemName = 8,
  kItemRotation = 9,
  kItemStyleData = 10,
  kItemOriginalImageID = 12,
  kItemOrientation = 13,
};

/// True if a pasted image may have that name: the package's own parts are not to be replaced.
bool IsFreeName(std::string_view name, std::string_view originalImageID);

namespace documentTexts {
inline constexpr LocalizedText kMissingSettings{"BrivolantDocument.kMissingSettings",
                                                "Missing the settings segment form the data file."};
inline constexpr LocalizedText kUnreadableSettings{
    "BrivolantDocument.kUnreadableSettings",
    "Unable to read the settings segment form the data file."};
inline constexpr LocalizedText kWrongTrailer{"BrivolantDocument.kWrongTrailer",
                                             "Brivolant Photos Data is screwed."};
inline constexpr LocalizedText kNoOriginal{"BrivolantDocument.kNoOriginal",
                                           "The document \"<filename>\" names no image."};
inline constexpr LocalizedText kDamagedOriginal{
    "BrivolantDocument.kDamagedOriginal",
    "\"<filename>\" is the original, which is damaged; it was left as it is. Choose another "
    "place."};
inline constexpr LocalizedText kNotCreated{
    "BrivolantDocument.kNotCreated", "Something went wrong and the file hasn't been created."};
inline constexpr LocalizedText kNoTemporaryPackage{
    "BrivolantDocument.kNoTemporaryPackage",
    "The folder for temporary files cannot be written. Check the free space on the disk."};
inline constexpr LocalizedText kPicturesNotSaved{
    "BrivolantDocument.kPicturesNotSaved",
    "The pictures that lie over the photo could not be copied into the document."};
inline constexpr LocalizedText kPicturesGone{
    "BrivolantDocument.kPicturesGone",
    "A picture that lies over the photo \"<filename>\" cannot be found any more."};
inline constexpr LocalizedText kPicturesGoneExplanation{
    "BrivolantDocument.kPicturesGoneExplanation",
    "The document can be saved without it. If its disk is away, connect it first."};
inline constexpr LocalizedText kOriginalGone{
    "BrivolantDocument.kOriginalGone",
    "The original of the photo \"<filename>\" cannot be found any more."};
inline constexpr LocalizedText kOriginalGoneExplanation{
    "BrivolantDocument.kOriginalGoneExplanation",
    "The photo can be saved without loss as it was read, but not as the file that it was. If its "
    "disk is away, connect it first."};
inline constexpr LocalizedText kCannotReplace{
    "MainWindow.kCannotReplace",
    "The file \"<filename>\" cannot be replaced: it could not be moved to the trash."};
inline constexpr LocalizedText kChangedOnDisk{
    "BrivolantDocument.kChangedOnDisk",
    "The document \"<filename>\" was changed by another program since it was opened here."};
inline constexpr LocalizedText kChangedOnDiskExplanation{
    "BrivolantDocument.kChangedOnDiskExplanation",
    "If you replace it, the edits that were made there are lost. The original photo stays."};
inline constexpr LocalizedText kReplace{"BrivolantDocument.kReplace", "Replace"};
inline constexpr LocalizedText kNoSettingsFile{"BrivolantDocument.kNoSettingsFile",
                                               "Unable to create settings file"};
}  // namespace documentTexts

}  // namespace brivolant
