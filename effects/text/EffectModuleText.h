// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "effects/text/ScaleableTextEngine.h"
#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

class brivolantProcessorLite;
class PreviewDisplay;

/// Boxes of text on the picture, typed and moved on the picture itself.
class EffectModuleText final : public effectModule, public TextEditing {
 public:
  static constexpr LocalizedText kName{"EffectModuleText.kName", "Text"};

  static constexpr LocalizedText kTypeFace{"EffectModuleText.kTypeFace", "Font:"};
  static constexpr LocalizedText kCaption{"EffectModuleText.kCaption", "Caption:"};
  static constexpr LocalizedText kAddText{"EffectModuleText.kAddText", "Add Text Field"};
  enum Row { kFontRow, kColorRow, kCaptionRow, kAddRow };

  EffectModuleText();

  ScaleableTextEngine myTextEngine;
  bool iHaveFocus = false;
  /// Lets the user choose a font by its look, at a place of the screen; gives the current one if
  /// that was given up. Set by the window that shows the panel.
  std::function<std::string(int x, int y, int width, const std::string& current)> ChooseFont;

  void BelongsTo(brivolantProcessorLite& processor) override { myProcessor = &processor; }
  TextEditing* AsTextEditing() override { return this; }

  // TextEditing.
  bool Editing() const override;
  void Copy() override { myTextEngine.Copy(); }
  void Cut() override { myTextEngine.Cut(); }
  void Paste() override { myTextEngine.Paste(); }
  void SelectAll() override { myTextEngine.SelectAll(); }

 protected:
  std::string getID() const override { return "150B71E5-A262-009C-42A9-CD07B87C0B76"; }
  std::string getName() const override { return kName.Text(); }
  void DeclareMyControls() override;
  Variant getControlValue(int index) const override;
  void SetControlValue(int index, const Variant& value) override;
  bool ShowMenu(int index, int x, int y) override;
  bool ButtonPushed(int index) override;
  void ApplyEffect(Picture& picture, double scale) override;
  void PostProcess(MarkCanvas& canvas, double scale) override;
  bool KeyDown(const std::string& key, bool& render) override;
  bool MouseActionDown(float x, float y, bool& render) override;
  void MouseActionDrag(float x, float y) override { myTextEngine.MouseDrag(x, y); }
  void MouseActionUp(float x, float y) override { myTextEngine.MouseUp(x, y); }
  void MouseMove(float x, float y) override;
  brivolant::MouseCursor GetMouseCursor(int pointerState) override;
  void GotFocus() override;
  void LostFocus() override { iHaveFocus = false; }
  void EnabledStateChanged() override;

 private:
  /// All boxes under one key.
  class Boxes final : public ParameterBase {
   public:
    explicit Boxes(EffectModuleText& owner) : ParameterBase(owner), owner_(owner) {}
    std::string Key() const override { return "myTextEngine"; }
    std::string TypeName() const override { return "texts"; }
    Variant Stored() const override { return owner_.myTextEngine.Settings(); }
    void Store(const Variant& value) override;
    /// Nil: a style without the key leaves the boxes as they are.
    Variant DefaultOnRead() const override { return {}; }
    Variant ResetValue() const override { return Dictionary(); }

   private:
    EffectModuleText& owner_;
  };

  void AddNewText(bool tell);
  PreviewDisplay* Display() const;
  void ShowCursor(brivolant::MouseCursor cursor) const;

  Boxes boxes_{*this};
  brivolantProcessorLite* myProcessor = nullptr;
};

}  // namespace brivolant
