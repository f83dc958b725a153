// SPDX-License-Identifier: MIT
#include "app/edit/EditorPane.h"

#include <QComboBox>
#include <QScrollBar>

#include "app/commands/Menus.h"
#include "app/edit/Seat.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "engine/pictures/BlendEffect.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "kit/AnimationCore.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"
#include "kit/ifkStaticText.h"
#include "kit/templateSelector.h"

namespace brivolant {
namespace {

constexpr int kPanelWidth = 251;
constexpr int kScrollBar = 12;
constexpr int kMargin = 8;
constexpr int kSegments = 28;

}  // namespace

EditorPane::EditorPane(QWidget* stage) {
  auto* seat = new Seat(stage);
  EditorSeat = seat;
  seat->Resized = [this] { Layout(); };
  PreviewTitle = new ifkSegmentView(EditorSeat);
  PreviewTitle->Mode = ifkSegmentView::kEachToggles;
  SegmentViewPiece& styles =
      PreviewTitle->AddSegment(Shown(OneClickWonderStorage::kOneClickNameMultiple),
                               SvgIcon(QStringLiteral("Styles")), "styles");
  styles.ToolTip = Shown(OneClickWonderStorage::kOneClickNameMultiple);
  SegmentViewPiece& name = PreviewTitle->AddSegment(Shown(kOpenAnImage), {}, "document");
  name.Unclickable = true;
  name.Bold = true;
  name.Width = 0;
  SegmentViewPiece& full =
      PreviewTitle->AddSegment({}, SvgIcon(QStringLiteral("FullScreen")), "FullScreen");
  full.ToolTip = Shown(kFullScreen);
  SegmentViewPiece& advanced = PreviewTitle->AddSegment(
      Shown(Menus::kViewAdvancedOptions), SvgIcon(QStringLiteral("Advanced")), "advanced");
  advanced.ToolTip = Shown(Menus::kViewAdvancedOptions);
  MyDisplay = new EditorDisplay(EditorSeat);
  myStylesBar = new templateSelector(EditorSeat);
  myStylesBar->setAccessibleName(Shown(OneClickWonderStorage::kOneClickNameMultiple));
  dummySlider = new QWidget(EditorSeat);
  styleSlider = new QScrollBar(Qt::Horizontal, EditorSeat);
  BuildPanel();
}

void EditorPane::BuildPanel() {
  auto* seat = new Seat(EditorSeat);
  panelSeat_ = seat;
  AdvancedSectionheader = new ifkSegmentView(panelSeat_);
  AdvancedSectionheader->AddSegment(Shown(kForeground), {}, 0).Selected = true;
  AdvancedSectionheader->AddSegment(Shown(kBackground), {}, 1);
  const auto label = [this](const LocalizedText& text) {
    auto* shown = new ifkStaticText(panelSeat_, Shown(text));
    shown->Alignment = Qt::AlignRight | Qt::AlignVCenter;
    return shown;
  };
  blendLabel_ = label(kBlend);
  opacityLabel_ = label(kOpacity);
  BlendMode = new QComboBox(panelSeat_);
  BlendMode->setAccessibleName(Shown(kBlend));
  PopupMenu modes;
  PictureExtensions::PopulatePopupMenuWithAvailableBlendModes(modes);
  for (int i = 0; i < modes.RowCount(); ++i) BlendMode->addItem(ToQString(modes.At(i).Text));
  BlendMode->setMaxVisibleItems(modes.RowCount());
  BlendAlpha = new ifkSlider(panelSeat_);
  BlendAlpha->setAccessibleName(Shown(kOpacity));
  AdvancedPanel = new EffectStackEditor(panelSeat_);
  EffectScrollbar = new QScrollBar(Qt::Vertical, panelSeat_);
  QObject::connect(EffectScrollbar, &QScrollBar::valueChanged, EditorSeat,
                   [this](int value) { AdvancedPanel->yOffset(value); });
}

void EditorPane::TitleName(const QString& name) {
  name_ = name;
  PreviewTitle->SegmentByTag("document")->icon = SvgIcon(QStringLiteral("BrivolantPhotosDocument"));
  ShowTitle();
}

void EditorPane::TitleScale(const std::string& scale) {
  if (scale == scale_) return;
  scale_ = scale;
  if (!name_.isEmpty()) ShowTitle();
}

void EditorPane::ShowTitle() {
  QString caption = name_;
  if (!scale_.empty()) {
    caption = ToQString(WithPlaceholders(
        kNameAndScale.Text(), {{"<filename>", name_.toStdString()}, {"<scale>", scale_}}));
  }
  PreviewTitle->SegmentByTag("document")->Caption =
      caption.replace(QLatin1Char('&'), QStringLiteral("&&"));
  PreviewTitle->update();
}

bool EditorPane::StylesShown() const {
  return PreviewTitle->SegmentByTag("styles")->Selected;
}

bool EditorPane::EffectsShown() const {
  return PreviewTitle->SegmentByTag("advanced")->Selected;
}

QRect EditorPane::Place(const QSize& stage) const {
  const int beyond = EffectsShown() ? 2 : 2 + kPanelWidth;
  return {-1, -1, stage.width() + beyond, stage.height() + 2};
}

void EditorPane::Layout() {
  // The seat reaches one unit beyond the window on each side.
  const int left = EditorSeat->width() - 2 - kPanelWidth;
  const int height = EditorSeat->height() - 2;
  PreviewTitle->setGeometry(1 + kMargin, 1 + kMargin, left - 2 * kMargin, kSegments);
  const int top = 2 * kMargin + kSegments;
  const bool styles = StylesShown();
  for (QWidget* part :
       {static_cast<QWidget*>(myStylesBar), static_cast<QWidget*>(styleSlider), dummySlider}) {
    part->setVisible(styles);
  }
  const int bar = styles ? templateSelector::kHeight + kScrollBar : 0;
  MyDisplay->setGeometry(1, 1 + top, left, height - top - bar);
  const int under = 1 + height - bar;
  const int column = templateSelector::kColumn;
  if (!AnimationCore::IsAnimated(*myStylesBar)) {
    myStylesBar->setGeometry(1, under, left, templateSelector::kHeight);
  }
  dummySlider->setGeometry(1, under + templateSelector::kHeight, column, kScrollBar);
  styleSlider->setGeometry(1 + column, under + templateSelector::kHeight, left - column,
                           kScrollBar);
  panelSeat_->setGeometry(1 + left, 1, kPanelWidth, height);
  const int inner = kPanelWidth - 2 * kMargin;
  const int labels = 64;
  AdvancedSectionheader->setGeometry(kMargin, kMargin, inner, kSegments);
  const int first = 2 * kMargin + kSegments;
  blendLabel_->setGeometry(kMargin, first, labels, 26);
  BlendMode->setGeometry(2 * kMargin + labels, first, inner - labels - kMargin, 26);
  const int second = first + 26 + kMargin;
  opacityLabel_->setGeometry(kMargin, second, labels, 24);
  BlendAlpha->setGeometry(2 * kMargin + labels, second, inner - labels - kMargin, 24);
  const int list = second + 24 + kMargin;
  AdvancedPanel->setGeometry(0, list, kPanelWidth - kScrollBar, height - list);
  EffectScrollbar->setGeometry(kPanelWidth - kScrollBar, list, kScrollBar, height - list);
}

}  // namespace brivolant
