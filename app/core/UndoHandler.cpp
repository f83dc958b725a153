// SPDX-License-Identifier: MIT
#include "app/core/UndoHandler.h"

#include <QScopedValueRollback>

namespace brivolant {

void UndoHandler::Add(std::string key, Variant value) {
  current_.Pairs.emplace_back(std::move(key), std::move(value));
}

void UndoHandler::Store(bool redo, std::string name) {
  // An entry that grows while another is replayed undoes the same action.
  current_.Name = undoing_ ? replayed_ : std::move(name);
  (redo ? redo_ : undo_).push_back(std::move(current_));
  current_ = {};
  if (!redo && !undoing_) redo_.clear();
  if (StateChanged) StateChanged();
}

void UndoHandler::Replay(std::vector<Entry>& from, bool redo) {
  if (from.empty() || undoing_) return;
  // Also when an action throws: else nothing could be undone any more.
  const QScopedValueRollback undoing(undoing_, true);
  const Entry entry = std::move(from.back());
  from.pop_back();
  replayed_ = entry.Name;
  if (BeginUndo) BeginUndo(redo);
  for (const auto& [key, value] : entry.Pairs) {
    if (Action && Action(key, value, redo)) continue;
    if (Unhandled) Unhandled(key + " wasn't handled");
    break;
  }
  if (CompleteUndo) CompleteUndo(redo);
  if (from.empty() && StateChanged) StateChanged();
}

void UndoHandler::Reset() {
  undo_.clear();
  redo_.clear();
  current_ = {};
  if (StateChanged) StateChanged();
}

}  // namespace brivolant
