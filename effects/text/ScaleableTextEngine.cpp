// SPDX-License-Identifier: MIT
#include "effects/text/ScaleableTextEngine.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <chrono>
#include <string_view>

namespace brivolant {
namespace {

constexpr std::int32_t kBlinkOn = 50;
constexpr std::int32_t kBlinkAll = 100;
/// Clicks this close together at one place count as a series.
constexpr std::int32_t kClicks = 1000;
/// Typing that rests this long starts a new step of the history.
constexpr std::int32_t kPause = 60;

std::int32_t SystemTicks() {
  using namespace std::chrono;
  constexpr std::int64_t kPerSecond = 60;
  const auto milliseconds =
      duration_cast<std::chrono::milliseconds>(steady_clock::now().time_since_epoch()).count();
  return static_cast<std::int32_t>(milliseconds * kPerSecond / 1000 & 0x7FFFFFFF);
}

/// Takes a prefix away; true if it was there.
bool Take(std::string& key, std::string_view prefix) {
  if (!key.starts_with(prefix)) return false;
  key.erase(0, prefix.size());
  return true;
}

bool IsTyped(const std::string& key) {
  constexpr unsigned char kFirstVisible = 32;
  constexpr unsigned char kRubOut = 127;
  const auto first = static_cast<unsigned char>(key.empty() ? '\0' : key.front());
  return first >= kFirstVisible && first != kRubOut;
}

}  // namespace

ScaleableTextEngine::ScaleableTextEngine() : Ticks(SystemTicks) {}

void ScaleableTextEngine::Touch() {
  cursorLastBlink_ = Ticks();
}

int ScaleableTextEngine::HitCurrent(float x, float y) const {
  return CurrentTextItem == nullptr ? kHitNothing
                                    : CurrentTextItem->isWithin(SourceSize, x, y, Marks);
}

int ScaleableTextEngine::HitAny(float x, float y) const {
  if (const int hit = HitCurrent(x, y); hit != kHitNothing) return hit;
  for (auto box = item.rbegin(); box != item.rend(); ++box) {
    if (const int hit = (*box)->isWithin(SourceSize, x, y, Marks); hit != kHitNothing) return hit;
  }
  return kHitNothing;
}

bool ScaleableTextEngine::MouseDown(float x, float y) {
  typing_ = false;
  dragHandle_ = HitCurrent(x, y);
  if (dragHandle_ == kHitNothing) {
    CurrentTextItem = nullptr;
    lastMouseUp_ = 0;
    for (auto box = item.rbegin(); box != item.rend(); ++box) {
      dragHandle_ = (*box)->isWithin(SourceSize, x, y, Marks);
      if (dragHandle_ == kHitNothing) continue;
      CurrentTextItem = box->get();
      break;
    }
  }
  if (CurrentTextItem == nullptr) return true;
  Touch();
  if (dragHandle_ == kHitText) {
    Click(x, y);
  } else {
    lastMousePos_ = {x, y};
  }
  return true;
}

void ScaleableTextEngine::Click(float x, float y) {
  ScaleableTextObject& box = *CurrentTextItem;
  const int position = box.PositionFromXY(SourceSize, x, y);
  if (lastMouseUp_ == 0 || Ticks() - lastMouseUp_ >= kClicks || position != lastSelStart_) {
    clickCounter_ = 0;
    box.Select(position, 0);
    lastSelStart_ = box.SelStart();
    return;
  }
  constexpr int kMostClicks = 3;
  clickCounter_ = std::min(clickCounter_ + 1, kMostClicks);
  if (clickCounter_ == kMostClicks) return;
  const Pair part =
      clickCounter_ == 1
          ? box.WordDimensions(position)
          : box.LineDimensions(static_cast<int>(box.LineCharFromPosition(position).Left));
  box.Select(static_cast<int>(part.Left), static_cast<int>(part.Right));
}

void ScaleableTextEngine::MouseDrag(float x, float y) {
  if (CurrentTextItem == nullptr || dragHandle_ == kHitNothing) return;
  ScaleableTextObject& box = *CurrentTextItem;
  if (dragHandle_ == kHitText) {
    const int position = box.PositionFromXY(SourceSize, x, y);
    // A hand that trembles in a double click does not undo it.
    if (clickCounter_ > 0 && position == lastSelStart_) return;
    box.Select(std::min(lastSelStart_, position), std::abs(position - lastSelStart_));
    Touch();
    return;
  }
  const auto dx = static_cast<float>(x - lastMousePos_.Left);
  const auto dy = static_cast<float>(y - lastMousePos_.Right);
  lastMousePos_ = {x, y};
  const bool left = dragHandle_ == kHitTopLeft || dragHandle_ == kHitBottomLeft;
  const bool top = dragHandle_ == kHitTopLeft || dragHandle_ == kHitTopRight;
  const bool whole = dragHandle_ == kHitFrame;
  if (left || whole) box.Left += dx;
  if (top || whole) box.Top += dy;
  if (whole) return;
  box.Width += left ? -dx : dx;
  box.Height += top ? -dy : dy;
}

void ScaleableTextEngine::MouseUp(float x, float y) {
  if (CurrentTextItem == nullptr) return;
  lastSelStart_ = CurrentTextItem->PositionFromXY(SourceSize, x, y);
  lastMouseUp_ = std::max(Ticks(), std::int32_t{1});
}

void ScaleableTextEngine::Paint(Picture& picture, bool editing) {
  const Pair size{static_cast<double>(picture.Width()), static_cast<double>(picture.Height())};
  SourceSize = size;
  if (item.empty()) return;
  QImage image = picture.EditImage();
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                         QPainter::SmoothPixmapTransform);
  Paint(painter, size, editing);
}

