// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/EffectModuleControl.h"
#include "engine/MarkCanvas.h"
#include "platform/pictures/Picture.h"
#include "platform/pictures/ToneTable.h"
#include "platform/values/Pair.h"
#include "platform/values/Variant.h"

namespace brivolant {

class ControlRow;
class EffectPanel;
class ParameterBase;
class SeedParameter;

/// Pointers over the image; kNone leaves the display's own.
enum class MouseCursor {
  kNone,
  kStandard,
  kOpenHand,
  kClosedHand,
  kIBeam,
  kFallingArrow,  ///< From the top left to the bottom right.
  kRisingArrow,   ///< From the bottom left to the top right.
};

/// A module in which text is edited on the image.
class TextEditing {
 public:
  virtual ~TextEditing() = default;
  /// Typed keys go into a text now.
  virtual bool Editing() const = 0;
  virtual void Copy() = 0;
  virtual void Cut() = 0;
  virtual void Paste() = 0;
  virtual void SelectAll() = 0;
};

/// States of the pointer for which a cursor is asked.
enum PointerState { kPointerEntered = 1, kPointerLeft = 2, kPointerDown = 3, kPointerUp = 5 };

/// One adjustment of a photo. A module owns its parameters, declares their control rows, applies
/// itself to a picture, and saves and restores its parameters.
///
/// Concrete modules declare members of the kinds in ModuleParameter.h, which register themselves
/// here: the default hooks for settings, reset, rows and values follow from them, so that most
/// modules only say their identifier, name and effect.
///
/// The scale given to Apply is the factor by which the picture differs from a reference of 640
/// pixels; a module multiplies lengths in pixels by it, so that preview and export agree.
class effectModule {
 public:
  effectModule() = default;
  virtual ~effectModule() = default;
  effectModule(const effectModule&) = delete;
  effectModule& operator=(const effectModule&) = delete;

  /// The fixed identifier, 8-4-4-4-12 upper-case hexadecimal digits.
  std::string ID() const { return getID(); }
  /// The display name.
  std::string Name() const { return getName(); }
  /// All parameters, and "Enabled" if the module is.
  Dictionary Settings() const;
  /// Restores parameters; a missing key restores its default. Raises EnabledStateChanged.
  void Settings(const Dictionary& settings);
  /// The same without the event: for a copy that only renders, to which nothing is added that the
  /// module it stands for does not have.
  void Restore(const Dictionary& settings);

  bool Enabled() const { return mEnabled; }
  void Enabled(bool enabled);

  /// Applies the effect if enabled. The picture may come back with another size.
  void Apply(Picture& picture, double scale);
  void ResetCache() { CacheReset(); }
  void ResetSettings() { SettingsReset(); }
  /// Draws marks on a copy of the preview, also while disabled.
  void firePostProcess(Picture& picture, double scale) {
    MarkCanvas canvas(picture);
    PostProcess(canvas, scale);
  }
  /// The same on an enlarged part; lengths keep the scale of the preview.
  void firePostProcess(MarkCanvas& canvas, double scale) { PostProcess(canvas, scale); }
  Pair ChangeSourceDimensions(const Picture& picture) { return AdjustSourceDimensions(picture); }

  /// Declares the control rows. Call it once after creation; defaults are set by ResetSettings.
  void Constructor() { DeclareMyControls(); }
  void AddControl(EffectModuleControl control) { item.push_back(std::move(control)); }
  int ControlCount() const { return static_cast<int>(item.size()); }
  EffectModuleControl& Control(int index) { return item.at(static_cast<std::size_t>(index)); }
  /// The panel's value of a row: a slider's is a position from 0 to 100, which the panel truncates.
  Variant ControlValue(int index) const { return getControlValue(index); }
  void ControlValue(int index, const Variant& value) { SetControlValue(index, value); }
  /// True if the caller must refresh the preview.
  bool PushButton(int index) { return !ButtonPushed(index); }
  /// Asks the module to show its own menu, else shows the row's, and stores the choice.
  void fireShowMenu(int index, int x, int y, const MenuPresenter& present);

