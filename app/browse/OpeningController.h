// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

class QMenu;

namespace brivolant {

class BrowserController;
class BrowserPane;
class Commands;

/// What opening an item of the browser means, and the menu on its rows.
class OpeningController {
 public:
  static constexpr LocalizedText kBrokenAliasMessage{
      "MainWindow.kBrokenAliasMessage",
      "The original of the alias \"<filename>\" cannot be found."};
  static constexpr LocalizedText kDeleteAlias{"MainWindow.kDeleteAlias", "Delete Alias"};

  OpeningController(const Desk& desk, Commands& commands, BrowserPane& pane,
                    BrowserController& browser);
  OpeningController(const OpeningController&) = delete;
  OpeningController& operator=(const OpeningController&) = delete;

  /// An image or a document is to be edited; an empty name stands for the file's own.
  Event<const FolderItem&, const std::string& /*name*/> PhotoChosen;
  /// Adds to the menu on what is selected.
  std::function<void(QMenu&)> MoreRows;
  /// Moves a file to the trash, as one that was selected.
  std::function<void(const FolderItem&)> TrashFile;
  /// The photo library's package was opened.
  std::function<bool()> ShowLibrary;

  /// Looks at what is to be opened.
  Jobs& Looking() { return looking_; }

 private:
  /// What is to be opened, once links are followed; the target of a broken one is nil.
  struct Seen {
    FolderItem Target;
    bool Package = false;
    bool Folder = false;
    bool Picture = false;
  };
  static Seen LookAt(const FolderItem& file);
  /// Looks at it on another thread, and tells if nobody has opened something else meanwhile.
  void Look(const FolderItem& file, std::function<void(const Seen&)> then);
  void OpenItem(const BrowserPayload& payload);
  void OpenFile(const FolderItem& file, const FileFacts& facts);
  void Open(const Seen& seen, bool browse);
  void TellBroken(const FolderItem& alias);
  bool FillMenu(QMenu& menu);

  Desk desk_;
  Commands& commands_;
  BrowserPane& pane_;
  BrowserController& browser_;
  Jobs looking_;
};

}  // namespace brivolant
