// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "app/core/Desk.h"
#include "app/info/FloatingMetaData.h"
#include "browser/browserItem.h"

class QWidget;

namespace brivolant {

/// The windows that show what is known of files, one for each.
class InfoWindows {
 public:
  /// The main window, over which they float, must outlive the object. In `unsaved`, a folder, lies
  /// what is entered and not saved.
  InfoWindows(const Desk& desk, std::shared_ptr<const FilePreviewer> previewer, QWidget& over,
              const FolderItem& unsaved);
  ~InfoWindows();
  InfoWindows(const InfoWindows&) = delete;
  InfoWindows& operator=(const InfoWindows&) = delete;

  /// Shows a window for each file, each a little beside the one before; a file that has one already
  /// gets that.
  void Show(const std::vector<FolderItem>& files);
  /// True if the program must not end now: there is something to save, and it was asked about. Then
  /// `then` is called when nothing is left, unless the user would rather stay.
  bool MustWait(const std::function<void()>& then);
  /// Files have other places now.
  void Follow(const FileMoves& moves);
  /// Calls when nothing is on its way into a file.
  void WhenWritten(const std::function<void()>& then);
  /// Keeps what is not saved, for the next start.
  void KeepUnsaved();
  /// Shows again what an end from outside left unsaved; files that are away come another time.
  void BringBack();
  std::vector<FloatingMetaData*> Open() const;
  /// A file has another content now.
  std::function<void(const FolderItem& file)> Written;

 private:
  Desk desk_;
  std::shared_ptr<const FilePreviewer> previewer_;
  QWidget& over_;
  UnsavedInfos unsaved_;
  /// Gone with the object: what was asked of a disk may answer later.
  std::shared_ptr<int> alive_ = std::make_shared<int>();
  std::vector<std::unique_ptr<FloatingMetaData>> windows_;
  /// What ends the program once all of them are closed.
  std::function<void()> ending_;
};

}  // namespace brivolant
