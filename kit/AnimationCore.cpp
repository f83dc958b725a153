// SPDX-License-Identifier: MIT
#include "kit/AnimationCore.h"

#include <QTimer>
#include <algorithm>
#include <cmath>

namespace brivolant {
namespace AnimationCore {
namespace {

constexpr int kDefaultFPS = 24;
constexpr int kMilliseconds = 1000;

/// The timer and what it moves; lives between Start and Stop, on the main thread.
struct Shared {
  std::unique_ptr<QTimer> timer;
  std::vector<std::unique_ptr<AnimationTask>> tasks;
};
Shared& State() {
  static Shared state;
  return state;
}

}  // namespace

AnimationRect CreateRect(int left, int top, int width, int height) {
  return {left, top, width, height};
}

AnimationRect Bounds(const QWidget& item) {
  const QRect rect = item.geometry();
  return {rect.left(), rect.top(), rect.width(), rect.height()};
}

void Bounds(QWidget& item, const AnimationRect& rect) {
  // One call for the four fields: each alone would lay the item out anew.
  item.setGeometry(rect.Left, rect.Top, rect.Width, rect.Height);
}

void Start() {
  auto timer = std::make_unique<QTimer>();
  timer->setTimerType(Qt::PreciseTimer);
  QObject::connect(timer.get(), &QTimer::timeout, [] { Action(); });
  State().timer = std::move(timer);
  FPS(kDefaultFPS);
  State().timer->start();
}

void Stop() {
  State().timer.reset();
  State().tasks.clear();
}

void FPS(int frames) {
  if (State().timer && frames > 0) State().timer->setInterval(kMilliseconds / frames);
}

int FPS() {
  const int period = Period();
  return period == 0 ? 0 : static_cast<int>(std::lround(1.0 * kMilliseconds / period));
}

int Period() {
  return State().timer ? State().timer->interval() : 0;
}

std::unique_ptr<AnimationTask> NewAnimationTask(QWidget& item) {
  return std::make_unique<AnimationTask>(item);
}

void Animate(QWidget& item, const AnimationRect& rect, double seconds) {
  AnimationTask::Run(std::make_unique<AnimationTask>(item, rect, seconds));
}

void Animate(QWidget& item, double seconds, int left, int top, int width, int height) {
  const AnimationRect now = Bounds(item);
  const auto field = [](int value, int kept) { return value == kKeep ? kept : value; };
  Animate(item,
          {field(left, now.Left), field(top, now.Top), field(width, now.Width),
           field(height, now.Height)},
          seconds);
}

const std::vector<std::unique_ptr<AnimationTask>>& Tasks() {
  return State().tasks;
}

bool IsAnimated(const QWidget& item) {
  const auto& tasks = State().tasks;
  return std::any_of(tasks.begin(), tasks.end(),
                     [&](const auto& task) { return task->Item() == &item; });
}

void Action() {
  auto& tasks = State().tasks;
  // By index: a step may lay windows out, and so start further tasks.
  for (std::size_t i = 0; i < tasks.size(); ++i) tasks[i]->Step();
  for (std::size_t i = 0; i < tasks.size();) {
    if (!tasks[i]->Finished()) {
      ++i;
      continue;
    }
    const std::unique_ptr<AnimationTask> done = std::move(tasks[i]);
    tasks.erase(tasks.begin() + static_cast<std::ptrdiff_t>(i));
    // Where another task moves it by now, that one's place counts.
    if (done->Item() != nullptr && !IsAnimated(*done->Item())) done->SetRectNow(done->NewRect);
  }
}

}  // namespace AnimationCore

using AnimationCore::AnimationRect;

AnimationTask::AnimationTask(QWidget& item) : item_(&item) {}

AnimationTask::AnimationTask(QWidget& item, const AnimationRect& rect, double seconds)
    : NewRect(rect), item_(&item) {
  Duration(seconds);
}

void AnimationTask::Frames(int frames) {
  pFrames = frames;
  Frame = 0;
  pStartRect = GetCurrentRect();
}

void AnimationTask::Duration(double seconds) {
  Frames(static_cast<int>(seconds * AnimationCore::FPS()));
}

double AnimationTask::Duration() const {
  const int fps = AnimationCore::FPS();
  return fps == 0 ? 0 : 1.0 * pFrames / fps;
}

void AnimationTask::SetRectNow(const AnimationRect& rect) {
  if (item_) AnimationCore::Bounds(*item_, rect);
}

AnimationRect AnimationTask::GetCurrentRect() const {
  return item_ ? AnimationCore::Bounds(*item_) : AnimationRect();
}

AnimationRect AnimationTask::Delta() const {
  const AnimationRect now = GetCurrentRect();
  return {NewRect.Left - now.Left, NewRect.Top - now.Top, NewRect.Width - now.Width,
          NewRect.Height - now.Height};
}

void AnimationTask::Run(std::unique_ptr<AnimationTask> task) {
  AnimationCore::State().tasks.push_back(std::move(task));
}

void AnimationTask::Step() {
  ++Frame;
  if (Finished()) return;
  const double factor = 1.0 * Frame / pFrames;
  const auto between = [factor](int start, int target) {
    return static_cast<int>(start + (target - start) * factor);
  };
  SetRectNow({between(pStartRect.Left, NewRect.Left), between(pStartRect.Top, NewRect.Top),
              between(pStartRect.Width, NewRect.Width),
              between(pStartRect.Height, NewRect.Height)});
}

}  // namespace brivolant
