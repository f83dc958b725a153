// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>
#include <vector>

namespace brivolant {

class AnimationTask;

/// Moves and resizes controls and windows over time with one shared timer. Each tick moves every
/// running task one step along a straight line; a slow frame is not made up for.
namespace AnimationCore {

/// A place and a size, in the coordinates of the item's parent or of the screen.
struct AnimationRect {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;
  friend constexpr bool operator==(const AnimationRect&, const AnimationRect&) = default;
};

/// Stands for "as it is" in Animate.
inline constexpr int kKeep = -1001;

AnimationRect CreateRect(int left, int top, int width, int height);
AnimationRect Bounds(const QWidget& item);
/// Writes Width, Height, Top and Left, in this order.
void Bounds(QWidget& item, const AnimationRect& rect);

/// Creates the timer, at 24 frames a second. Called at the program's start.
void Start();
/// Drops the timer and all tasks. Called at its end.
void Stop();
/// Frames a second. Setting it without a timer does nothing; 0 without one.
void FPS(int frames);
int FPS();
/// Milliseconds between two ticks; 0 without a timer.
int Period();

/// A task for the item that does not run yet.
std::unique_ptr<AnimationTask> NewAnimationTask(QWidget& item);
/// Runs the item to `rect` in that many seconds.
void Animate(QWidget& item, const AnimationRect& rect, double seconds);
/// The same from where the item is; kKeep keeps a field.
void Animate(QWidget& item, double seconds, int left, int top, int width, int height);
/// Running tasks, in their order of creation.
const std::vector<std::unique_ptr<AnimationTask>>& Tasks();
/// True while a task moves the item.
bool IsAnimated(const QWidget& item);
/// One step of all tasks: what the timer does.
void Action();

}  // namespace AnimationCore

/// One movement of one item.
class AnimationTask {
 public:
  explicit AnimationTask(QWidget& item);
  AnimationTask(QWidget& item, const AnimationCore::AnimationRect& rect, double seconds);

  AnimationCore::AnimationRect NewRect;

  /// Fixes the start where the item now is, and the number of frames.
  void Frames(int frames);
  int Frames() const { return pFrames; }
  /// Seconds.
  void Duration(double seconds);
  double Duration() const;
  void SetRectNow(const AnimationCore::AnimationRect& rect);
  AnimationCore::AnimationRect GetCurrentRect() const;
  AnimationCore::AnimationRect OriginalRect() const { return pStartRect; }
  /// From the current rectangle to the target, field by field.
  AnimationCore::AnimationRect Delta() const;
  /// Hands a task to the timer.
  static void Run(std::unique_ptr<AnimationTask> task);

  /// The item; null once it is gone.
  QWidget* Item() const { return item_; }
  /// One step forward.
  void Step();
  /// True after the last frame, or when the item is gone.
  bool Finished() const { return item_.isNull() || Frame >= pFrames; }

 private:
  QPointer<QWidget> item_;
  int pFrames = 0;
  int Frame = 0;
  AnimationCore::AnimationRect pStartRect;
};

}  // namespace brivolant
