// SPDX-License-Identifier: MIT
#include "kit/ColorPanelBridge.h"

#include <QColorDialog>

#include "kit/InterfaceKitSupport.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

constexpr LocalizedText kShowColors{"ShowColorsMenuItem.kShowColors", "Show Colors"};
constexpr LocalizedText kHideColors{"ShowColorsMenuItem.kHideColors", "Hide Colors"};
constexpr LocalizedText kTitle{"ColorPanel.kTitle", "Colors"};
constexpr RGBAColor kFirstColor{1, 0.5F, 0, 0.75F};

}  // namespace

WidgetColorPanel::WidgetColorPanel(QWidget* window) : window_(window) {}
WidgetColorPanel::~WidgetColorPanel() {
  dialog_.reset();
}

QColorDialog& WidgetColorPanel::Dialog() {
  if (!dialog_) {
    dialog_ = std::make_unique<QColorDialog>(window_);
    // The window takes it along when it goes first.
    QObject::connect(dialog_.get(), &QObject::destroyed, [this] { (void)dialog_.release(); });
    dialog_->setWindowFlag(Qt::Tool);
    dialog_->setWindowTitle(Shown(kTitle));
    // A dialog of the desktop's own would block the window and tell only at its end.
    dialog_->setOptions(QColorDialog::NoButtons | QColorDialog::DontUseNativeDialog);
    QObject::connect(dialog_.get(), &QColorDialog::currentColorChanged, [this](const QColor& c) {
      color_ = {c.redF(), c.greenF(), c.blueF(), c.alphaF()};
      if (!setting_ && ColorChanged) ColorChanged(color_);
    });
  }
  return *dialog_;
}

void WidgetColorPanel::Show() {
  Dialog().show();
  Dialog().raise();
}

void WidgetColorPanel::Close() {
  if (dialog_) dialog_->hide();
}

bool WidgetColorPanel::Visible() const {
  return dialog_ && dialog_->isVisible();
}

void WidgetColorPanel::SetColor(const RGBAColor& color) {
  color_ = color;
  setting_ = true;
  Dialog().setCurrentColor(QColor::fromRgbF(color.Red, color.Green, color.Blue, color.Alpha));
  setting_ = false;
}

RGBAColor WidgetColorPanel::SelectedRGBAColor() const {
  return color_;
}

void WidgetColorPanel::showsAlpha(bool shows) {
  showsAlpha_ = shows;
  Dialog().setOption(QColorDialog::ShowAlphaChannel, shows);
}

MyColorPanelHelper::MyColorPanelHelper(ColorPanel& panel) : panel_(panel) {
  panel_.ColorChanged = [this](const RGBAColor& color) {
    if (ColorChanged) ColorChanged(color);
  };
}

MyColorPanelHelper::~MyColorPanelHelper() {
  panel_.ColorChanged = nullptr;
}

void MyColorPanelHelper::ShowPanel(const RGBAColor& color) {
  if (panel_.showsAlpha()) panel_.showsAlpha(false);
  if (!panel_.Visible()) panel_.Show();
  panel_.SetColor(color);
}

namespace ShowColorsMenuItem {

QString Text(const ColorPanel& panel) {
  return Shown(panel.Visible() ? kHideColors : kShowColors);
}

void Action(ColorPanel& panel) {
  if (panel.Visible()) return panel.Close();
  panel.Show();
  panel.SetColor(kFirstColor);
}

}  // namespace ShowColorsMenuItem
}  // namespace brivolant
