// SPDX-License-Identifier: MIT
#include "app/session/FullRender.h"

#include <exception>
#include <utility>

#include "app/core/EventTarget.h"
#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/BrivolantDocument.h"

namespace brivolant {

FullRender::FullRender(const Services& owner)
    : services_(owner), receiver_(std::make_unique<EventTarget>()) {}

FullRender::~FullRender() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    goOn_ = false;
    next_.reset();
  }
  changed_.notify_all();
  if (thread_.joinable()) thread_.join();
}

void FullRender::Start(Request request) {
  // The previews would only be held in memory.
  request.Photo->ResetPreviews();
  {
    const std::lock_guard lock(mutex_);
    goOn_ = false;
    next_ = std::move(request);
    done_.reset();
  }
  wanted_ = true;
  changed_.notify_all();
  if (!thread_.joinable()) thread_ = std::thread([this] { Run(); });
}

void FullRender::Stop() {
  if (!wanted_) return;
  wanted_ = false;
  const std::lock_guard lock(mutex_);
  goOn_ = false;
  next_.reset();
  done_.reset();
}

bool FullRender::Working() {
  const std::lock_guard lock(mutex_);
  return working_;
}

void FullRender::Run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return ending_ || next_; });
    if (ending_) return;
    const Request request = std::move(*std::exchange(next_, std::nullopt));
    working_ = true;
    goOn_ = true;
    lock.unlock();
    std::optional<Result> result(std::in_place);
    try {
      result = Render(request, [this] { return goOn_.load(); });
    } catch (const std::exception& exception) {
      services_.All().Log.Write(exception.what());
    }
    // Large pictures are given back outside the lock.
    if (!goOn_) result.reset();
    lock.lock();
    working_ = false;
    if (!result || !goOn_) {
      ++brokenOff_;
      result.reset();
    } else {
      done_ = std::move(result);
      receiver_->Post([this] { Deliver(); });
    }
    changed_.notify_all();
  }
}

std::optional<FullRender::Result> FullRender::Render(const Request& request,
                                                     const std::function<bool()>& goOn) {
  BrivolantDocument& photo = *request.Photo;
  // As the preview is made: what is transparent is white from the beginning.
  Picture source = SharedPictureEffects::Clone(photo.Image(), 24, true);
  Result result;
  // An image that is neither cut nor turned is the original itself.
  if (request.Before || source.SharesPixelsWith(photo.ImageOriginal())) result.Before = source;
  brivolantProcessorLite processor(EffectRegistry(), services_.All());
  processor.Startup();
  processor.StyleData(request.StyleData);
  // A foreground that cannot be seen is not made: what is left is the background.
  if (request.Stack == kBackground) processor.BlendAlpha = 0;
  processor.Progress = [&](double) { return goOn(); };
  result.After = processor.Process(std::move(source), photo.PastedImages());
  if (!goOn()) return std::nullopt;
  return result;
}

void FullRender::Deliver() {
  std::optional<Result> result;
  {
    const std::lock_guard lock(mutex_);
    result = std::exchange(done_, std::nullopt);
  }
  // Finish may have been here before the event, or something else is wanted by now.
  if (!result) return;
  wanted_ = false;
  // What the preview had to tell it has told.
  (void)services_.Take();
  if (Ready) Ready(*result);
}

void FullRender::Finish() {
  if (!wanted_) return;
  {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !next_ && !working_; });
  }
  Deliver();
}

}  // namespace brivolant
