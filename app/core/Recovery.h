// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "formats/PastedFiles.h"
#include "platform/files/FolderItem.h"
#include "platform/services/Services.h"
#include "platform/values/Pair.h"

namespace brivolant {

class BrivolantDocument;

/// What is needed to bring back edits that were not saved.
struct RecoveredEdits {
  /// The package, which may be a temporary one, and the image that it was made from, if any.
  FolderItem Package;
  FolderItem Original;
  /// The package is the document's own, not a temporary one.
  bool Saved = false;
  std::string Name;
  std::string StyleData;
  bool Crop = false;
  Pair CropOffSet;
  Pair CropSize;
  int Orientation = 0;
  int Rotation = 0;
  int Flip = 0;
  /// Pictures that were pasted and not saved.
  PastedFiles Pasted;

  /// Gives the edits to a document, which takes copies of the pictures.
  void ApplyTo(BrivolantDocument& document) const;
};

/// Keeps the edits of the open document beside its package while they are not saved, so that an
/// unclean end loses a few seconds at most. A note in the program's data folder says where.
class Recovery {
 public:
  /// `folder` holds the note; it is made when it is needed.
  Recovery(FolderItem folder, Log& log);

  /// Writes the edits, if they differ from what was written last. False, with a log line, if they
  /// cannot be kept.
  bool Keep(const BrivolantDocument& document, const std::string& styleData);
  /// The edits are saved or given up.
  void Forget();
  /// What an earlier run left; nothing after a clean end. Damaged data counts as nothing.
  std::optional<RecoveredEdits> Left() const;

 private:
  FolderItem Note() const;
  /// Copies of the pasted pictures, which the program's end would delete. Empty if one fails.
  std::optional<PastedFiles> KeepPictures(const PastedFiles& pictures);

  FolderItem folder_;
  Log& log_;
  FolderItem kept_;
  std::string lastWritten_;
};

}  // namespace brivolant
