// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include "platform/services/Services.h"

class QAction;
class QColorDialog;

namespace brivolant {

/// The toolkit's colour dialog as a panel that stays open beside the window.
class WidgetColorPanel final : public ColorPanel {
 public:
  explicit WidgetColorPanel(QWidget* window = nullptr);
  ~WidgetColorPanel() override;
  void Window(QWidget* window) { window_ = window; }
  void Show() override;
  void Close() override;
  bool Visible() const override;
  void SetColor(const RGBAColor& color) override;
  RGBAColor SelectedRGBAColor() const override;
  bool showsAlpha() const override { return showsAlpha_; }
  void showsAlpha(bool shows) override;

 private:
  QColorDialog& Dialog();
  QPointer<QWidget> window_;
  std::unique_ptr<QColorDialog> dialog_;
  RGBAColor color_;
  bool showsAlpha_ = false;
  /// True while the program itself sets the colour, which is no change by the user.
  bool setting_ = false;
};

/// Binds the panel to one colour well at a time.
class MyColorPanelHelper {
 public:
  explicit MyColorPanelHelper(ColorPanel& panel);
  ~MyColorPanelHelper();
  MyColorPanelHelper(const MyColorPanelHelper&) = delete;
  MyColorPanelHelper& operator=(const MyColorPanelHelper&) = delete;

  /// Index of the active well; -1 for none.
  int currentControl = -1;

  /// Shows the panel with a colour, without its opacity.
  void ShowPanel(const RGBAColor& color);
  bool PanelVisible() const { return panel_.Visible(); }
  void HidePanel() { panel_.Close(); }

  std::function<void(const RGBAColor&)> ColorChanged;

 private:
  ColorPanel& panel_;
};

/// The menu item that shows or hides the panel.
namespace ShowColorsMenuItem {
/// Its text for the state of the panel.
QString Text(const ColorPanel& panel);
void Action(ColorPanel& panel);
}  // namespace ShowColorsMenuItem

}  // namespace brivolant
