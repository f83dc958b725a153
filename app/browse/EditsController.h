// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <memory>
#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "app/core/WorkerServices.h"
#include "app/session/ManyEdits.h"
#include "platform/values/Text.h"

class QMenu;
class QWidget;

namespace brivolant {

class BrowserController;
class Commands;
class EditSession;
class FileController;
class OneClickWonder;
class PasteEditsSheet;

/// Edits that are copied from a photo, and pasted onto those that are selected in the browser; and
/// styles that are applied to them.
class EditsController {
 public:
  static constexpr LocalizedText kHaveEdits{
      "EditsController.kHaveEdits", "Of the chosen photos, <count> have edits of their own."};
  static constexpr LocalizedText kHaveEditsExplanation{
      "EditsController.kHaveEditsExplanation", "Their edits are replaced. Undo brings them back."};
  static constexpr LocalizedText kReplace{"EditsController.kReplace", "Replace"};
  static constexpr LocalizedText kOnlyOthers{"EditsController.kOnlyOthers", "Only the Others"};
  static constexpr LocalizedText kNotGiven{"EditsController.kNotGiven",
                                           "The edits could not be given to all photos."};
  static constexpr LocalizedText kNotTakenBack{"EditsController.kNotTakenBack",
                                               "Not everything could be taken back."};

  EditsController(const Desk& desk, EditSession& session, Commands& commands,
                  BrowserController& browser, FileController& files);
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
  Jobs& Work() { return jobs_; }
  /// While it is asked what is wanted; else null.
  PasteEditsSheet* Sheet() const;

 private:
  struct Given;
  void AddCommands(Commands& commands);
  std::vector<FolderItem> Photos() const;
  bool PhotosSelected() const;
  FolderItem DocumentSelected() const;
  void Keep(CopiedEdits edits);
  CopiedEdits OnClipboard() const;
  void AskAndGive(CopiedEdits edits);
  /// What is being given leaves that document alone.
  void Spare(const FolderItem& document);
  void Give(ManyEdits::Order order);
  void GiveNow(const ManyEdits::Order& order);
  void GiveOpen(const ManyEdits::Order& order, const std::shared_ptr<Given>& given);
  void TookOpen(const std::shared_ptr<Given>& given, const FolderItem& file, int before, bool kept);
  void GiveOthers(const std::shared_ptr<Given>& given);
  /// What is given back forgets the step again.
  std::function<void()> AddStep(const std::shared_ptr<Given>& given);
  void TakeBack(const std::shared_ptr<Given>& given);
  void Tell(const LocalizedText& text, const std::vector<ManyEdits::Failure>& failures);

  Desk desk_;
  EditSession& session_;
  Commands& commands_;
  BrowserController& browser_;
  FileController& files_;
  WorkerServices worker_;
  QPointer<QWidget> sheet_;
  /// What is being given.
  std::weak_ptr<Given> giving_;
  std::vector<Listening> listening_;
  // Its end is the first thing that the end of this waits for.
  Jobs jobs_;
};

}  // namespace brivolant
