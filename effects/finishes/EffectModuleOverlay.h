// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"
#include "platform/files/FolderItem.h"

namespace brivolant {

class brivolantProcessorLite;

/// A colour, a gradient or a second picture over the picture. The second picture lies in the
/// document, and is dragged on the image.
class EffectModuleOverlay final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleOverlay.kName", "Overlay"};

  static constexpr LocalizedText kSingleColor{"EffectModuleOverlay.kSingleColor", "Single Color"};
  static constexpr LocalizedText kGradient{"EffectModuleOverlay.kGradient", "2 Color Gradient"};
  static constexpr LocalizedText kPicture{"EffectModuleOverlay.kPicture", "Picture"};
  static constexpr LocalizedText kSecondColor{"EffectModuleOverlay.kSecondColor", "2nd Color:"};
  static constexpr LocalizedText kNoCaption{"EffectModuleOverlay.kNoCaption", " "};
  static constexpr LocalizedText kSelectPicture{"EffectModuleOverlay.kSelectPicture",
                                                "Select Picture"};
  static constexpr LocalizedText kPrompt{"EffectModuleOverlay.kPrompt",
                                         "Select the picture to overlay onto this layer"};
  static constexpr LocalizedText kMissing{
      "EffectModuleOverlay.kMissing",
      "The picture that the effect \"<name>\" lays over the photo cannot be found."};
  static constexpr int kButtonRow = 4;
  static constexpr int kOfPicture = 2;

  MenuParameter overlayType{*this,
                            {"overlayType", 0, 0},
                            EffectModuleSharedConstants::kType,
                            {kSingleColor, kGradient, kPicture}};
  ColorParameter overlayColor{*this,
                              {"overlayColor", kBlack, Color::FromRGB(0xFF8000)},
                              EffectModuleSharedConstants::kColor};
  ColorParameter overlaySecondColor{
      *this, {"overlaySecondColor", kBlack, Color::FromRGB(0x0080FF)}, kSecondColor};
  SliderParameter<float> Alpha{
      *this, {"Alpha", 1, 1, {-10, 10}}, {EffectModuleSharedConstants::kOpacity, {.divide = 100}}};
  ButtonRow Select{*this, kNoCaption, kSelectPicture};
  Parameter<std::string> myPIctureID{*this, {"myPIctureID", "", ""}};
  Parameter<float> PictureOffSetX{*this, {"PictureOffSetX", 0.5F, 0.5F, {-100, 100}}};
  Parameter<float> PictureOffsetY{*this, {"PictureOffsetY", 0.5F, 0.5F, {-100, 100}}};
  SliderParameter<float> PIctureScale{*this,
                                      {"PIctureScale", 1, 1, {0, 100}},
                                      {EffectModuleSharedConstants::kScale, {.divide = 50}, 0.5F}};

  /// Lets the user choose a file; nil if it was cancelled. Set by the window that shows the panel;
  /// without it the button changes nothing.
  std::function<FolderItem()> ChoosePicture;

  /// A picture to lay over the photo: its pixels, and a copy of the file that is nobody else's.
  struct Ready {
    std::string Name;
    FolderItem Copy;
    Picture Pixels;
    std::string Damage;
    /// Why there is none.
    std::string Error;
  };
  /// Reads a file's picture and copies the file to `copy`, unless it lies there; on any thread.
  static Ready MakeReady(const FolderItem& file, std::string name, const FolderItem& copy);
  /// Shows what was made ready, under a name of its own. False if there is nothing to show.
  bool Take(Ready ready);
  /// Takes a file's picture into the document, under a name of its own, and shows it. The picture
  /// before keeps its name, so that undo finds it. False, and the user has been told, if the file
  /// holds no picture.
  bool SetAsMyPicture(const FolderItem& file);
  void BelongsTo(brivolantProcessorLite& processor) override { myProcessor = &processor; }

 protected:
  std::string getID() const override { return "7FFFFFFF-B371-0D5F-E410-E0CB34849A08"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
  void SettingsReset() override;
  bool ButtonPushed(int index) override;
  bool MouseActionDown(float x, float y, bool& render) override;
  void MouseActionDrag(float x, float y) override;
  brivolant::MouseCursor GetMouseCursor(int pointerState) override;

 private:
  void LayPicture(Picture& picture);

  brivolantProcessorLite* myProcessor = nullptr;
  /// The picture of a pasted file, once it was needed.
  Picture overlayPicture;
  FolderItem overlayFile_;
  /// What of it could not be read; empty if it is whole.
  std::string overlayDamage_;
  float lastOffsetX = 0;
  float lastOffsetY = 0;
};

}  // namespace brivolant
