// SPDX-License-Identifier: MIT
#include "kit/ifkSegmentView.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <algorithm>

#include "kit/InterfaceKitSupport.h"
#include "kit/ifkColors.h"

namespace brivolant {
namespace {

constexpr int kHeight = 28;
constexpr int kIcon = 16;
constexpr int kPadding = 24;

}  // namespace

ifkSegmentView::ifkSegmentView(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
}

SegmentViewPiece& ifkSegmentView::AddSegment(const QString& caption, const QIcon& icon,
                                             const Variant& tag) {
  auto piece = std::make_unique<SegmentViewPiece>();
  piece->Caption = caption;
  piece->icon = icon;
  piece->Tag = tag;
  pieces_.push_back(std::move(piece));
  updateGeometry();
  update();
  return *pieces_.back();
}

SegmentViewPiece* ifkSegmentView::SelectedSegment() {
  const auto found = std::find_if(pieces_.begin(), pieces_.end(),
                                  [](const auto& piece) { return piece->Selected; });
  return found == pieces_.end() ? nullptr : found->get();
}

SegmentViewPiece* ifkSegmentView::SegmentByTag(const Variant& tag) {
  const auto found = std::find_if(pieces_.begin(), pieces_.end(),
                                  [&](const auto& piece) { return piece->Tag == tag; });
  return found == pieces_.end() ? nullptr : found->get();
}

int ifkSegmentView::NaturalWidth(const SegmentViewPiece& piece) const {
  if (!piece.Visible) return 0;
  if (piece.Width >= 0) return piece.Width;
  QFont font = this->font();
  font.setBold(piece.Bold);
  const int text = QFontMetrics(font).horizontalAdvance(piece.Caption);
  return text + (piece.icon.isNull() ? 0 : kIcon + (piece.Caption.isEmpty() ? 0 : 4)) + kPadding;
}

QRect ifkSegmentView::RectOf(int index) const {
  int fixed = 0;
  int flexible = 0;
  for (const auto& piece : pieces_) {
    fixed += NaturalWidth(*piece);
    if (piece->Visible && piece->Width == 0) ++flexible;
  }
  const int spare = std::max(width() - fixed, 0);
  int x = flexible > 0 ? 0 : spare / 2;
  for (int i = 0; i <= Count(); ++i) {
    const SegmentViewPiece& piece = *pieces_[static_cast<std::size_t>(i)];
    int w = NaturalWidth(piece);
    if (piece.Visible && piece.Width == 0) w = spare / flexible;
    if (i == index) return {x, 0, w, height()};
    x += w;
  }
  return {};
}

int ifkSegmentView::IndexAt(int x) const {
  for (int i = 0; i <= Count(); ++i) {
    const QRect rect = RectOf(i);
    if (x >= rect.left() && x < rect.left() + rect.width()) return i;
  }
  return -1;
}

SegmentViewPiece* ifkSegmentView::selectSeg(int x) {
  const int index = IndexAt(x);
  if (index < 0) return nullptr;
  SegmentViewPiece& piece = Segment(index);
  return piece.Enabled && !piece.Unclickable ? &piece : nullptr;
}

void ifkSegmentView::Click(SegmentViewPiece& piece) {
  piece.Pressed = false;
  if (Mode == kEachToggles) {
    piece.Selected = !piece.Selected;
  } else {
    for (const auto& other : pieces_) other->Selected = false;
    piece.Selected = true;
  }
  update();
  if (Action) Action(piece);
}

QSize ifkSegmentView::sizeHint() const {
  int total = 0;
  for (const auto& piece : pieces_) total += NaturalWidth(*piece);
  return {total, kHeight};
}

QSize ifkSegmentView::minimumSizeHint() const {
  return {0, kHeight};
}

void ifkSegmentView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QRect whole;
  for (int i = 0; i <= Count(); ++i) whole = whole.united(RectOf(i));
  const QRectF frame = QRectF(whole).adjusted(1, 1, -1, -1);
  QPainterPath outline;
  outline.addRoundedRect(frame, 6, 6);
  painter.fillPath(outline, palette().color(QPalette::Button));
  painter.save();
  painter.setClipPath(outline);
  for (int i = 0; i <= Count(); ++i) {
    const SegmentViewPiece& piece = Segment(i);
    if (!piece.Visible) continue;
    const QRect rect = RectOf(i);
    const bool usable = piece.Enabled && isEnabled();
    QColor text = usable ? ifkColors::TextActive() : ifkColors::TextDisabled();
    if (piece.Selected) {
      painter.fillRect(rect, usable ? ifkColors::Focus() : ifkColors::FrameActive());
      if (usable) text = ifkColors::TextSelected();
    } else if (usable && !piece.Unclickable && (piece.Pressed || i == mouseOverSeg)) {
      painter.fillRect(rect, piece.Pressed ? ifkColors::FrameActive() : ifkColors::Hover());
    }
    QFont font = this->font();
    font.setBold(piece.Bold);
    painter.setFont(font);
    painter.setPen(text);
    // Selected pieces show their icon in the colour of selected text.
    if (piece.Selected && usable && !piece.icon.isNull()) {
      const QPixmap pixmap =
          piece.icon.pixmap(QSize(kIcon, kIcon), devicePixelRatioF(), QIcon::Selected);
      InterfaceKitSupport::DrawCaptionAndIcon(painter, rect, piece.Caption, QIcon(pixmap), kIcon, 1,
                                              0, true);
    } else {
      InterfaceKitSupport::DrawCaptionAndIcon(painter, rect, piece.Caption, piece.icon, kIcon, 1, 0,
                                              usable);
    }
    // Colour parts enough beside the selected one.
    if (i < Count() && !piece.Selected && !Segment(i + 1).Selected) {
      painter.fillRect(QRect(rect.right(), rect.top() + 6, 1, rect.height() - 12),
                       ifkColors::FrameActive());
    }
    if (hasFocus() && i == mValue) {
      painter.setPen(QPen(ifkColors::FocusHighlight(), 2));
      painter.setBrush(Qt::NoBrush);
      painter.drawRoundedRect(QRectF(rect).adjusted(3, 3, -3, -3), 4, 4);
    }
  }
  painter.restore();
  painter.setPen(ifkColors::FrameActive());
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(outline);
}

