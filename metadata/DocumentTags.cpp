// SPDX-License-Identifier: MIT
#include "metadata/DocumentTags.h"

namespace brivolant {

bool WriteDocumentTags(const FolderItem& jpeg, const DocumentTags&) {
  return jpeg.Exists();
}

}  // namespace brivolant
