// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include "metadata/MetadataChange.h"
#include "platform/files/FolderItem.h"
#include "platform/values/Text.h"

namespace brivolant {

struct CarriedData;

/// Writes metadata into JPEG, TIFF and Photoshop files, as a whole or not at all: a file grows
/// beside, is read again and compared, and takes the place of the old one. Pixels, maker notes and
/// whatever else was not asked for stay as they are, byte for byte. Raw files are never written.
namespace MetadataWriter {

inline constexpr LocalizedText kNotWritten{
    "MetadataWriter.kNotWritten",
    "The data of \"<filename>\" cannot be changed: this kind of file is not written."};
inline constexpr LocalizedText kRawNotWritten{
    "MetadataWriter.kRawNotWritten",
    "The data of \"<filename>\" cannot be changed: raw files are never written."};
inline constexpr LocalizedText kDamaged{
    "MetadataWriter.kDamaged",
    "The data of \"<filename>\" cannot be changed: the file is damaged, and more might be lost."};
inline constexpr LocalizedText kNotThis{
    "MetadataWriter.kNotThis", "The tag <tag> of \"<filename>\" cannot be given this value."};
inline constexpr LocalizedText kTooLong{
    "MetadataWriter.kTooLong",
    "The data of \"<filename>\" cannot be changed: it would be longer than such a file can hold."};
inline constexpr LocalizedText kWouldLose{
    "MetadataWriter.kWouldLose",
    "The data of \"<filename>\" was not changed: the tag <tag> would not have survived."};
inline constexpr LocalizedText kMorePictures{"MetadataWriter.kMorePictures",
                                             "The place was not taken out of \"<filename>\": "
                                             "behind its picture the file holds others, which "
                                             "may tell it too."};
inline constexpr LocalizedText kLocked{
    "MetadataWriter.kLocked",
    "The data of \"<filename>\" cannot be changed: the file is locked, or its folder is."};
inline constexpr LocalizedText kFailed{
    "MetadataWriter.kFailed", "The data of \"<filename>\" could not be written: <reason>."};

enum class Strip {
  /// Where the photo was taken.
  kPlace,
  /// Everything but what says how the pixels are shown: orientation, profile, resolution.
  kAll
};

/// Why this kind of file is not written, in a sentence; empty if it is.
std::string WhyNotWritten(const FolderItem& file);

/// Makes all changes, or none. Empty if it is done, or else one sentence that names the file,
/// which is then as it was.
[[nodiscard]] std::string Write(const FolderItem& file, std::span<const MetadataChange> changes);
[[nodiscard]] std::string Write(const FolderItem& file, Strip strip);
/// Takes what another file tells of itself in place of what this one does, and then makes changes
/// of it.
[[nodiscard]] std::string Take(const FolderItem& file, CarriedData data,
                               std::span<const MetadataChange> changes = {});

}  // namespace MetadataWriter

}  // namespace brivolant
