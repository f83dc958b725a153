// SPDX-License-Identifier: MIT
#include "app/session/PreviewThread.h"

#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <utility>

#include "engine/PreviewRenderer.h"

namespace brivolant {

/// What both threads see.
struct PreviewThread::Shared {
  struct Outcome {
    std::optional<PreviewResult> Result;
    /// What a module threw.
    std::string Why;
  };
  std::mutex mutex;
  std::condition_variable changed;
  std::optional<PreviewRequest> request;
  std::optional<Outcome> outcome;
  /// From a request to its outcome.
  bool busy = false;
  bool end = false;
  std::atomic<bool> stop = false;
};

/// Where the end of a render arrives as an event of the owner's thread.
PreviewThread::PreviewThread(brivolantProcessorLite& processor, ModuleRegistry registry,
                             const Services& services)
    : processor_(processor),
      registry_(registry),
      services_(services),
      shared_(std::make_unique<Shared>()),
      receiver_(std::make_unique<EventTarget>()) {
  processor_.myRenderer = this;
}

PreviewThread::~PreviewThread() {
  processor_.myRenderer = nullptr;
  BreakOff();
  {
    const std::lock_guard lock(shared_->mutex);
    shared_->end = true;
  }
  shared_->changed.notify_all();
  if (thread_.joinable()) thread_.join();
}

void PreviewThread::Work(Shared& shared, ModuleRegistry registry, const Services& services,
                         const std::function<void()>& tell) {
  PreviewRenderer renderer(registry, services);
  std::unique_lock lock(shared.mutex);
  for (;;) {
    shared.changed.wait(lock, [&] { return shared.end || shared.request; });
    if (shared.end) return;
    const PreviewRequest request = *std::exchange(shared.request, std::nullopt);
    lock.unlock();
    Shared::Outcome outcome;
    try {
      outcome.Result = renderer.Render(request, [&shared] { return !shared.stop; });
    } catch (const std::exception& exception) {
      outcome.Why = exception.what();
    } catch (...) {
      outcome.Why = "for no reason that it gave";
    }
    lock.lock();
    shared.outcome = std::move(outcome);
    shared.busy = false;
    shared.changed.notify_all();
    tell();
  }
}

PreviewThread::Key PreviewThread::Now() const {
  const PreviewDisplay* display = processor_.myDisplay;
  if (display == nullptr) return {documents_, 0, 0, processor_.CurrentStack};
  return {documents_, display->Width(), display->Height(), processor_.CurrentStack};
}

void PreviewThread::Request(bool full) {
  wanted_ = true;
  wantedFull_ = wantedFull_ || full;
  Post();
}

void PreviewThread::Post() {
  if (std::exchange(posted_, true)) return;
  receiver_->Post([this] {
    posted_ = false;
    (void)Settled();
  });
}

void PreviewThread::DocumentReplaced() {
  ++documents_;
  BreakOff();
}

void PreviewThread::BreakOff() {
  shared_->stop = true;
}

void PreviewThread::Advance() {
  while (wanted_ && !running_) Begin();
  if (wanted_ && !(Now() == running_->Of)) BreakOff();
}

void PreviewThread::Begin() {
  wanted_ = false;
  const bool full = std::exchange(wantedFull_, false);
  const Key of = Now();
  PreviewRequest request = processor_.BeginPreview(full);
  if (request.Original.IsNil()) {
    const PreviewResult nothing;
    return processor_.EndPreview(&nothing, full);
  }
  running_ = UnderWay{of, full};
  {
    const std::lock_guard lock(shared_->mutex);
    shared_->request = std::move(request);
    shared_->busy = true;
    shared_->stop = false;
  }
  shared_->changed.notify_all();
  if (thread_.joinable()) return;
  // Not before there is a photo: who only browses needs no second set of modules.
  thread_ = std::thread([this] {
    Work(*shared_, registry_, services_.All(),
         [this] { receiver_->Post([this] { (void)Settled(); }); });
  });
}

void PreviewThread::Take() {
  if (!running_) return;
  std::optional<Shared::Outcome> outcome;
  {
    const std::lock_guard lock(shared_->mutex);
    outcome = std::exchange(shared_->outcome, std::nullopt);
  }
  if (!outcome) return;
  const UnderWay ended = *std::exchange(running_, std::nullopt);
  (void)services_.Take();
  const bool shown = outcome->Result && ended.Of.Document == documents_;
  if (!outcome->Why.empty()) {
    processor_.Services().Log.Write("A preview failed: " + outcome->Why);
    if (ended.Of.Document == documents_) processor_.Warn(kFailed.Text());
  }
  // What was to be made anew still is.
  if (!shown) wantedFull_ = wantedFull_ || ended.Full;
  processor_.EndPreview(shown ? &*outcome->Result : nullptr, ended.Full);
}

bool PreviewThread::Settled() {
  Take();
  Advance();
  if (wanted_ || running_) return false;
  TellRendered();
  return !wanted_ && !running_;
}

void PreviewThread::TellRendered() {
  for (const auto& then : std::exchange(waiting_, {})) then();
}

void PreviewThread::WhenRendered(std::function<void()> then) {
  if (!wanted_ && !running_) return then();
  waiting_.push_back(std::move(then));
}

void PreviewThread::Wait() {
  std::unique_lock lock(shared_->mutex);
  shared_->changed.wait(lock, [this] { return !shared_->busy; });
}

void PreviewThread::Finish() {
  while (!Settled()) {
    // Nobody sees what is not the newest.
    if (wanted_) BreakOff();
    Wait();
  }
}

}  // namespace brivolant
