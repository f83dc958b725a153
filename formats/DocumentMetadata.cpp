// SPDX-License-Identifier: MIT
#include "formats/DocumentMetadata.h"

#include "formats/BrivolantDocument.h"
#include "metadata/ImageMetaData.h"
#include "metadata/Sidecar.h"

namespace brivolant {

std::string PacketIn(const FolderItem& package) {
  return Sidecar::Read(package.Child(BrivolantDocument::kMetadataName));
}

bool ReadDocumentMetadata(const FolderItem& package, ImageMetaData& data) {
  const FolderItem original = BrivolantDocument::OriginalIn(package);
  if (original.IsNil()) return false;
  data.ReadFile(original);
  const std::string packet = PacketIn(package);
  if (!packet.empty()) Sidecar::MergeInto(data, packet, true);
  return true;
}

}  // namespace brivolant
