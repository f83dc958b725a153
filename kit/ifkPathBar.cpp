// SPDX-License-Identifier: MIT
#include "kit/ifkPathBar.h"

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

constexpr int kHeight = 32;
constexpr int kNavWidth = 28;
constexpr int kNavEnd = 8 + 2 * kNavWidth + 8;
constexpr int kIcon = 16;
constexpr int kPadding = 8;
constexpr int kSeparator = 14;
constexpr int kWidest = 200;

/// An arrow head around a point.
void DrawArrow(QPainter& painter, const QPointF& at, double reach, bool left) {
  const double side = left ? -1 : 1;
  QPainterPath path;
  path.moveTo(at.x() - side * reach / 2, at.y() - reach);
  path.lineTo(at.x() + side * reach / 2, at.y());
  path.lineTo(at.x() - side * reach / 2, at.y() + reach);
  painter.drawPath(path);
}

}  // namespace

ifkPathBar::ifkPathBar(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setFocusPolicy(Qt::TabFocus);
  setFixedHeight(kHeight);
}

QSize ifkPathBar::sizeHint() const {
  return {400, kHeight};
}

void ifkPathBar::AddItem(const QString& caption, const QIcon& icon, const Variant& tag) {
  SegmentViewPiece piece;
  piece.Caption = caption;
  piece.icon = icon;
  piece.Tag = tag;
  AddItem(piece, true);
}

void ifkPathBar::AddItem(const SegmentViewPiece& piece, bool update) {
  item_.push_back(piece);
  if (update) Update();
}

void ifkPathBar::Insert(int index, const SegmentViewPiece& piece, bool update) {
  item_.insert(item_.begin() + index, piece);
  if (update) Update();
}

void ifkPathBar::Update() {
  focused_ = std::max(Count(), 0);
  update();
}

void ifkPathBar::FullPath(const Path& path, bool skipHistory) {
  const bool same = std::equal(path.begin(), path.end(), item_.begin(), item_.end(),
                               [](const SegmentViewPiece& a, const SegmentViewPiece& b) {
                                 return a.Caption == b.Caption && a.Tag == b.Tag;
                               });
  if (same) return;
  if (!skipHistory) AddHistory();
  item_ = path;
  Update();
}

void ifkPathBar::AddHistory() {
  if (item_.empty()) return;
  history_.push_back(item_);
  future_.clear();
}

void ifkPathBar::Take(std::vector<Path>& from, std::vector<Path>& to) {
  if (from.empty()) return;
  const Path path = std::move(from.back());
  from.pop_back();
  to.push_back(item_);
  FullPath(path, true);
  if (NavButtonClicked) NavButtonClicked();
  update();
}

void ifkPathBar::Goback() {
  Take(history_, future_);
}

void ifkPathBar::GoForward() {
  Take(future_, history_);
}

int ifkPathBar::WidthOf(const SegmentViewPiece& piece) const {
  const int text = fontMetrics().horizontalAdvance(piece.Caption);
  return std::min(text + 2 * kPadding + (piece.icon.isNull() ? 0 : kIcon + 4), kWidest);
}

int ifkPathBar::FirstShown() const {
  int room = width() - kNavEnd;
  int first = Count();
  for (int i = Count(); i >= 0; --i) {
    room -= WidthOf(item_[static_cast<std::size_t>(i)]) + kSeparator;
    if (room < 0 && i < Count()) break;
    first = i;
  }
  return std::max(first, 0);
}

QRect ifkPathBar::ButtonRect(int id) const {
  if (id == kBackButton) return {8, 4, kNavWidth, kHeight - 8};
  if (id == kForwardButton) return {8 + kNavWidth, 4, kNavWidth, kHeight - 8};
  int left = kNavEnd;
  for (int i = FirstShown(); i <= Count(); ++i) {
    const int width = WidthOf(item_[static_cast<std::size_t>(i)]);
    if (i == id) return {left, 4, std::min(width, this->width() - left), kHeight - 8};
    left += width + kSeparator;
  }
  return {};
}

int ifkPathBar::ButtonAtXY(int x, int y) const {
  const QPoint at(x, y);
  if (CanGoBack() && ButtonRect(kBackButton).contains(at)) return kBackButton;
  if (CanGoForward() && ButtonRect(kForwardButton).contains(at)) return kForwardButton;
  for (int i = FirstShown(); i <= Count(); ++i) {
    if (ButtonRect(i).contains(at)) return i;
  }
  return kNoButton;
}

void ifkPathBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), ifkColors::FillColor());
  const auto background = [&](int id) {
    if (id != hover_ && id != selectedID) return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(id == selectedID ? ifkColors::SecondaryHighlightColor() : ifkColors::Hover());
    painter.drawRoundedRect(QRectF(ButtonRect(id)), 5, 5);
  };
  for (const int id : {kBackButton, kForwardButton}) {
    const bool enabled = id == kBackButton ? CanGoBack() : CanGoForward();
    if (enabled) background(id);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(enabled ? ifkColors::TextActive() : ifkColors::TextDisabled(), 1.6,
                        Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    DrawArrow(painter, QRectF(ButtonRect(id)).center(), 5, id == kBackButton);
  }
  for (int i = FirstShown(); i <= Count(); ++i) {
    const SegmentViewPiece& piece = item_[static_cast<std::size_t>(i)];
    const QRect rect = ButtonRect(i);
    background(i);
    int left = rect.left() + kPadding;
    if (!piece.icon.isNull()) {
      piece.icon.paint(&painter, left, rect.center().y() - kIcon / 2 + 1, kIcon, kIcon);
      left += kIcon + 4;
    }
    painter.setPen(i == Count() ? ifkColors::TextActive() : ifkColors::TextDisabled());
    const QRect text(left, rect.top(), rect.right() - kPadding + 2 - left, rect.height());
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(piece.Caption, Qt::ElideMiddle, text.width()));
    if (i < Count()) {
      painter.setBrush(Qt::NoBrush);
      painter.setPen(QPen(ifkColors::TextDisabled(), 1.2));
      DrawArrow(painter, QPointF(rect.right() + kSeparator / 2.0 + 1, rect.center().y() + 1), 3.5,
                false);
    }
    if (hasFocus() && i == focused_) {
      painter.setBrush(Qt::NoBrush);
      painter.setPen(QPen(ifkColors::FocusHighlight(), 2));
      painter.drawRoundedRect(QRectF(rect).adjusted(1, 1, -1, -1), 5, 5);
    }
  }
}

void ifkPathBar::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPoint at = event->position().toPoint();
  selectedID = ButtonAtXY(at.x(), at.y());
  update();
}

void ifkPathBar::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  const int over = ButtonAtXY(at.x(), at.y());
  if (event->buttons().testFlag(Qt::LeftButton)) selectedID = over;
  if (over == hover_) return;
  hover_ = over;
  update();
}

void ifkPathBar::mouseReleaseEvent(QMouseEvent*) {
  const int id = std::exchange(selectedID, kNoButton);
  update();
  if (id == kBackButton) {
    Goback();
  } else if (id == kForwardButton) {
    GoForward();
  } else if (id >= 0 && id <= Count() && Action) {
    const SegmentViewPiece piece = Item(id);
    Action(piece);
  }
}

void ifkPathBar::leaveEvent(QEvent*) {
  hover_ = selectedID = kNoButton;
  update();
}

void ifkPathBar::keyPressEvent(QKeyEvent* event) {
  const bool alt = event->modifiers().testFlag(Qt::AltModifier);
  if (event->key() == Qt::Key_Left && alt) return Goback();
  if (event->key() == Qt::Key_Right && alt) return GoForward();
  if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
    focused_ =
        std::clamp(focused_ + (event->key() == Qt::Key_Left ? -1 : 1), 0, std::max(Count(), 0));
    return update();
  }
  if ((event->key() == Qt::Key_Space || event->key() == Qt::Key_Return) && focused_ <= Count() &&
      Action) {
    const SegmentViewPiece piece = Item(focused_);
    return Action(piece);
  }
  QWidget::keyPressEvent(event);
}

bool ifkPathBar::event(QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const int id = ButtonAtXY(help->pos().x(), help->pos().y());
    QString text;
    if (id == kBackButton) text = Shown(kBack);
    if (id == kForwardButton) text = Shown(kForward);
    if (id >= 0) text = Item(id).Caption;
    QToolTip::showText(help->globalPos(), text, this);
    return true;
  }
  return QWidget::event(event);
}

AccessibleItem ifkPathBar::AccessibleAt(int index) const {
  AccessibleItem item;
  item.Role = QAccessible::Button;
  item.Selectable = false;
  const int id = index == 0 ? kBackButton : index == 1 ? kForwardButton : index - 2;
  item.Place = ButtonRect(id);
  item.Name = index == 0 ? Shown(kBack) : index == 1 ? Shown(kForward) : Item(id).Caption;
  return item;
}

void ifkPathBar::PressAccessible(int index) {
  if (index == 0) return Goback();
  if (index == 1) return GoForward();
  const SegmentViewPiece piece = Item(index - 2);
  if (Action) Action(piece);
}

}  // namespace brivolant
