// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "engine/effectModule.h"
#include "platform/values/Text.h"

namespace brivolant {

class BrivolantDocument;
class brivolantProcessorLite;

/// Names of the crop's proportions.
namespace CropEditorTexts {
inline constexpr LocalizedText kCurrentRatio{"CropEditor.kCurrentRatio",
                                             "Current Photo's Ratio <ratio>"};
inline constexpr LocalizedText kCropAspectRatio1x1{"CropEditor.kCropAspectRatio1x1", "1:1 Square"};
inline constexpr LocalizedText kCropAspectRatio3x2{"CropEditor.kCropAspectRatio3x2",
                                                   "3:2 Slightly wider Photos"};
inline constexpr LocalizedText kCropAspectRatio4x3{"CropEditor.kCropAspectRatio4x3",
                                                   "4:3 Photo, Books, DVD, PipCard\xC2\xAE"};
inline constexpr LocalizedText kCropAspectRatio8x10{"CropEditor.kCropAspectRatio8x10",
                                                    "8:10 Portrait Photo"};
inline constexpr LocalizedText kCropAspectRatio16x9{"CropEditor.kCropAspectRatio16x9",
                                                    "16:9 Widescreen, High Definition or HD"};
inline constexpr LocalizedText kCropAspectRatioFreeForm{"CropEditor.kCropAspectRatioFreeForm",
                                                        "Free form"};
}  // namespace CropEditorTexts

/// The selected effect while the user adjusts the crop: draws the rectangle on the preview and
/// takes mouse and keys. It stands in no stack and is never saved; the rectangle belongs to the
/// document, which applies it before any effect.
class CropModule final : public effectModule {
 public:
  enum Handle {
    kNoHandle = 0,
    kLeftTop = 1,
    kLeftBottom = 2,
    kRightTop = 3,
    kRightBottom = 4,
    kInside = 5,
  };

  /// What the crop needs of the window.
  struct Host {
    std::function<void(CropModule&)> ShowEditor;
    std::function<void()> CloseEditor;
    /// Ends or begins the crop.
    std::function<void()> CropMethod;
    std::function<void()> SetDirty;
  };

  explicit CropModule(Host host) : host_(std::move(host)) {}

  /// Takes the document's crop and shows the whole picture.
  void Prepare(brivolantProcessorLite& processor);
  /// Gives the rectangle to the document and ends the crop.
  void Apply();
  /// Ends the crop without a change.
  void Cancel();
  /// Constrains the rectangle to proportions, chosen by their text; an unknown text means those of
  /// the photo.
  void SetCropRatio(const std::string& text);
  /// The proportions of the whole photo.
  Pair PhotoRatio() const;
  /// Shrinks the rectangle to CropRatio and into the picture.
  void ConstrainCrop();
  void ClosingRoutine();
  /// Gives the document back what Prepare took from it; called once, when the crop ends.
  void Ended();

  /// Working rectangle: left and top, width and height, as fractions of the picture as it is shown,
  /// which may be turned and mirrored.
  Pair CropOffset{0.1, 0.1};
  Pair CropSize{0.8, 0.8};
  /// Terms of width and height; (0, 0) is free.
  Pair CropRatio;
  /// The effect that was selected before; not owned.
  effectModule* lem = nullptr;

 protected:
  std::string getID() const override { return {}; }
  std::string getName() const override;
  bool MouseActionDown(float x, float y, bool& render) override;
  void MouseActionDrag(float x, float y) override;
  void MouseActionUp(float x, float y) override;
  bool KeyDown(const std::string& key, bool& render) override;
  void PostProcess(MarkCanvas& canvas, double scale) override;
  void GotFocus() override;
  void LostFocus() override;
  brivolant::MouseCursor GetMouseCursor(int pointerState) override;

 private:
  /// The rectangle of the untouched image as it lies in the shown picture, and the reverse.
  void ToShown();
  void ToImage(Pair& offset, Pair& size) const;
  int HandleAt(double x, double y) const;
  void Drag(int handle, double dx, double dy);

  Host host_;
  BrivolantDocument* cDoc = nullptr;
  brivolantProcessorLite* myProcessor = nullptr;
  int picWidth = 0;
  int picHeight = 0;
  int dragHandle_ = kNoHandle;
  Pair lastMouse;
  bool mouseDown_ = false;
  bool lastCropEnabled = false;
  int lastOrientation = 0;
};

}  // namespace brivolant
