// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include "metadata/MetadataChange.h"
#include "platform/files/FolderItem.h"
#include "platform/values/Text.h"

namespace brivolant {

class ImageMetaData;

/// Packets beside photos: what is said of files that are never written themselves. A sidecar is
/// called "name.ext.xmp", as photo programs of Linux write it, or "name.xmp", as others do.
namespace Sidecar {

inline constexpr LocalizedText kDamaged{
    "Sidecar.kDamaged",
    "The file \"<filename>\" was not changed: what it holds is no metadata that can be read."};
inline constexpr LocalizedText kFailed{"Sidecar.kFailed",
                                       "The file \"<filename>\" could not be written: <reason>."};

/// Files that say their metadata themselves when it is changed: JPEG, TIFF and Photoshop files that
/// are not raw.
bool WrittenInPlace(const FolderItem& photo);
/// Kinds of files, by their names, beside which "name.xmp" counts: those that are never written.
bool TakesShortName(std::string_view name);
/// The sidecar that is there; nil for none. "name.xmp" is a raw file's where one has that name.
FolderItem Of(const FolderItem& photo);
/// Where what is said of a photo is kept: the sidecar that is there, or a new one.
FolderItem For(const FolderItem& photo);
/// What goes where its photo goes; nil for none, as folders have none.
FolderItem Following(const FolderItem& photo);
/// It belongs to another raw file too, and must stay for that.
bool Shared(const FolderItem& sidecar, const FolderItem& photo);
/// The place of a photo's sidecar beside another place of the photo.
FolderItem BesideMoved(const FolderItem& sidecar, const FolderItem& photo, const FolderItem& moved);
/// A packet from a file of its own; empty if it is missing or far too long.
std::string Read(const FolderItem& file);
/// Takes what a packet says into what was read. With `newer` it goes before what the file says,
/// else it only adds what the file's own packet does not say.
void MergeInto(ImageMetaData& data, const std::string& packet, bool newer);
/// The same of the sidecar of what was read; it is newer beside a file that is never written.
void ReadInto(ImageMetaData& data);
/// Makes changes of XMP properties in a packet, and writes it as a file of its own, whole or not at
/// all. Without a file there the packet begins as `otherwise`. Empty if it is done, or else one
/// sentence that names the file, which is then as it was. What is taken out stays as an empty
/// property: the photo may say it too.
[[nodiscard]] std::string Write(const FolderItem& file, std::span<const MetadataChange> changes,
                                const std::string& otherwise);

/// Takes out of a photo's sidecar where it was taken. Empty if it is done, or there is none, or
/// else one sentence that names the sidecar, which is then as it was.
[[nodiscard]] std::string StripPlace(const FolderItem& photo);

}  // namespace Sidecar

}  // namespace brivolant
