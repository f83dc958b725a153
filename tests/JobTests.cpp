// SPDX-License-Identifier: MIT
// Work on another thread, and the hooks by which the parts of the program hear of each other.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <condition_variable>
#include <mutex>
#include <stdexcept>

#include "Helpers.h"
#include "app/core/Jobs.h"
#include "app/core/WorkerServices.h"
#include "platform/values/Event.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Work that waits until the test lets it go on.
struct Gate {
  std::mutex mutex;
  std::condition_variable changed;
  bool open = false;
  void Open() {
    const std::lock_guard lock(mutex);
    open = true;
    changed.notify_all();
  }
  void Wait() {
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return open; });
  }
};

struct Diary {
  std::vector<std::string> lines;
  Jobs jobs;
  Listening started = jobs.Started.Listen([this] { lines.push_back("started " + jobs.Text()); });
  Listening ended =
      jobs.Ended.Listen([this] { lines.emplace_back(jobs.Busy() ? "ended busy" : "ended"); });
  Jobs::Job Job(const std::string& name, std::function<void(Jobs::Control&)> work) {
    return {name, true, std::move(work), [this, name](Jobs::End end, const std::string& why) {
              const char* ends[] = {"done", "cancelled", "failed"};
              std::string line = name + " " + ends[static_cast<int>(end)];
              if (!why.empty()) line += ": " + why;
              lines.push_back(line + (jobs.Busy() ? " busy" : ""));
            }};
  }
};

TEST(Job, OfSeveralPiecesIsBusyBetweenThem) {
  Diary diary;
  std::vector<std::string> pieces;
  Jobs::Job job = diary.Job("pieces", [&](Jobs::Control&) { pieces.emplace_back("first"); });
  job.More = [&]() -> std::function<void(Jobs::Control&)> {
    EXPECT_TRUE(diary.jobs.Busy());
    const std::string name = std::to_string(pieces.size());
    if (pieces.size() == 3) return nullptr;
    // Not before the end of the job.
    diary.jobs.WhenIdle([&, name] { diary.lines.push_back("idle " + name); });
    return [&, name](Jobs::Control&) { pieces.push_back(name); };
  };
  diary.jobs.Start(job);
  diary.jobs.Finish();
  EXPECT_THAT(pieces, ElementsAre("first", "1", "2"));
  EXPECT_THAT(diary.lines,
              ElementsAre("started pieces", "ended", "pieces done", "idle 1", "idle 2"));
  // What throws between two pieces, or is cancelled, ends the job.
  diary.lines.clear();
  job.More = []() -> std::function<void(Jobs::Control&)> { throw std::runtime_error("no more"); };
  diary.jobs.Start(job);
  diary.jobs.Start(job);
  diary.jobs.Cancel();
  diary.jobs.Finish();
  EXPECT_THAT(diary.lines, ElementsAre("started pieces", "ended", "pieces cancelled",
                                       "started pieces", "ended", "pieces failed: no more"));
}

TEST(Job, EndsOnceAndLeavesNothingBusyWhateverItThrows) {
  Diary diary;
  struct Odd {};
  diary.jobs.Start(diary.Job("good", [](Jobs::Control&) {}));
  diary.jobs.Start(diary.Job("bad", [](Jobs::Control&) { throw std::runtime_error("no disk"); }));
  diary.jobs.Start(diary.Job("odd", [](Jobs::Control&) { throw Odd(); }));
  EXPECT_TRUE(diary.jobs.Busy());
  diary.jobs.Finish();
  EXPECT_FALSE(diary.jobs.Busy());
  EXPECT_THAT(diary.lines,
              ElementsAre("started good", "ended", "good done", "started bad", "ended",
                          "bad failed: no disk", "started odd", "ended", "odd failed"));
}

TEST(Job, WaitsBehindThePresentOneAndIsCancelledAlone) {
  Diary diary;
  Gate gate;
  diary.jobs.Start(diary.Job("first", [&](Jobs::Control& control) {
    gate.Wait();
    EXPECT_FALSE(control.Progress(0.5));
  }));
  diary.jobs.WhenIdle([&] { diary.lines.emplace_back("idle"); });
  diary.jobs.Start(
      diary.Job("second", [](Jobs::Control& control) { EXPECT_FALSE(control.Cancelled()); }));
  EXPECT_THAT(diary.lines, ElementsAre("started first"));
  EXPECT_TRUE(diary.jobs.CanCancel());
  diary.jobs.Cancel();
  gate.Open();
  diary.jobs.Finish();
  EXPECT_THAT(diary.lines, ElementsAre("started first", "ended", "first cancelled", "idle",
                                       "started second", "ended", "second done"));
}

