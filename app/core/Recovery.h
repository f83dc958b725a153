// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "formats/PastedFiles.h"
#include "platform/files/FileLock.h"
#include "platform/files/FolderItem.h"
#include "platform/services/Services.h"
#include "platform/values/Pair.h"

namespace brivolant {

class BrivolantDocument;

/// What is needed to bring back edits that were not saved.
struct RecoveredEdits {
  /// Where the edits are kept.
  FolderItem Set;
  /// The package, which may be a temporary one, and the image that it was made from, if any.
  FolderItem Package;
  FolderItem Original;
  /// The package is the document's own, not a temporary one.
  bool Saved = false;
  /// What the package held when the edits were made, as the document tells it.
  std::string StateOnDisk;
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

  /// Gives the edits to a document, which takes copies of the pictures. False if one cannot be
  /// copied.
  [[nodiscard]] bool ApplyTo(BrivolantDocument& document) const;
};

/// Keeps the edits of the open document while they are not saved, so that an unclean end loses a
/// few seconds at most. Each document's edits are a set of their own in the program's data folder,
/// whatever becomes of the document's disk, and locked by the program that works on them. A set
/// goes when its edits are saved or clearly given up, and never otherwise.
class Recovery {
 public:
  /// The sets lie in a folder in `folder`, made when it is needed.
  Recovery(const FolderItem& folder, Log& log);
  /// What is kept stays.
  ~Recovery();
  Recovery(const Recovery&) = delete;
  Recovery& operator=(const Recovery&) = delete;

  /// Writes the edits, if they differ from what was written last. False, with a log line, if they
  /// cannot be kept.
  bool Keep(const BrivolantDocument& document, const std::string& styleData);
  /// The edits of the present document are saved or given up.
  void Forget();
  /// What earlier runs left, the latest first. Damaged sets, and those of a program that still
  /// runs, are passed over.
  std::vector<RecoveredEdits> Left() const;
  /// The packages that kept edits belong to, also those of programs that still run. Nothing if
  /// that cannot be told, since a set cannot be read.
  std::optional<std::vector<FolderItem>> Packages() const;
  /// The present document has those edits now.
  void Adopt(const RecoveredEdits& edits);
  /// The user wants those edits no more.
  void GiveUp(const RecoveredEdits& edits);

 private:
  bool MakeSet();
  void Release();
  /// Copies of the pasted pictures, which the program's end would delete.
  PastedFiles KeepPictures(const PastedFiles& pictures) const;

  FolderItem folder_;
  Log& log_;
  /// Edits are written on any thread, one at a time.
  mutable std::mutex mutex_;
  FolderItem set_;
  FileLock lock_;
  /// Of the folder for temporary files that the document's package lies in, if it is not ours.
  FileLock package_;
  std::string lastWritten_;
};

}  // namespace brivolant
