// SPDX-License-Identifier: MIT
#include "app/core/Jobs.h"

#include <QObject>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <exception>
#include <utility>

namespace brivolant {

/// One job and its thread. The thread holds it, so that it may end after its owner.
struct Jobs::Running {
  Job job;
  Control control;
  std::thread thread;
  bool failed = false;
  std::string why;
};

/// Where the end of a job arrives as an event of the owner's thread.
class Jobs::Receiver final : public QObject {};

Jobs::Pause::Pause(Jobs& jobs) : pauses_(jobs.pauses_), jobs_(jobs) {
  ++*jobs.pauses_;
}

Jobs::Pause::~Pause() {
  const auto pauses = pauses_.lock();
  if (!pauses || --*pauses > 0) return;
  // Not from within: whoever pauses is still at work here.
  jobs_.NextTurn();
}

Jobs::Jobs() : receiver_(std::make_unique<Receiver>()) {}

Jobs::~Jobs() {
  waiting_.clear();
  if (!running_) return;
  running_->control.cancelled_ = true;
  if (running_->thread.joinable()) running_->thread.join();
}

void Jobs::Start(Job job) {
  if (InTurn()) return Begin(std::move(job));
  waiting_.push_back({std::move(job), nullptr});
  Next();
}

void Jobs::WhenIdle(std::function<void()> then) {
  if (InTurn()) return then();
  waiting_.push_back({{}, std::move(then)});
  Next();
}

void Jobs::First(std::function<void()> then) {
  if (InTurn()) return then();
  waiting_.push_front({{}, std::move(then)});
  Next();
}

void Jobs::NextTurn() {
  QMetaObject::invokeMethod(
      receiver_.get(), [this] { Next(); }, Qt::QueuedConnection);
}

std::string Jobs::Text() const {
  return running_ ? running_->job.Text : std::string();
}

bool Jobs::CanCancel() const {
  return running_ && running_->job.CanCancel;
}

double Jobs::Done() const {
  return running_ ? running_->control.done_.load() : 0;
}

void Jobs::Cancel() {
  if (running_) running_->control.cancelled_ = true;
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
      Begin(std::move(next.job));
    }
  }
}

void Jobs::Begin(Job job) {
  running_ = std::make_shared<Running>();
  running_->job = std::move(job);
  const auto deliver = [this](const std::shared_ptr<Running>& held) {
    QMetaObject::invokeMethod(
        receiver_.get(), [this, held] { Deliver(*held); }, Qt::QueuedConnection);
  };
  const auto attempt = [](Running& held, const std::function<void()>& work) {
    try {
      if (work) work();
      return true;
    } catch (const std::exception& exception) {
      held.why = exception.what();
    } catch (...) {
    }
    held.failed = true;
    return false;
  };
  const std::shared_ptr<Running> running = running_;
  // A job that cannot begin ends like one that fails.
  const bool begun = attempt(*running, [&] {
    Started();
    running->thread = std::thread([held = running, deliver, attempt] {
      attempt(*held, [&] {
        if (held->job.Work) held->job.Work(held->control);
      });
      deliver(held);
    });
  });
  if (!begun) deliver(running);
}

void Jobs::Deliver(Running& finished) {
  // Finish may have been here before the event.
  if (running_.get() != &finished) return;
  const std::shared_ptr<Running> ended = std::move(running_);
  running_.reset();
  if (ended->thread.joinable()) ended->thread.join();
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
    Deliver(*running);
    Next();
  }
}

}  // namespace brivolant