void ScaleableTextEngine::Paint(QPainter& painter, const Pair& size, bool editing) {
  SourceSize = size;
  // The finished picture shows the boxes as they lie, whichever is worked on.
  const ScaleableTextObject* last = editing ? CurrentTextItem : nullptr;
  for (const auto& box : item) {
    if (box.get() != last) box->Draw(painter, SourceSize, false, false, Marks);
  }
  if (last == nullptr) return;
  const std::int32_t since = Ticks() - cursorLastBlink_;
  if (since >= kBlinkAll || since < 0) Touch();
  const bool caret = since < kBlinkOn || since >= kBlinkAll;
  CurrentTextItem->Draw(painter, SourceSize, true, caret, Marks);
}

void ScaleableTextEngine::RemoveCurrent() {
  const auto found = std::find_if(item.begin(), item.end(),
                                  [this](const auto& box) { return box.get() == CurrentTextItem; });
  CurrentTextItem = nullptr;
  if (found != item.end()) item.erase(found);
}

void ScaleableTextEngine::Backspace() {
  ScaleableTextObject& box = *CurrentTextItem;
  if (box.TextLength() == 0) return RemoveCurrent();
  if (box.Sellength() > 0) return Clear();
  if (box.SelStart() == 0) return;
  const int position = box.SelStart() - 1;
  box.Select(box.Replace(position, 1, {}), 0);
}

void ScaleableTextEngine::ForwardDelete() {
  ScaleableTextObject& box = *CurrentTextItem;
  if (box.Sellength() == 0) box.Select(box.SelStart(), 1);
  Clear();
}

void ScaleableTextEngine::MoveTo(int position, bool extend) {
  ScaleableTextObject& box = *CurrentTextItem;
  position = std::clamp(position, 0, box.TextLength());
  if (!extend) return box.Select(position, 0);
  // The end that does not move.
  const int anchor =
      lastMovedForward_ || box.Sellength() == 0 ? box.SelStart() : box.SelStart() + box.Sellength();
  lastMovedForward_ = position >= anchor;
  box.Select(std::min(anchor, position), std::abs(position - anchor));
}

void ScaleableTextEngine::MoveLine(bool down, bool extend) {
  ScaleableTextObject& box = *CurrentTextItem;
  const int before = box.SelStart();
  const int length = box.Sellength();
  if (down) {
    // What is selected grows downward from its end.
    if (extend) box.Select(before + length, 0);
    const int from = box.SelStart();
    box.MoveCursorDown();
    if (extend) box.Select(before, length + box.SelStart() - from);
  } else {
    box.MoveCursorUp();
    if (extend) box.Select(box.SelStart(), length + before - box.SelStart());
  }
  lastMovedForward_ = down;
}

void ScaleableTextEngine::MoveCaret(const std::string& key, bool extend, bool words) {
  ScaleableTextObject& box = *CurrentTextItem;
  if (key == "Up" || key == "Down") return MoveLine(key == "Down", extend);
  if (key == "Home" || key == "PageUp") return MoveTo(0, extend);
  if (key == "End" || key == "PageDown") return MoveTo(box.TextLength(), extend);
  const bool backward = (key == "Left") != box.ReadsLeftward(box.SelStart());
  const int start = box.SelStart();
  const int end = start + box.Sellength();
  // The end that moves; without Shift the caret leaves the selection from its start.
  const bool fromEnd = extend && lastMovedForward_ && box.Sellength() > 0;
  int position = fromEnd || (extend && !backward) ? end : start;
  if (extend && backward && !fromEnd) position = start;
  if (words) {
    // Over the blanks, then over the word.
    const auto blank = [&box](int at) { return ScaleableTextObject::IsBlank(box.Part(at, 1)); };
    if (backward) {
      while (position > 0 && blank(position - 1)) --position;
      position = static_cast<int>(box.WordDimensions(position).Left);
    } else {
      while (position < box.TextLength() && blank(position)) ++position;
      const Pair word = box.WordDimensions(position);
      position = static_cast<int>(word.Left + word.Right);
    }
  } else {
    position += backward ? -1 : 1;
  }
  if (!extend) {
    box.Select(position, 0);
  } else if (backward && fromEnd) {
    // Shrinks from its end.
    box.Select(start, position - start);
  } else if (backward) {
    lastMovedForward_ = false;
    const int first = std::max(position, 0);
    box.Select(first, end - first);
  } else {
    lastMovedForward_ = true;
    box.Select(start, position - start);
  }
}

