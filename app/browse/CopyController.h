// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "platform/values/Text.h"

namespace brivolant {

class BrowserPane;
class Commands;
class FileHistory;

/// Copying files in the browser: by the clipboard, and by drops.
class CopyController {
 public:
  static constexpr LocalizedText kNotCopied{"MainWindow.kNotCopied",
                                            "The file \"<filename>\" could not be copied here."};
  static constexpr LocalizedText kCopying{"FileController.kCopying", "Copying files..."};

  CopyController(const Desk& desk, Commands& commands, BrowserPane& pane, FileHistory& history);
  CopyController(const CopyController&) = delete;
  CopyController& operator=(const CopyController&) = delete;

  /// Copies files into a folder under free names, as a job, then selects them.
  void CopyFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder);
  /// The same of those that lie elsewhere: what is dropped where it lies stays one.
  void DropFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder);

 private:
  void CopyFiles();
  void PasteFiles();
  void Copy(const std::vector<FolderItem>& files, const FolderItem& folder, bool thoseElsewhere);
  std::vector<FolderItem> FilesOnClipboard() const;
  std::string CopyCaption() const;
  std::string PasteCaption() const;

  Desk desk_;
  Commands& commands_;
  BrowserPane& pane_;
  FileHistory& history_;
};

}  // namespace brivolant
