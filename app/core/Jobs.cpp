// SPDX-License-Identifier: MIT
#include "app/core/Jobs.h"

#include <sys/resource.h>
#include <unistd.h>

#include <QScopeGuard>
#include <QScopedValueRollback>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <future>
#include <utility>

#include "app/core/EventTarget.h"

namespace brivolant {

/// One job and its thread. The thread holds it, so that it may end after its owner.
struct Jobs::Running {
  Job job;
  Control control;
  std::thread thread;
  /// Ready once the thread has done its piece.
  std::future<void> ended;
  /// Counts the pieces of work.
  int piece = 0;
  bool failed = false;
  std::string why;
  /// False, and says why, if something throws.
  bool Attempt(const std::function<void()>& what) {
    try {
      what();
      return true;
    } catch (const std::exception& exception) {
      why = exception.what();
    } catch (...) {
    }
    failed = true;
    return false;
  }
};

Jobs::Pause::Pause(Jobs& jobs) : pauses_(jobs.pauses_), jobs_(jobs) {
  ++*jobs.pauses_;
}

Jobs::Pause::~Pause() {
  const auto pauses = pauses_.lock();
  if (!pauses || --*pauses > 0) return;
  // Not from within: whoever pauses is still at work here.
  jobs_.NextTurn();
}

Jobs::Jobs() : receiver_(std::make_unique<EventTarget>()) {}

Jobs::~Jobs() {
  waiting_.clear();
  if (!running_) return;
  running_->control.cancelled_ = true;
  if (!running_->thread.joinable()) return;
  // Work that was told to end does so soon, unless a disk holds it that may never answer. Nothing
  // it uses can be taken down then, and whoever starts the program anew is not to wait for this
  // one.
  constexpr std::chrono::seconds kParting(10);
  if (running_->ended.wait_for(kParting) != std::future_status::ready) std::_Exit(EXIT_SUCCESS);
  running_->thread.join();
}

namespace {

std::atomic<int> apart = 0;

std::future<void> OnItsOwn(std::function<void()> look) {
  const auto seen = std::make_shared<std::promise<void>>();
  std::future<void> done = seen->get_future();
  ++apart;
  std::thread([seen, look = std::move(look)] {
    try {
      look();
      --apart;
      seen->set_value();
    } catch (...) {
      --apart;
      seen->set_exception(std::current_exception());
    }
  }).detach();
  return done;
}

}  // namespace

bool Jobs::SomeAreApart() {
  return apart > 0;
}

bool Jobs::Control::Apart(std::function<void()> look) const {
  constexpr std::chrono::milliseconds kLookAgain(50);
  std::future<void> done = OnItsOwn(std::move(look));
  while (done.wait_for(kLookAgain) != std::future_status::ready) {
    if (Cancelled()) return false;
  }
  done.get();
  return true;
}

bool Jobs::Within(int milliseconds, std::function<void()> look) {
  std::future<void> done = OnItsOwn(std::move(look));
  if (done.wait_for(std::chrono::milliseconds(milliseconds)) != std::future_status::ready) {
    return false;
  }
  done.get();
  return true;
}

void Jobs::Start(Job job) {
  if (InTurn()) return Begin(std::move(job));
  waiting_.push_back({std::move(job), nullptr, false});
  Next();
}

void Jobs::WhenIdle(std::function<void()> then) {
  if (InTurn()) return then();
  waiting_.push_back({{}, std::move(then), false});
  Next();
}

void Jobs::First(std::function<void()> then) {
  if (InTurn()) return then();
  waiting_.push_front({{}, std::move(then), false});
  Next();
}

void Jobs::NextTurn() {
  receiver_->Post([this] { Next(); });
}

std::string Jobs::Text() const {
  return running_ ? running_->job.Text : std::string();
}

bool Jobs::CanCancel() const {
  return running_ && running_->job.CanCancel;
}

bool Jobs::Unmeasured() const {
  return running_ && running_->job.Unmeasured;
}

double Jobs::Done() const {
  return running_ ? running_->control.done_.load() : 0;
}

void Jobs::Cancel() {
  if (running_) running_->control.cancelled_ = true;
}

void Jobs::KeepOn() {
  if (running_) running_->job.CanCancel = false;
}

void Jobs::CancelAll() {
  if (CanCancel()) Cancel();
  for (Waiting& waiting : waiting_) waiting.cancelled = waiting.job.CanCancel;
}

std::vector<std::string> Jobs::Unfinished() const {
  std::vector<std::string> texts;
  if (!Text().empty()) texts.push_back(Text());
  for (const Waiting& waiting : waiting_) {
    if (!waiting.job.Text.empty()) texts.push_back(waiting.job.Text);
  }
  return texts;
}

void Jobs::Next() {
  while (!running_ && !telling_ && !turn_ && *pauses_ == 0 && !waiting_.empty()) {
    Waiting next = std::move(waiting_.front());
    waiting_.pop_front();
    if (next.then) {
      const QScopedValueRollback turn(turn_, true);
      // What waits behind it waits for no other call.
      auto others = qScopeGuard([this] { NextTurn(); });
      next.then();
      others.dismiss();
    } else {
      Begin(std::move(next.job), next.cancelled);
    }
  }
}

void Jobs::Begin(Job job, bool cancelled) {
  running_ = std::make_shared<Running>();
  running_->job = std::move(job);
  running_->control.cancelled_ = cancelled;
  const std::shared_ptr<Running> running = running_;
  const bool begun = running->Attempt([this] {
    Started();
    Work();
  });
  // A job that cannot begin ends like one that fails.
  if (!begun) Tell(running, running->piece);
}

void Jobs::Work() {
  const int piece = ++running_->piece;
  std::promise<void> ended;
  running_->ended = ended.get_future();
  running_->thread =
      std::thread([this, piece, held = running_, ended = std::move(ended)]() mutable {
        // The window comes first.
        constexpr int kNice = 5;
        (void)setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNice);
        held->Attempt([&] {
          if (held->job.Work) held->job.Work(held->control);
        });
        Tell(held, piece);
        ended.set_value();
      });
}

void Jobs::Tell(const std::shared_ptr<Running>& finished, int piece) {
  receiver_->Post([this, finished, piece] { Deliver(*finished, piece); });
}

bool Jobs::GoesOn(Running& running) {
  if (running.failed || running.control.Cancelled() || !running.job.More) return false;
  bool more = false;
  running.Attempt([&] {
    running.job.Work = running.job.More();
    more = running.job.Work != nullptr;
    if (more) Work();
  });
  return more && !running.failed;
}

void Jobs::Deliver(Running& finished, int piece) {
  // Finish may have been here before the event.
  if (running_.get() != &finished || finished.piece != piece) return;
  if (finished.thread.joinable()) finished.thread.join();
  if (GoesOn(finished)) return;
  const std::shared_ptr<Running> ended = std::move(running_);
  running_.reset();
  // What Done starts comes behind what waits already, and what it throws stops nothing that waits.
  const auto next = qScopeGuard([this] {
    telling_ = false;
    if (!waiting_.empty()) NextTurn();
  });
  telling_ = true;
  Ended();
  const End end = ended->failed                ? End::kFailed
                  : ended->control.Cancelled() ? End::kCancelled
                                               : End::kDone;
  if (ended->job.Done) ended->job.Done(end, ended->why);
}

void Jobs::Finish() {
  Next();
  while (running_) {
    const std::shared_ptr<Running> running = running_;
    if (running->thread.joinable()) running->thread.join();
    Deliver(*running, running->piece);
    Next();
  }
}

}  // namespace brivolant