  // Positions are fractions of the displayed image. `render` says whether the preview must be
  // computed anew; the result whether the event was taken.
  bool MouseDown(float x, float y, bool& render) { return MouseActionDown(x, y, render); }
  void MouseDrag(float x, float y) { MouseActionDrag(x, y); }
  void MouseUp(float x, float y) { MouseActionUp(x, y); }
  bool keyPressed(const std::string& key, bool& render) { return KeyDown(key, render); }
  void fireGotFocus() { GotFocus(); }
  void fireLostFocus() { LostFocus(); }
  void fireMouseEnter() { MouseEnter(); }
  void fireMouseExit() { MouseExit(); }
  void fireMouseMove(float x, float y) { MouseMove(x, y); }
  bool fireMouseWheel(int x, int y, int deltaX, int deltaY) {
    return MouseWheel(x, y, deltaX, deltaY);
  }
  brivolant::MouseCursor MouseCursor(int pointerState) { return GetMouseCursor(pointerState); }
  /// Tells the panel that the module is about to change itself, so that it can be undone.
  void AboutToChange();

  /// A module whose effect is a tone curve gives it here instead of painting: consecutive curves
  /// are composed before the pixels are touched. Null for all other modules.
  virtual class ToneModule* AsToneModule() { return nullptr; }
  /// Null for modules without text.
  virtual TextEditing* AsTextEditing() { return nullptr; }
  /// Tells the module the processor whose stack it stands in, once, after its creation.
  virtual void BelongsTo(class brivolantProcessorLite&) {}
  /// True if chance plays in the effect. Its dice follow from a number among the settings, so that
  /// what was stored falls the same in every render.
  bool PlaysDice() const { return seed_ != nullptr; }
  /// Lets the dice fall as another number says; nothing for a module without dice.
  void Reseed(std::uint32_t seed);
  /// True if the module may leave the layer smaller than the background, or elsewhere over it.
  virtual bool MayPlaceLayer() const { return false; }
  /// Its parameters, for listings.
  const std::vector<ParameterBase*>& Parameters() const { return parameters_; }
  /// False while a module is listed by name but has no effect of its own yet.
  virtual bool Complete() const { return true; }

  /// The panel while this module is selected; not owned.
  EffectPanel* Parent = nullptr;

 protected:
  virtual std::string getID() const = 0;
  virtual std::string getName() const = 0;
  virtual void ApplyEffect(Picture&, double) {}
  virtual void saveSettings(Dictionary& settings) const;
  virtual void loadSettings(const Dictionary& settings);
  virtual void SettingsReset();
  virtual void DeclareMyControls();
  virtual Variant getControlValue(int index) const;
  virtual void SetControlValue(int index, const Variant& value);
  virtual void CacheReset() {}
  virtual void PostProcess(MarkCanvas&, double) {}
  virtual bool ButtonPushed(int) { return false; }
  virtual bool MouseActionDown(float, float, bool&) { return false; }
  virtual void MouseActionDrag(float, float) {}
  virtual void MouseActionUp(float, float) {}
  virtual bool KeyDown(const std::string&, bool&) { return false; }
  /// Width and height that the module would produce.
  virtual Pair AdjustSourceDimensions(const Picture&) { return {}; }
  virtual void EnabledStateChanged() {}
  virtual void GotFocus() {}
  virtual void LostFocus() {}
  virtual bool ShowMenu(int, int, int) { return false; }
  virtual brivolant::MouseCursor GetMouseCursor(int) { return brivolant::MouseCursor::kNone; }
  virtual void MouseEnter() {}
  virtual void MouseExit() {}
  virtual void MouseMove(float, float) {}
  virtual bool MouseWheel(int, int, int, int) { return false; }

  std::vector<EffectModuleControl> item;

 private:
  friend class ControlRow;
  friend class ParameterBase;
  friend class SeedParameter;

  bool mEnabled = false;
  std::vector<ParameterBase*> parameters_;
  std::vector<ControlRow*> rows_;
  SeedParameter* seed_ = nullptr;
};

/// A module that is a tone curve: the same for every pixel.
class ToneModule : public effectModule {
 public:
  /// The curves for this picture, or nothing if they change nothing.
  virtual std::optional<ToneTables> Tables(const Picture& picture) = 0;
  /// True if the curves depend on the picture, which must then be up to date.
  virtual bool LooksAtPicture() const { return false; }
  ToneModule* AsToneModule() final { return this; }

 protected:
  void ApplyEffect(Picture& picture, double scale) final;
};

/// A heading in a stack: listed, counted and saved like any module, and without effect.
class EffectModuleDivider final : public effectModule {
 public:
  EffectModuleDivider(std::string caption, std::string icon, std::string id)
      : Caption(std::move(caption)), Icon(std::move(icon)), tID(std::move(id)) {}

  std::string Caption;
  /// File name of the icon among the resources.
  std::string Icon;
  std::string tID;

 protected:
  std::string getID() const override { return tID; }
  std::string getName() const override { return Caption; }
};

}  // namespace brivolant