TEST(Job, WhatAnEndStartsComesBehindWhatWaits) {
  Diary diary;
  Jobs::Job first = diary.Job("first", [](Jobs::Control&) {});
  first.Done = [&](Jobs::End, const std::string&) {
    diary.jobs.Start(diary.Job("third", [](Jobs::Control&) {}));
  };
  diary.jobs.Start(std::move(first));
  diary.jobs.Start(diary.Job("second", [](Jobs::Control&) {}));
  diary.jobs.Finish();
  EXPECT_THAT(diary.lines, ElementsAre("started first", "ended", "started second", "ended",
                                       "second done", "started third", "ended", "third done"));
}

TEST(Job, NothingComesBetweenATurnAndWhatItStarts) {
  Diary diary;
  {
    const Jobs::Pause pause(diary.jobs);
    diary.jobs.WhenIdle([&] {
      diary.lines.emplace_back("turn");
      {
        // What others ask for while a question is open is no part of it.
        const Jobs::Pause question(diary.jobs);
        diary.jobs.WhenIdle([&] { diary.lines.emplace_back("other"); });
      }
      diary.jobs.WhenIdle([&] { diary.jobs.Start(diary.Job("own", [](Jobs::Control&) {})); });
    });
    diary.jobs.WhenIdle([&] { diary.lines.emplace_back("next turn"); });
    EXPECT_THAT(diary.lines, IsEmpty());
  }
  diary.jobs.Finish();
  EXPECT_THAT(diary.lines,
              ElementsAre("turn", "started own", "ended", "own done", "next turn", "other"));
}

TEST(Job, ArrivesAsAnEventAndWhatItsEndThrowsStopsNothingElse) {
  static int count = 0;
  static QCoreApplication* application =
      QCoreApplication::instance() == nullptr ? new QCoreApplication(count, nullptr) : nullptr;
  (void)application;
  Diary diary;
  bool last = false;
  Jobs::Job first = diary.Job("first", [](Jobs::Control&) {});
  first.Done = [](Jobs::End, const std::string&) { throw std::runtime_error("in the end"); };
  diary.jobs.Start(std::move(first));
  diary.jobs.WhenIdle([&] { last = true; });
  EXPECT_THROW(diary.jobs.Finish(), std::runtime_error);
  EXPECT_FALSE(diary.jobs.Busy());
  while (!last) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  {
    const Jobs::Pause pause(diary.jobs);
    diary.jobs.Start(diary.Job("paused", [](Jobs::Control&) {}));
    diary.jobs.Finish();
    EXPECT_FALSE(diary.jobs.Busy());
  }
  while (diary.lines.back() != "paused done") {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  }
}

TEST(Job, IsEndedAndNotToldOfWhenItsOwnerGoes) {
  bool told = false;
  bool begun = false;
  std::atomic<bool> running = false;
  {
    Jobs jobs;
    jobs.Start({"endless", true,
                [&](Jobs::Control& control) {
                  running = true;
                  while (!control.Cancelled()) std::this_thread::yield();
                },
                [&](Jobs::End, const std::string&) { told = true; }});
    jobs.Start({"next", true, [&](Jobs::Control&) { begun = true; }, nullptr});
    while (!running) std::this_thread::yield();
  }
  EXPECT_FALSE(told);
  EXPECT_FALSE(begun);
}

TEST(Job, TellsItsOwnerThroughServicesOfItsOwn) {
  TestServices owner;
  WorkerServices worker(owner.services);
  Jobs jobs;
  jobs.Start({{},
              false,
              [&](Jobs::Control&) {
                worker.All().Log.Write("a line");
                worker.All().Dialogs.Message("not saved", "disk full");
                EXPECT_EQ(worker.All().Dialogs.Ask({}), Answer::kCancel);
              },
              nullptr});
  jobs.Finish();
  EXPECT_THAT(owner.log.lines, IsEmpty());
  const auto told = worker.Take();
  ASSERT_EQ(told.size(), 1U);
  EXPECT_EQ(told[0].Message + ": " + told[0].Explanation, "not saved: disk full");
  EXPECT_THAT(owner.log.lines, ElementsAre("a line"));
  EXPECT_THAT(worker.Take(), IsEmpty());
}