void ifkSegmentView::MovePressed(SegmentViewPiece* piece) {
  if (previouslySelected != nullptr) previouslySelected->Pressed = false;
  previouslySelected = piece;
  if (piece != nullptr) piece->Pressed = true;
  update();
}

void ifkSegmentView::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (MouseDown && MouseDown(at.x(), at.y())) return;
  if (event->button() == Qt::LeftButton) MovePressed(selectSeg(at.x()));
}

void ifkSegmentView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (event->buttons().testFlag(Qt::LeftButton)) {
    SegmentViewPiece* piece = rect().contains(at) ? selectSeg(at.x()) : nullptr;
    if (piece != previouslySelected) MovePressed(piece);
    return;
  }
  const int over = IndexAt(at.x());
  if (over == mouseOverSeg) return;
  mouseOverSeg = over;
  setToolTip(over < 0 ? QString() : Segment(over).ToolTip);
  update();
}

void ifkSegmentView::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  SegmentViewPiece* piece = rect().contains(at) ? selectSeg(at.x()) : nullptr;
  const bool pressed = previouslySelected != nullptr;
  MovePressed(nullptr);
  if (piece != nullptr && pressed) Click(*piece);
}

void ifkSegmentView::keyPressEvent(QKeyEvent* event) {
  const auto go = [this](int by) {
    for (int i = mValue + by; i >= 0 && i <= Count(); i += by) {
      const SegmentViewPiece& piece = Segment(i);
      if (!piece.Visible || !piece.Enabled || piece.Unclickable) continue;
      mValue = i;
      break;
    }
    update();
  };
  switch (event->key()) {
    case Qt::Key_Left:
      return go(-1);
    case Qt::Key_Right:
      return go(1);
    case Qt::Key_Space:
      if (mValue <= Count() && Segment(mValue).Enabled && !Segment(mValue).Unclickable) {
        Click(Segment(mValue));
      }
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

void ifkSegmentView::leaveEvent(QEvent*) {
  mouseOverSeg = -1;
  update();
}

bool ifkSegmentView::event(QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  return QWidget::event(event);
}

}  // namespace brivolant
