// SPDX-License-Identifier: MIT
#pragma once

namespace brivolant {

class effectModule;

/// What modules and the processor need of the effect panel.
class EffectStackEditor {
 public:
  virtual ~EffectStackEditor() = default;
  /// A module is about to change itself.
  virtual void AboutToChange(effectModule& module) = 0;
  /// The index of the selected row; -1 for none.
  virtual void selectedEffect(int index) = 0;
  /// Reads the stack anew.
  virtual void Update() = 0;
  /// Draws anew.
  virtual void Invalidate() = 0;
};

/// What the processor needs of the editor's display.
class EditorDisplay {
 public:
  virtual ~EditorDisplay() = default;
  /// Pixels.
  virtual int Width() const = 0;
  virtual int Height() const = 0;
  /// Shows the processor's preview; `full` when everything was rendered anew.
  virtual void Update(bool full) = 0;
};

}  // namespace brivolant
