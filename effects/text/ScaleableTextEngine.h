// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "effects/text/ScaleableTextObject.h"
#include "platform/pictures/Picture.h"

class QPainter;

namespace brivolant {

/// The boxes of text on one picture: the current one, its selection, and what mouse and keys do to
/// it.
class ScaleableTextEngine {
 public:
  /// Later boxes lie on top for hits; the current one is always drawn on top.
  std::vector<std::unique_ptr<ScaleableTextObject>> item;
  /// The box that is edited; null for none.
  ScaleableTextObject* CurrentTextItem = nullptr;
  /// Sixtieths of a second; a clock of the system unless a test brings its own.
  std::function<std::int32_t()> Ticks;
  /// The clipboard's text; without them nothing is copied or pasted.
  std::function<std::string()> ReadClipboard;
  std::function<void(const std::string&)> WriteClipboard;
  /// Raised before text or box change by a key.
  std::function<void()> AboutToChange;
  /// Size in pixels of what was last painted.
  Pair SourceSize;
  /// Size of a unit of the frame, in pixels of what was last painted.
  double Marks = 1;

  ScaleableTextEngine();

  /// What a press at (x, y), fractions of the picture, hit: it chooses box and caret. True if it
  /// was taken.
  bool MouseDown(float x, float y);
  void MouseDrag(float x, float y);
  void MouseUp(float x, float y);
  /// A TextHit on the current box, 0 without one.
  int HitCurrent(float x, float y) const;
  /// A TextHit on any box.
  int HitAny(float x, float y) const;
  int DragHandle() const { return dragHandle_; }
  void Paint(Picture& picture, bool editing);
  /// On a picture of `size` pixels, of which the painter may reach a part only.
  void Paint(QPainter& painter, const Pair& size, bool editing);
  /// `key` is a text to type or the name of a key, with "Shift+" or "Ctrl+" before it. False if
  /// there is no box to take it, or if it means nothing. `changed` is set if the text or the boxes
  /// are others now.
  bool KeyDown(const std::string& key, bool& changed);

  /// The selected characters.
  std::string SelText() const;
  void SelText(const std::string& text);
  int SelStart() const { return CurrentTextItem != nullptr ? CurrentTextItem->SelStart() : 0; }
  int SelLength() const { return CurrentTextItem != nullptr ? CurrentTextItem->Sellength() : 0; }
  void Clear() { SelText(std::string()); }
  void Reset();
  void Copy() const;
  void Cut();
  void Paste();
  bool CutCopyClearAvailable() const { return SelLength() >= 1; }
  void SelectAll();

  /// A new box for typing in, the current one from now on.
  ScaleableTextObject& Add();

  Dictionary Settings() const;
  /// No box is current afterwards.
  void Settings(const Dictionary& settings);

 private:
  void Click(float x, float y);
  void MoveCaret(const std::string& key, bool extend, bool words);
  void MoveLine(bool down, bool extend);
  void MoveTo(int position, bool extend);
  void Backspace();
  void ForwardDelete();
  void RemoveCurrent();
  void Touch();

  std::int32_t cursorLastBlink_ = 0;
  std::int32_t lastMouseUp_ = 0;
  std::int32_t lastTyped_ = 0;
  bool typing_ = false;
  bool lastMovedForward_ = false;
  int lastSelStart_ = 0;
  int clickCounter_ = 0;
  int dragHandle_ = kHitNothing;
  Pair lastMousePos_;
};

}  // namespace brivolant
