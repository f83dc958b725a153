// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/values/Event.h"

namespace brivolant {

class EventTarget;

/// Long work on another thread, one job at a time. All but a job's Work happens on the thread that
/// made the object, which needs an event loop for what is not finished by Finish.
class Jobs {
 public:
  /// What a job's work may ask and tell; on its thread.
  class Control {
   public:
    /// The work should end soon; what it has made so far is its own to tidy up.
    bool Cancelled() const { return cancelled_; }
    /// The part that is done, 0 to 1. Gives back false once the work should end.
    bool Progress(double done) {
      done_ = done;
      return !cancelled_;
    }

    /// Runs what may never come back, such as a look at a disk that is away, and waits for it until
    /// the work is cancelled. What it uses must be its own. True if it was done.
    bool Apart(std::function<void()> look) const;

   private:
    friend class Jobs;
    std::atomic<bool> cancelled_ = false;
    std::atomic<double> done_ = 0;
  };
  enum class End { kDone, kCancelled, kFailed };
  struct Job {
    /// What the user is told meanwhile; empty for nothing.
    std::string Text;
    bool CanCancel = false;
    std::function<void(Control&)> Work;
    /// Called once, when nothing is busy any more. What Work threw arrives as kFailed with its
    /// words; work that was cancelled, or never begun, as kCancelled.
    std::function<void(End, const std::string& why)> Done;
    /// Called on the owner's thread when Work is done, while the job is still busy. What it gives
    /// back is worked on next, and then it is called again; nothing ends the job.
    std::function<std::function<void(Control&)>()> More = nullptr;
    /// How far it is cannot be told.
    bool Unmeasured = false;
  };
  /// While one lives, nothing begins that waits for its turn.
  class Pause {
   public:
    explicit Pause(Jobs& jobs);
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    std::weak_ptr<int> pauses_;
    Jobs& jobs_;
  };

  /// Runs what may never come back on a thread of its own, and waits for it that many milliseconds
  /// at most. What it uses must be its own. True if it was done.
  static bool Within(int milliseconds, std::function<void()> look);
  /// Something that was begun so has not come back: what it may use must not be taken down.
  static bool SomeAreApart();

  Jobs();
  /// Cancels and waits; what still waited for its turn is dropped.
  ~Jobs();
  Jobs(const Jobs&) = delete;
  Jobs& operator=(const Jobs&) = delete;

  /// Begins, or waits for the jobs before it.
  void Start(Job job);
  /// Calls at once if nothing is busy, else behind what was asked for before. What is asked for and
  /// started within the call is a part of it: nothing comes between.
  void WhenIdle(std::function<void()> then);
  /// The same before all that waits: for what follows from an answer that the user has just given.
  void First(std::function<void()> then);
  bool Busy() const { return running_ != nullptr; }
  /// Nothing is busy, and nothing waits for its turn.
  bool Idle() const { return !running_ && waiting_.empty(); }
  /// What the present job tells the user, and whether it may be cancelled; of none, empty.
  std::string Text() const;
  bool CanCancel() const;
  bool Unmeasured() const;
  /// The part of the present job that is done.
  double Done() const;
  /// Asks the present job to end.
  void Cancel();
  /// The present job cannot be cancelled any more; said between its pieces.
  void KeepOn();
  /// The same of those that wait, each as its turn comes; those that cannot be cancelled go on.
  void CancelAll();
  /// What the present job and those that wait tell the user; nothing of those that tell nothing.
  std::vector<std::string> Unfinished() const;
  /// Waits until nothing is busy and nothing waits, without handling events.
  void Finish();

  Event<> Started;
  Event<> Ended;

 private:
  struct Running;
  struct Waiting {
    Job job;
    std::function<void()> then;
    bool cancelled = false;
  };
  void Begin(Job job, bool cancelled = false);
  void Work();
  /// The end of a piece of work, which is told of by an event and may be by Finish before.
  void Deliver(Running& finished, int piece);
  void Tell(const std::shared_ptr<Running>& finished, int piece);
  bool GoesOn(Running& running);
  void Next();
  void NextTurn();

  std::shared_ptr<Running> running_;
  std::deque<Waiting> waiting_;
  std::shared_ptr<int> pauses_ = std::make_shared<int>(0);
  bool telling_ = false;
  /// A call of WhenIdle is under way, and what it asks for is a part of it. Not so while it pauses:
  /// what comes then comes from somebody else.
  bool InTurn() const { return turn_ && !running_ && *pauses_ == 0; }
  bool turn_ = false;
  std::unique_ptr<EventTarget> receiver_;
};

}  // namespace brivolant
