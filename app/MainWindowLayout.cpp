// SPDX-License-Identifier: MIT
#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QScrollBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <functional>

#include "app/App.h"
#include "app/MainWindow.h"
#include "app/Menus.h"
#include "app/ToolButtons.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "engine/pictures/BlendEffect.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "formats/BrivolantDocument.h"
#include "kit/AnimationCore.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkColors.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"
#include "kit/ifkStaticText.h"
#include "kit/templateSelector.h"

namespace brivolant {
namespace {

constexpr int kPanelWidth = 251;
constexpr int kBarHeight = 21;
constexpr int kScrollBar = 12;
constexpr int kMargin = 8;
constexpr int kSegments = 28;
constexpr double kSlide = 0.25;
/// Milliseconds after which a slide has ended, whatever the timer did.
constexpr int kSlideEnds = 500;

/// A widget that tells of its size and is filled with the window's colour.
class Seat final : public QWidget {
 public:
  explicit Seat(QWidget* parent) : QWidget(parent) { setAutoFillBackground(true); }
  std::function<void()> Resized;

 protected:
  void resizeEvent(QResizeEvent*) override {
    if (Resized) Resized();
  }
};

}  // namespace

void MainWindow::BuildControls() {
  rbToolBar = new QToolBar(this);
  rbToolBar->setMovable(false);
  rbToolBar->setFloatable(false);
  rbToolBar->setFocusPolicy(Qt::TabFocus);
  rbToolBar->toggleViewAction()->setEnabled(false);
  addToolBar(rbToolBar);
  ToolBar(rbToolBar);

  auto* content = new QWidget(this);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* stage = new Seat(content);
  stage_ = stage;
  infotext = new ifkStaticText(content);
  infotext->setFixedHeight(kBarHeight);
  infotext->Alignment = Qt::AlignCenter;
  QFont small = infotext->font();
  small.setPointSizeF(small.pointSizeF() * 0.9);
  infotext->setFont(small);
  column->addWidget(stage, 1);
  column->addWidget(infotext);
  setCentralWidget(content);

  BuildBrowser();
  BuildEditor();
  BuildPanel();
  stage->Resized = [this] { PlaceSeats(); };
  settleTimer_.setSingleShot(true);
  settleTimer_.setInterval(kSlideEnds);
  connect(&settleTimer_, &QTimer::timeout, this, [this] { Settle(); });
  EditorSeat->hide();
}

void MainWindow::BuildEditor() {
  auto* seat = new Seat(stage_);
  EditorSeat = seat;
  seat->Resized = [this] { LayoutEditor(); };
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
}

void MainWindow::BuildPanel() {
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
  connect(EffectScrollbar, &QScrollBar::valueChanged, this,
          [this](int value) { AdvancedPanel->yOffset(value); });
}

void MainWindow::LayoutEditor() {
  // The seat reaches one unit beyond the window on each side.
  const int left = EditorSeat->width() - 2 - kPanelWidth;
  const int height = EditorSeat->height() - 2;
  PreviewTitle->setGeometry(1 + kMargin, 1 + kMargin, left - 2 * kMargin, kSegments);
  const int top = 2 * kMargin + kSegments;
  const bool styles = PreviewTitle->SegmentByTag("styles")->Selected;
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

QRect MainWindow::EditorPlace() const {
  SegmentViewPiece* advanced = PreviewTitle->SegmentByTag("advanced");
  const int beyond = advanced->Selected ? 2 : 2 + kPanelWidth;
  return {-1, -1, stage_->width() + beyond, stage_->height() + 2};
}

void MainWindow::PlaceSeats() {
  if (!AnimationCore::IsAnimated(*EditorSeat)) EditorSeat->setGeometry(EditorPlace());
  if (!AnimationCore::IsAnimated(*BrowserSeat)) BrowserSeat->setGeometry(stage_->rect());
}

void MainWindow::Settle() {
  if (AnimationCore::IsAnimated(*EditorSeat) || AnimationCore::IsAnimated(*BrowserSeat)) {
    settleTimer_.start();
    return;
  }
  EditorSeat->setVisible(DisplayPane == kEditorPane);
  BrowserSeat->setVisible(DisplayPane == kBrowserPane);
  PlaceSeats();
}

void MainWindow::SwapDisplay(int mode) {
  const int old = DisplayPane;
  DisplayPane = mode;
  buildToolbar(mode);
  infotext->Text(mode == kEditorPane ? ToQString(getSimpleImageInfo()) : QString());
  if (mode != kEditorPane && myColorPanel->PanelVisible()) myColorPanel->HidePanel();
  // What was saved meanwhile shows its new picture.
  if (mode == kBrowserPane && mode != old) imageBrowser->ReloadCurrentView();
  if (mode == kBrowserPane) ShowBrowserInfo();
  UpdateCommands();
  QWidget& next = mode == kEditorPane ? *EditorSeat : *BrowserSeat;
  if (mode == old) {
    Settle();
    (mode == kEditorPane ? static_cast<QWidget*>(MyDisplay) : imageBrowser)->setFocus();
    return;
  }
  const QRect place = mode == kEditorPane ? EditorPlace() : stage_->rect();
  const int width = stage_->width();
  next.setGeometry(place.translated(mode == kEditorPane ? width + 2 : -width, 0));
  next.show();
  next.raise();
  // The editor comes from the right and goes there again; the browser lives to its left.
  using AnimationCore::Animate;
  using AnimationCore::kKeep;
  Animate(next, {place.x(), place.y(), place.width(), place.height()}, kSlide);
  if (mode == kEditorPane) {
    Animate(*BrowserSeat, kSlide, -width, kKeep, kKeep, kKeep);
    MyDisplay->setFocus();
  } else {
    Animate(*EditorSeat, kSlide, width + 2, kKeep, kKeep, kKeep);
    imageBrowser->setFocus();
  }
  if (AnimationCore::Period() == 0) {
    Settle();
  } else {
    settleTimer_.start();
  }
}

void MainWindow::ShowHideEffects(bool visible) {
  app_.Preferences().Assign("MainWindow.AdvancedPanel.Visible", visible);
  PreviewTitle->SegmentByTag("advanced")->Selected = visible;
  PreviewTitle->update();
  const QRect place = EditorPlace();
  if (DisplayPane != kEditorPane || AnimationCore::Period() == 0) return PlaceSeats();
  AnimationCore::Animate(*EditorSeat, {place.x(), place.y(), place.width(), place.height()},
                         kSlide);
}

std::string MainWindow::getSimpleImageInfo() {
  if (!document_) return {};
  // What the picture lacks is worth more than its size.
  if (!myProcessor->Warnings().empty()) return myProcessor->Warnings().front();
  int w = document_->Width();
  int h = document_->Height();
  if (w <= 0 || h <= 0) return {};
  if (document_->OriginalDamage) return document_->OriginalDamage.Warning;
  if (document_->Rotation == 1 || document_->Rotation == 3) std::swap(w, h);
  return WithPlaceholders(kImageInfo.Text(),
                          {{"<width>", std::to_string(w)},
                           {"<height>", std::to_string(h)},
                           {"<megapixel>", SharedPictureEffects::Megapixel(w, h)},
                           {"<ratio>", SharedPictureEffects::AspectRatio(w, h)}});
}

void MainWindow::buildToolbar(int mode) {
  rbToolBar->clear();
  const auto space = [this](bool flexible) {
    auto* filler = new QWidget(rbToolBar);
    filler->setSizePolicy(flexible ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                          QSizePolicy::Preferred);
    if (!flexible) filler->setFixedWidth(2 * kMargin);
    rbToolBar->addWidget(filler);
  };
  const auto add = [this](const ToolButtons::ToolItem& item,
                          std::initializer_list<const char*> menu = {}) {
    QString caption = ToQString(item.Caption->Text());
    caption.remove(QLatin1Char('&'));
    QAction* action = rbToolBar->addAction(SvgIcon(QString::fromLatin1(item.Icon)), caption);
    action->setObjectName(QString::fromLatin1(item.Identifier));
    action->setEnabled(item.Enabled);
    action->setToolTip(item.HelpTag == nullptr ? caption : Shown(*item.HelpTag));
    connect(action, &QAction::triggered, this,
            [this, identifier = std::string(item.Identifier)] { ToolAction(identifier); });
    auto* button = qobject_cast<QToolButton*>(rbToolBar->widgetForAction(action));
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(caption);
    if (menu.size() == 0) return;
    auto* popup = new QMenu(button);
    for (const char* name : menu) {
      if (name == nullptr) {
        popup->addSeparator();
      } else {
        popup->addAction(&menu_->Item(name));
      }
    }
    connect(popup, &QMenu::aboutToShow, this, [this] { EnableMenuItems(); });
    button->setMenu(popup);
    button->setPopupMode(QToolButton::InstantPopup);
  };
  using namespace ToolButtons;
  if (mode == kEditorPane) {
    add(Browser());
    space(true);
    add(Save());
    add(SaveCopy());
    add(Copy(), {"EditCopy", "EditCopyStyle", nullptr, "EditPasteStyle"});
    add(Rewind());
    add(Undo());
    space(false);
    add(BeforeAfter());
    itemViaIdentifier(*rbToolBar, BeforeAfter().Identifier)->setCheckable(true);
    add(Rotate(), {"RotateAndFlipRotate90", "RotateAndFlipRotate180", "RotateAndFlipRotate270",
                   nullptr, "EditChangeOrientationTo", nullptr, "RotateAndFlipFlipHorizontally",
                   "RotateAndFlipFlipVertially"});
    add(Crop());
    itemViaIdentifier(*rbToolBar, Crop().Identifier)->setCheckable(true);
    space(true);
    add(Quillmere(), {"HelpappNameWebPage"});
    return;
  }
  add(Quillmere(), {"HelpappNameWebPage"});
  space(true);
  add(ToolButtons::Open());
  add(ToolButtons::QuickLook());
  add(FavoritesAdd());
  space(true);
  if (document_) {
    add(Editor());
    space(false);
  }
}

}  // namespace brivolant
