// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>
#include <QString>
#include <string>

#include "platform/values/Text.h"

class QComboBox;
class QScrollBar;
class QWidget;

namespace brivolant {

class EditorDisplay;
class EffectStackEditor;
class ifkSegmentView;
class ifkSlider;
class ifkStaticText;
class templateSelector;

/// The widgets of the editor and their places: the photo between title and styles, and the panel of
/// effects beside it.
class EditorPane {
 public:
  static constexpr LocalizedText kOpenAnImage{"MainWindow.kOpenAnImage", "<Open an Image>"};
  static constexpr LocalizedText kFullScreen{"MainWindow.kFullScreen", "Picture Full Screen"};
  static constexpr LocalizedText kForeground{"MainWindow.kForeground", "Top Layer"};
  static constexpr LocalizedText kBackground{"MainWindow.kBackground", "Bottom Layer"};
  static constexpr LocalizedText kBlend{"MainWindow.kBlend", "Blend:"};
  static constexpr LocalizedText kOpacity{"MainWindow.kOpacity", "Opacity:"};
  static constexpr LocalizedText kNameAndScale{"EditorPane.kNameAndScale", "<filename> (<scale>)"};

  explicit EditorPane(QWidget* stage);
  EditorPane(const EditorPane&) = delete;
  EditorPane& operator=(const EditorPane&) = delete;

  /// Where the seat lies on a stage: it reaches one unit beyond on each side, and the panel lies
  /// beyond the right edge while it is not wanted.
  QRect Place(const QSize& stage) const;
  /// Puts the widgets to their places within the seat.
  void Layout();
  /// What the title says: the photo's name, and the scale at which it is shown.
  void TitleName(const QString& name);
  void TitleScale(const std::string& scale);
  bool EffectsShown() const;
  bool StylesShown() const;

  // The seat, and the named controls on it; all of them children of the stage.
  QWidget* EditorSeat = nullptr;
  EditorDisplay* MyDisplay = nullptr;
  EffectStackEditor* AdvancedPanel = nullptr;
  QScrollBar* EffectScrollbar = nullptr;
  ifkSegmentView* AdvancedSectionheader = nullptr;
  QComboBox* BlendMode = nullptr;
  ifkSlider* BlendAlpha = nullptr;
  ifkSegmentView* PreviewTitle = nullptr;
  templateSelector* myStylesBar = nullptr;
  QScrollBar* styleSlider = nullptr;
  /// Under the bar's categories, beside the slider.
  QWidget* dummySlider = nullptr;

 private:
  void BuildPanel();
  void ShowTitle();

  QString name_;
  std::string scale_;
  QWidget* panelSeat_ = nullptr;
  ifkStaticText* blendLabel_ = nullptr;
  ifkStaticText* opacityLabel_ = nullptr;
};

}  // namespace brivolant
