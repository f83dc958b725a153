// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "platform/services/Services.h"

namespace brivolant {

class Jobs;

/// Work on files that goes on while the window is asked to end.
class UnfinishedWork {
 public:
  /// All must outlive the object.
  UnfinishedWork(std::vector<Jobs*> work, Dialogs& dialogs, Log& log);
  /// An end from outside asks nobody, but somebody may look for what is missing: it is logged.
  ~UnfinishedWork();
  UnfinishedWork(const UnfinishedWork&) = delete;
  UnfinishedWork& operator=(const UnfinishedWork&) = delete;

  /// True if one must not end now: there is work, and the user would rather wait. Then `then` is
  /// called when each has been idle in turn, if that is what was chosen, and asks again.
  bool MustWait(const std::function<void()>& then);
  /// The next one does not ask: it follows another question, behind this one's "end now".
  void AskNoMore() { asked_ = endNow_; }
  /// Nothing speaks against the end any more: what was to end now is cancelled.
  void GiveUp();

 private:
  std::vector<Jobs*> work_;
  Dialogs& dialogs_;
  Log& log_;
  bool endNow_ = false;
  bool asked_ = false;
};

}  // namespace brivolant