TEST(Job, ThatCannotBeginEndsAndNothingBehindItIsStuck) {
  Jobs jobs;
  std::vector<std::string> told;
  Listening breaking = jobs.Started.Listen([] { throw std::runtime_error("no thread"); });
  jobs.Start({"first", false, [&](Jobs::Control&) { told.emplace_back("worked"); },
              [&](Jobs::End end, const std::string& why) {
                told.push_back((end == Jobs::End::kFailed ? "failed: " : "done: ") + why);
              }});
  breaking.reset();
  jobs.WhenIdle([] { throw std::runtime_error("thrown"); });
  jobs.WhenIdle([&] { told.emplace_back("behind"); });
  jobs.First([&] { told.emplace_back("before"); });
  EXPECT_TRUE(jobs.Busy());
  EXPECT_THROW(jobs.Finish(), std::runtime_error);
  jobs.Finish();
  EXPECT_THAT(told, ElementsAre("failed: no thread", "before", "behind"));
  EXPECT_FALSE(jobs.Busy());
}

TEST(Job, HasAnAnswerForTheQuestionThatItWasGivenFor) {
  TestServices owner;
  WorkerServices worker(owner.services);
  Dialogs& dialogs = worker.All().Dialogs;
  const Question first{"first", {}, {}, {}, {}};
  const Question second{"second", {}, {}, {}, {}};
  worker.LayReady(first, Answer::kAction);
  EXPECT_EQ(dialogs.Ask(second), Answer::kCancel);
  EXPECT_EQ(worker.Unanswered().value_or(first).Message, "second");
  EXPECT_EQ(dialogs.Ask(first), Answer::kAction);
  EXPECT_EQ(dialogs.Ask(first), Answer::kAction);
  EXPECT_FALSE(worker.Unanswered());
  EXPECT_EQ(dialogs.Ask(second), Answer::kCancel);
  worker.Forget();
  EXPECT_FALSE(worker.Unanswered());
  EXPECT_EQ(dialogs.Ask(first), Answer::kCancel);
}

TEST(Hook, TellsItsListenersInOrderWhileTheyLive) {
  std::vector<std::string> heard;
  Event<int> event;
  Listening second;
  Listening late;
  const Listening first = event.Listen([&](int n) {
    heard.push_back("first " + std::to_string(n));
    // Gone, or come, during the event.
    second.reset();
    if (!late) late = event.Listen([&](int m) { heard.push_back("late " + std::to_string(m)); });
  });
  second = event.Listen([&](int) { heard.emplace_back("second"); });
  event(1);
  event(2);
  EXPECT_THAT(heard, ElementsAre("first 1", "first 2", "late 2"));
  // The event may be gone before its listeners.
  Listening outlives;
  {
    Event<> brief;
    outlives = brief.Listen([] {});
  }
  outlives.reset();
}

// A disk that is away answers late, or never; who gives up is free at once.
TEST(Job, WhatNeverComesBackIsLetGo) {
  Jobs jobs;
  std::vector<int> seen;
  const auto gate = std::make_shared<std::atomic<bool>>(false);
  const auto start = [&](const std::function<void()>& look) {
    jobs.Start({{},
                true,
                [&seen, look](Jobs::Control& control) { seen.push_back(control.Apart(look)); },
                nullptr});
  };
  start([] {});
  jobs.Finish();
  start([gate] {
    while (!*gate) std::this_thread::yield();
  });
  jobs.Cancel();
  jobs.Finish();
  EXPECT_THAT(seen, testing::ElementsAre(true, false));
  *gate = true;
}

// What waits can be given up too, and whoever closes a window knows what is left.
TEST(Job, AllCanBeCancelled) {
  Jobs jobs;
  std::vector<std::string> ended;
  for (const char* name : {"first", "second", "must"}) {
    jobs.Start({name, std::string(name) != "must",
                [](Jobs::Control& control) {
                  while (!control.Cancelled()) std::this_thread::yield();
                },
                [&ended, name](Jobs::End end, const std::string&) {
                  ended.push_back(std::string(name) +
                                  (end == Jobs::End::kCancelled ? " cancelled" : " done"));
                }});
    if (std::string(name) == "second") {
      EXPECT_THAT(jobs.Unfinished(), testing::ElementsAre("first", "second"));
      jobs.CancelAll();
      jobs.Finish();
      EXPECT_THAT(jobs.Unfinished(), testing::IsEmpty());
    }
  }
  EXPECT_THAT(jobs.Unfinished(), testing::ElementsAre("must"));
  jobs.CancelAll();
  EXPECT_TRUE(jobs.Busy());
  jobs.Cancel();
  jobs.Finish();
  EXPECT_THAT(ended, testing::ElementsAre("first cancelled", "second cancelled", "must cancelled"));
}

}  // namespace
}  // namespace brivolant::test
