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

  /// True if one must not end now: there is work, and the user would rather wait. `then` is called
  /// when all is done, if that is what was chosen.
  bool MustWait(const std::function<void()>& then);

 private:
  std::vector<Jobs*> work_;
  Dialogs& dialogs_;
  Log& log_;
};

}  // namespace brivolant
