// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "app/session/ManyInfos.h"
#include "browser/browserItem.h"
#include "platform/files/FolderItem.h"
#include "platform/values/Text.h"

namespace brivolant {

class BrowserPane;
class Commands;
class EditInfoSheet;
class FileHistory;

/// What photos tell of themselves, in the browser: the windows of those that are selected, and what
/// the owner says of them, given to many at once.
class InfoController {
 public:
  static constexpr LocalizedText kNotGiven{"InfoController.kNotGiven",
                                           "Not all photos could be changed."};
  static constexpr LocalizedText kNotTakenBack{"InfoController.kNotTakenBack",
                                               "Not everything could be taken back."};
  static constexpr LocalizedText kEditInfo{"InfoController.kEditInfo", "Edit Info"};

  InfoController(const Desk& desk, Commands& commands, BrowserPane& pane, FileHistory& history);
  ~InfoController();
  InfoController(const InfoController&) = delete;
  InfoController& operator=(const InfoController&) = delete;

  /// A window for each of what is selected, ten at most, else one for all; with nothing selected
  /// the window of the folder on show.
  void GetInfoMethod();
  /// Asks what is to be said of what is selected.
  void EditInfo();
  /// Files have other places now.
  void Follow(const FileMoves& moves) const;
  /// While it is asked what is wanted; else null.
  EditInfoSheet* Sheet() const;

 private:
  void Ask(const std::vector<FolderItem>& files);
  void Give(const std::vector<FolderItem>& files, const ManyInfos::Order& order);
  void TakeBack(std::vector<ManyInfos::Done> given);
  /// What can be taken back, if there is anything.
  void AddStep(std::vector<ManyInfos::Done> given);
  void Tell(const LocalizedText& text, const std::vector<std::string>& sentences);

  Desk desk_;
  Commands& commands_;
  BrowserPane& pane_;
  FileHistory& history_;
  QPointer<QWidget> sheet_;
  Jobs reading_;
};

}  // namespace brivolant
