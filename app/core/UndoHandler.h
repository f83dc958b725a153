// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/values/Variant.h"

namespace brivolant {

/// The history of one editing session. An entry is one action of the user: the values that it
/// changed, each under the key that says what it restores, as they were before.
class UndoHandler {
 public:
  struct Entry {
    /// What the user did, as the menu says it.
    std::string Name;
    std::vector<std::pair<std::string, Variant>> Pairs;
  };

  /// Adds a value to the entry that is being assembled.
  void Add(std::string key, Variant value);
  /// Completes the entry. On the undo side a new action ends the redo history.
  void Store(bool redo, std::string name = {});
  /// Forgets the entry that is being assembled.
  void Discard() { current_ = {}; }
  bool UndoAvailable() const { return !undo_.empty(); }
  bool RedoAvailable() const { return !redo_.empty(); }
  /// What Undo and Redo would take back; empty if there is nothing.
  std::string UndoName() const { return undo_.empty() ? std::string() : undo_.back().Name; }
  std::string RedoName() const { return redo_.empty() ? std::string() : redo_.back().Name; }
  void Undo() { Replay(undo_, false); }
  void Redo() { Replay(redo_, true); }
  /// Forgets everything.
  void Reset();

  /// Applies a value, after it has added the present one under the same key. False if the key is
  /// not known.
  std::function<bool(const std::string& key, const Variant& value, bool redo)> Action;
  std::function<void(bool redo)> BeginUndo;
  std::function<void(bool redo)> CompleteUndo;
  std::function<void()> StateChanged;
  /// A key that Action did not know; the rest of its entry was dropped.
  std::function<void(const std::string& message)> Unhandled;

 private:
  void Replay(std::vector<Entry>& from, bool redo);

  std::vector<Entry> undo_;
  std::vector<Entry> redo_;
  Entry current_;
  std::string replayed_;
  bool undoing_ = false;
};

}  // namespace brivolant
