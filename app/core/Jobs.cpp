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
  QMetaObject::invokeMethod(
      jobs_.receiver_.get(), [jobs = &jobs_] { jobs->Next(); }, Qt::QueuedConnection);
}

Jobs::Jobs() : receiver_(std::make_unique<Receiver>()) {}

Jobs::~Jobs() {
  waiting_.clear();
  if (!running_) return;
  running_->control.cancelled_ = true;
  running_->thread.join();
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
      next.then();
    } else {
      Begin(std::move(next.job));
    }
  }
}

void Jobs::Begin(Job job) {
  running_ = std::make_shared<Running>();
  running_->job = std::move(job);
  Started();
  Running& running = *running_;
  running.thread = std::thread([this, held = running_] {
    try {
      if (held->job.Work) held->job.Work(held->control);
    } catch (const std::exception& exception) {
      held->failed = true;
      held->why = exception.what();
    } catch (...) {
      held->failed = true;
    }
    QMetaObject::invokeMethod(
        receiver_.get(), [this, held] { Deliver(*held); }, Qt::QueuedConnection);
  });
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
    if (waiting_.empty()) return;
    QMetaObject::invokeMethod(
        receiver_.get(), [this] { Next(); }, Qt::QueuedConnection);
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
    running->thread.join();
    Deliver(*running);
    Next();
  }
}

}  // namespace brivolant
