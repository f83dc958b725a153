// SPDX-License-Identifier: MIT
#include "effects/text/EffectModuleText.h"

#include "engine/EditorInterfaces.h"
#include "engine/brivolantProcessorLite.h"

namespace brivolant {
namespace {

brivolant::MouseCursor CursorOf(int hit, bool pressed) {
  using enum brivolant::MouseCursor;
  switch (hit) {
    case kHitText:
      return kIBeam;
    case kHitTopLeft:
    case kHitBottomRight:
      return kFallingArrow;
    case kHitTopRight:
    case kHitBottomLeft:
      return kRisingArrow;
    case kHitFrame:
      return pressed ? kClosedHand : kOpenHand;
    default:
      return kStandard;
  }
}

}  // namespace

void EffectModuleText::Boxes::Store(const Variant& value) {
  if (const auto* boxes = value.As<Dictionary>()) return owner_.myTextEngine.Settings(*boxes);
  if (!value.Is<std::string>()) return;
  // A plain text is one box.
  owner_.myTextEngine.Reset();
  owner_.myTextEngine.Add().Text(value.ToText());
  owner_.myTextEngine.CurrentTextItem = nullptr;
}

EffectModuleText::EffectModuleText() {
  myTextEngine.AboutToChange = [this] { AboutToChange(); };
}

PreviewDisplay* EffectModuleText::Display() const {
  return myProcessor == nullptr ? nullptr : myProcessor->myDisplay;
}

void EffectModuleText::ShowCursor(brivolant::MouseCursor cursor) const {
  if (PreviewDisplay* display = Display()) display->ShowCursor(cursor);
}

void EffectModuleText::DeclareMyControls() {
  AddControl({kTypeFace.Text(), kControlMenu, {}, 0});
  AddControl({EffectModuleSharedConstants::kColor.Text(), kControlColorWell, {}, 0});
  MenuItem captions;
  for (const LocalizedText& text : ScaleableTextObject::kCaptions) {
    captions.Children.emplace_back().Text = text.Text();
  }
  AddControl({kCaption.Text(), kControlMenu, std::move(captions), 0});
  AddControl({std::string(), kControlButton, {}, 0});
}

Variant EffectModuleText::getControlValue(int index) const {
  if (index == kAddRow) return kAddText.Text();
  const ScaleableTextObject* box = myTextEngine.CurrentTextItem;
  if (box == nullptr) return index == kCaptionRow ? Variant(-1) : Variant();
  if (index == kFontRow) return box->Font();
  if (index == kColorRow) return box->TextColor;
  return index == kCaptionRow ? Variant(int{box->Caption}) : Variant();
}

void EffectModuleText::SetControlValue(int index, const Variant& value) {
  ScaleableTextObject* box = myTextEngine.CurrentTextItem;
  if (box == nullptr) return;
  if (index == kFontRow && value.Is<std::string>()) box->Font(value.ToText());
  if (index == kColorRow) box->TextColor = value.ToColor();
  if (index == kCaptionRow && value.ToInt() >= 0) box->Caption = value.ToInt();
}

bool EffectModuleText::ShowMenu(int index, int x, int y) {
  constexpr int kBelow = 14;
  constexpr int kMenuWidth = 140;
  if (index != kFontRow) return false;
  ScaleableTextObject* box = myTextEngine.CurrentTextItem;
  if (box != nullptr && ChooseFont) box->Font(ChooseFont(x, y + kBelow, kMenuWidth, box->Font()));
  return true;
}

bool EffectModuleText::ButtonPushed(int index) {
  if (index == kAddRow) AddNewText(true);
  return false;
}

void EffectModuleText::AddNewText(bool tell) {
  // A second empty box is not made; typing goes into the one there is.
  const ScaleableTextObject* current = myTextEngine.CurrentTextItem;
  if (current == nullptr || current->TextLength() > 0) {
    if (tell) AboutToChange();
    myTextEngine.Add();
  }
  if (PreviewDisplay* display = Display(); display != nullptr && Parent != nullptr) {
    display->Update(false);
    display->TakeFocus();
  }
}

void EffectModuleText::ApplyEffect(Picture& picture, double) {
  myTextEngine.Paint(picture, false);
}

void EffectModuleText::PostProcess(MarkCanvas& canvas, double) {
  if (!Enabled()) return;
  if (const PreviewDisplay* display = Display()) myTextEngine.Marks = display->PixelRatio();
  myTextEngine.SourceSize = {1.0 * canvas.Width(), 1.0 * canvas.Height()};
  if (myTextEngine.item.empty()) return;
  myTextEngine.Paint(canvas.Painter(), myTextEngine.SourceSize, true);
}

bool EffectModuleText::Editing() const {
  return Enabled() && myTextEngine.CurrentTextItem != nullptr;
}

bool EffectModuleText::KeyDown(const std::string& key, bool& render) {
  return Enabled() && myTextEngine.KeyDown(key, render);
}

bool EffectModuleText::MouseActionDown(float x, float y, bool& render) {
  if (!Enabled()) return false;
  // The display records what a gesture changed once it is over: a click that only places the caret
  // is no step of the history.
  const bool taken = myTextEngine.MouseDown(x, y);
  ShowCursor(CursorOf(myTextEngine.DragHandle(), true));
  // The picture follows a box that is moved; a selection needs no new picture.
  render = myTextEngine.DragHandle() > kHitText;
  if (Parent != nullptr) Parent->Invalidate();
  return taken;
}

void EffectModuleText::MouseMove(float x, float y) {
  if (Enabled()) ShowCursor(CursorOf(myTextEngine.HitAny(x, y), false));
}

brivolant::MouseCursor EffectModuleText::GetMouseCursor(int pointerState) {
  if (!Enabled() || pointerState != kPointerDown) return brivolant::MouseCursor::kNone;
  return CursorOf(myTextEngine.DragHandle(), true);
}

void EffectModuleText::GotFocus() {
  iHaveFocus = true;
  // Without a box there is nothing to type into, and the keys stay with the panel.
  PreviewDisplay* display = Display();
  if (display != nullptr && Editing()) display->TakeFocus();
}

void EffectModuleText::EnabledStateChanged() {
  if (!Enabled() || myTextEngine.CurrentTextItem != nullptr) return;
  if (myTextEngine.item.empty()) return AddNewText(false);
  myTextEngine.CurrentTextItem = myTextEngine.item.back().get();
}

}  // namespace brivolant
