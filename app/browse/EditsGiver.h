// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "app/core/WorkerServices.h"
#include "app/session/ManyEdits.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

namespace brivolant {

class BrowserPane;
class EditSession;
class FileHistory;

/// Gives edits to many photos, the one that is open among them, and takes them back.
class EditsGiver {
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

  EditsGiver(const Desk& desk, EditSession& session, BrowserPane& pane, FileHistory& history);
  EditsGiver(const EditsGiver&) = delete;
  EditsGiver& operator=(const EditsGiver&) = delete;

  /// Asks about photos that have edits of their own.
  void Give(ManyEdits::Order order);
  Jobs& Work() { return jobs_; }
  /// What that work uses.
  WorkerServices& Worker() { return worker_; }

 private:
  struct Given;
  /// What is being given leaves that document alone.
  void Spare(const FolderItem& document);
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
  BrowserPane& pane_;
  FileHistory& history_;
  WorkerServices worker_;
  /// What is being given.
  std::weak_ptr<Given> giving_;
  std::vector<Listening> listening_;
  // Its end is the first thing that the end of this waits for.
  Jobs jobs_;
};

}  // namespace brivolant