bool ScaleableTextEngine::KeyDown(const std::string& key, bool& changed) {
  if (CurrentTextItem == nullptr) return false;
  std::string name = key;
  const bool words = Take(name, "Ctrl+");
  const bool extend = Take(name, "Shift+");
  constexpr std::array<std::string_view, 8> kMoves{"Left", "Right", "Up",     "Down",
                                                   "Home", "End",   "PageUp", "PageDown"};
  if (name == "Escape") return true;
  if (std::find(kMoves.begin(), kMoves.end(), name) != kMoves.end()) {
    typing_ = false;
    MoveCaret(name, extend, words);
    Touch();
    return true;
  }
  const bool erases = name == "Backspace" || name == "Delete";
  if (name == "Return") name = "\n";
  if (!erases && name != "\n" && !IsTyped(name)) return false;
  // One step of the history for what is typed without a rest; erasing a selection or a box is one.
  const bool goesOn = typing_ && Ticks() - lastTyped_ < kPause &&
                      !(erases && (SelLength() > 0 || CurrentTextItem->TextLength() == 0));
  if (!goesOn && AboutToChange) AboutToChange();
  typing_ = true;
  lastTyped_ = Ticks();
  if (name == "Backspace") {
    Backspace();
  } else if (name == "Delete") {
    ForwardDelete();
  } else {
    SelText(name);
  }
  changed = true;
  Touch();
  return true;
}

std::string ScaleableTextEngine::SelText() const {
  return CurrentTextItem == nullptr ? std::string()
                                    : CurrentTextItem->Part(SelStart(), SelLength());
}

void ScaleableTextEngine::SelText(const std::string& text) {
  if (CurrentTextItem == nullptr) return;
  const int after = CurrentTextItem->Replace(SelStart(), SelLength(), text);
  CurrentTextItem->Select(after, 0);
}

void ScaleableTextEngine::Reset() {
  CurrentTextItem = nullptr;
  item.clear();
}

void ScaleableTextEngine::Copy() const {
  if (WriteClipboard && CutCopyClearAvailable()) WriteClipboard(SelText());
}

void ScaleableTextEngine::Cut() {
  if (!CutCopyClearAvailable()) return;
  Copy();
  if (AboutToChange) AboutToChange();
  Clear();
}

void ScaleableTextEngine::Paste() {
  if (CurrentTextItem == nullptr || !ReadClipboard) return;
  const std::string text = ReadClipboard();
  if (text.empty()) return;
  if (AboutToChange) AboutToChange();
  SelText(text);
}

void ScaleableTextEngine::SelectAll() {
  if (CurrentTextItem != nullptr) CurrentTextItem->Select(0, CurrentTextItem->TextLength());
}

ScaleableTextObject& ScaleableTextEngine::Add() {
  auto box = std::make_unique<ScaleableTextObject>();
  box->Left = 0.3F;
  box->Top = 0.4F;
  box->Width = 0.4F;
  box->Height = 0.2F;
  box->Font("Arial");
  item.push_back(std::move(box));
  CurrentTextItem = item.back().get();
  Touch();
  return *CurrentTextItem;
}

Dictionary ScaleableTextEngine::Settings() const {
  Dictionary settings;
  for (std::size_t i = 0; i < item.size(); ++i) {
    settings.Value(static_cast<std::int32_t>(i), item[i]->Settings());
  }
  return settings;
}

void ScaleableTextEngine::Settings(const Dictionary& settings) {
  Reset();
  for (int i = 0; i < settings.Count(); ++i) {
    // Older data have the numbers as texts.
    const Variant& value = settings.Lookup(i, settings.Value(std::to_string(i)));
    const auto* stored = value.As<Dictionary>();
    if (stored == nullptr) continue;
    auto box = std::make_unique<ScaleableTextObject>();
    box->Settings(*stored);
    item.push_back(std::move(box));
  }
}

}  // namespace brivolant
