// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "app/core/WorkerServices.h"
#include "platform/pictures/Picture.h"

namespace brivolant {

class EventTarget;

class BrivolantDocument;

/// The finished photo at its full size, rendered on another thread while the window goes on. What
/// is asked for last is what is made: a render that is not wanted any more is broken off. The
/// thread has a processor and services of its own, and a copy of the document's handles.
class FullRender {
 public:
  /// What is rendered. The copy belongs to the request alone.
  struct Request {
    std::shared_ptr<BrivolantDocument> Photo;
    std::string StyleData;
    /// The stack that is shown: kForeground is both, kBackground that one alone.
    int Stack = 0;
    /// The photo before the effects is wanted too.
    bool Before = false;
  };
  struct Result {
    Picture After;
    /// Also there if it costs nothing.
    Picture Before;
  };

  /// `owner` must outlive the object.
  explicit FullRender(const Services& owner);
  /// Breaks off and waits.
  ~FullRender();
  FullRender(const FullRender&) = delete;
  FullRender& operator=(const FullRender&) = delete;

  /// Begins, in place of what was asked for before.
  void Start(Request request);
  /// Nothing is wanted any more.
  void Stop();
  /// Something was asked for, and its result has not come.
  bool Running() const { return wanted_; }
  /// Waits for the newest result and delivers it in the call; no events are handled.
  void Finish();
  /// The thread renders, wanted or not.
  bool Working();
  /// Renders begun and broken off before their end, for whoever watches the work.
  int BrokenOff() const { return brokenOff_; }

  /// The newest result, on the owner's thread; a nil picture if there was not enough memory.
  std::function<void(const Result&)> Ready;

 private:
  void Run();
  std::optional<Result> Render(const Request& request, const std::function<bool()>& goOn);
  void Deliver();

  WorkerServices services_;
  /// Of the owner's thread.
  bool wanted_ = false;
  std::unique_ptr<EventTarget> receiver_;
  std::thread thread_;

  // Between the threads.
  std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<Request> next_;
  std::optional<Result> done_;
  bool working_ = false;
  bool ending_ = false;
  std::atomic<bool> goOn_ = false;
  std::atomic<int> brokenOff_ = 0;
};

}  // namespace brivolant
