// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "formats/PastedFiles.h"
#include "platform/files/FolderItem.h"
#include "platform/services/Services.h"

namespace brivolant {

/// What a document was, but for its original, which never changes. A file that is written takes the
/// place of the one before, so that another name keeps it.
class DocumentSnapshot {
 public:
  /// `original` is the name of the original in the document.
  DocumentSnapshot(const FolderItem& document, const std::string& original, TemporaryFiles& files);
  ~DocumentSnapshot();
  DocumentSnapshot(const DocumentSnapshot&) = delete;
  DocumentSnapshot& operator=(const DocumentSnapshot&) = delete;

  /// Nothing of it was lost on the way.
  bool Whole() const { return whole_; }
  /// False if it could not be done; then what stands there is whole.
  bool Restore(const FolderItem& document) const;
  bool Holds(const std::string& name) const { return files_.contains(name); }

 private:
  void Keep(const FolderItem& file, TemporaryFiles& files);

  PastedFiles files_;
  bool whole_ = true;
};

}  // namespace brivolant
