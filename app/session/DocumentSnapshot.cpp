// SPDX-License-Identifier: MIT
#include "app/session/DocumentSnapshot.h"

#include <filesystem>

#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/ExclusiveMove.h"
#include "platform/files/WorkingName.h"

namespace brivolant {

DocumentSnapshot::DocumentSnapshot(const FolderItem& document, const std::string& original,
                                   TemporaryFiles& files) {
  if (!document.Directory()) {
    Keep(document, files);
    return;
  }
  for (const FolderItem& child : document.Children()) {
    std::error_code error;
    const bool file = std::filesystem::is_regular_file(child.Path(), error) && !child.Alias();
    if (file && child.Name() != original) Keep(child, files);
  }
}

DocumentSnapshot::~DocumentSnapshot() {
  for (const auto& [name, file] : files_) {
    (void)file.Delete();
    (void)file.Parent().Delete();
  }
}

bool DocumentSnapshot::Restore(const FolderItem& document) const {
  if (const auto one = files_.find(document.Name()); one != files_.end()) {
    // It was one file, and its package is what was made; that goes once the file is whole.
    const FolderItem whole = WorkingName::Beside(document, false);
    if (CopyFileAtomically(one->second, whole)) return false;
    if (FolderitemExtensions::MoveToTrash(document) && !MoveExclusively(whole, document)) {
      return true;
    }
    (void)whole.Delete();
    return false;
  }
  // The settings are the last: until they stand the document is the changed one, whole.
  const std::string settings(BrivolantDocument::kSettingsName);
  for (const auto& [name, file] : files_) {
    if (name != settings && CopyFileAtomically(file, document.Child(name))) return false;
  }
  return !CopyFileAtomically(files_.at(settings), document.Child(settings));
}

void DocumentSnapshot::Keep(const FolderItem& file, TemporaryFiles& files) {
  const FolderItem place = files.Child(file.Name());
  std::error_code error;
  std::filesystem::create_hard_link(file.Path(), place.Path(), error);
  if (error && (place.IsNil() || CopyFileAtomically(file, place))) {
    whole_ = false;
  } else {
    files_[file.Name()] = place;
  }
}

}  // namespace brivolant
