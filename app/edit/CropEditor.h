// SPDX-License-Identifier: MIT
#pragma once

#include "kit/ifkWindow.h"
#include "platform/values/Text.h"

class QComboBox;

namespace brivolant {

class CropModule;
class ifkButton;

/// The palette that floats under the photo while the crop is adjusted.
class CropEditor final : public ifkWindow {
 public:
  static constexpr LocalizedText kWindowTitle{"CropEditor.kWindowTitle", "Cropping Tools"};
  static constexpr LocalizedText kApply{"CropEditor.kApply", "Apply"};

  explicit CropEditor(QWidget* parent);
  /// Shows the module's proportions under a control.
  void Show(CropModule& module, const QWidget& control);
  void Forget() { myModule = nullptr; }

  QComboBox& AspectRatio() { return *aspectRatio_; }
  ifkButton& ApplyButton() { return *apply_; }
  ifkButton& CancelButton() { return *cancel_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void FillRatios();
  int IndexOfRatio() const;

  CropModule* myModule = nullptr;
  bool updating = false;
  QComboBox* aspectRatio_;
  ifkButton* apply_;
  ifkButton* cancel_;
};

}  // namespace brivolant
