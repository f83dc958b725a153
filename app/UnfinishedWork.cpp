// SPDX-License-Identifier: MIT
#include "app/UnfinishedWork.h"

#include <algorithm>
#include <string>
#include <utility>

#include "app/core/Jobs.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

constexpr LocalizedText kWorkGoesOn{"MainWindow.kWorkGoesOn",
                                    "Files are still being copied, moved or given edits."};
constexpr LocalizedText kWorkGoesOnExplanation{
    "MainWindow.kWorkGoesOnExplanation",
    "The window can close as soon as all is done. If you end it now, what is done stays, and the "
    "rest is left out."};
constexpr LocalizedText kCloseWhenDone{"MainWindow.kCloseWhenDone", "Close When Done"};
constexpr LocalizedText kEndNow{"MainWindow.kEndNow", "End Now"};

/// Calls when each of them from the given one on has been idle in turn.
void WhenIdle(const std::vector<Jobs*>& work, std::size_t from, const std::function<void()>& then) {
  if (from == work.size()) return then();
  work[from]->WhenIdle([work, from, then] { WhenIdle(work, from + 1, then); });
}

}  // namespace

UnfinishedWork::UnfinishedWork(std::vector<Jobs*> work, Dialogs& dialogs, Log& log)
    : work_(std::move(work)), dialogs_(dialogs), log_(log) {}

UnfinishedWork::~UnfinishedWork() {
  for (const Jobs* work : work_) {
    for (const std::string& text : work->Unfinished()) {
      log_.Write("Ended before it was done: " + text);
    }
  }
}

bool UnfinishedWork::MustWait(const std::function<void()>& then) {
  if (std::ranges::all_of(work_, [](const Jobs* work) { return work->Unfinished().empty(); })) {
    return false;
  }
  if (std::exchange(asked_, false)) return false;
  const Answer answer =
      dialogs_.Ask({kWorkGoesOn.Text(), kWorkGoesOnExplanation.Text(), kCloseWhenDone.Text(),
                    Captions::kCancel.Text(), kEndNow.Text()});
  endNow_ = answer == Answer::kAlternate;
  if (answer == Answer::kAction) WhenIdle(work_, 0, then);
  return !endNow_;
}

void UnfinishedWork::GiveUp() {
  if (!endNow_) return;
  for (Jobs* work : work_) work->CancelAll();
}

}  // namespace brivolant
