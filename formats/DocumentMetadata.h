// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/files/FolderItem.h"

namespace brivolant {

class ImageMetaData;

/// What the owner of a document says of its photo, an XMP packet; empty for nothing.
std::string PacketIn(const FolderItem& package);
/// Reads what the original in a package tells, and what its owner says of it. False if the package
/// holds no original.
bool ReadDocumentMetadata(const FolderItem& package, ImageMetaData& data);

}  // namespace brivolant
