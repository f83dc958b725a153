// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <vector>

#include "app/browse/EditsGiver.h"
#include "app/core/Desk.h"

class QMenu;
class QWidget;

namespace brivolant {

class BrowserPane;
class Commands;
class EditSession;
class FileHistory;
class OneClickWonder;
class PasteEditsSheet;

/// Edits that are copied from a photo, and pasted onto those that are selected in the browser; and
/// styles that are applied to them.
class EditsController {
 public:
  EditsController(const Desk& desk, EditSession& session, Commands& commands, BrowserPane& pane,
                  FileHistory& history);
  ~EditsController();
  EditsController(const EditsController&) = delete;
  EditsController& operator=(const EditsController&) = delete;

  /// Copies the edits of the one document that is selected.
  void CopyEdits();
  /// Asks what of the copied edits is wanted, and gives it to what is selected.
  void PasteEdits();
  /// The same of a style.
  void ApplyStyle(const OneClickWonder& style);
  /// Fills a menu with the styles whenever it opens.
  void StyleMenu(QMenu& menu);
  /// The rows of the menu on what is selected.
  void AddRows(QMenu& menu);
  Jobs& Work() { return giver_.Work(); }
  /// While it is asked what is wanted; else null.
  PasteEditsSheet* Sheet() const;

 private:
  void AddCommands(Commands& commands);
  std::vector<FolderItem> Photos() const;
  bool PhotosSelected() const;
  FolderItem DocumentSelected() const;
  void Keep(CopiedEdits edits);
  CopiedEdits OnClipboard() const;
  void AskAndGive(CopiedEdits edits);

  Desk desk_;
  EditSession& session_;
  Commands& commands_;
  BrowserPane& pane_;
  QPointer<QWidget> sheet_;
  EditsGiver giver_;
};

}  // namespace brivolant
