// SPDX-License-Identifier: MIT
#include "kit/ifkSearchField.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <algorithm>

#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"

namespace brivolant {

ifkSearchField::ifkSearchField(QWidget* parent)
    : QWidget(parent), edit_(new QLineEdit(this)), search_(new QAction(this)) {
  setFocusProxy(edit_);
  edit_->installEventFilter(this);
  edit_->addAction(search_, QLineEdit::LeadingPosition);
  cancel_ = new QAction(this);
  cancel_->setVisible(false);
  edit_->addAction(cancel_, QLineEdit::TrailingPosition);
  search_->setToolTip(Shown(kWhere));
  cancel_->setToolTip(Shown(kCancelSearch));
  DescriptiveText(Shown(kDefaultSearchCaption));
  DrawIcons();
  connect(search_, &QAction::triggered, this, [this] { PopUp(); });
  connect(cancel_, &QAction::triggered, this, [this] { Cancel(); });
  connect(edit_, &QLineEdit::textChanged, this, [this] { EditChanged(); });
}

std::string ifkSearchField::Text() const {
  return edit_->text().toStdString();
}

void ifkSearchField::Text(const std::string& text) {
  edit_->setText(ToQString(text));
}

void ifkSearchField::DescriptiveText(const QString& text) {
  edit_->setPlaceholderText(text);
  edit_->setAccessibleName(text);
}

void ifkSearchField::SearchIcon(bool visible) {
  search_->setVisible(visible);
}

bool ifkSearchField::CancelButton() const {
  return cancel_->isVisible();
}

std::vector<std::string> ifkSearchField::RecentSearches() const {
  std::vector<std::string> searches = recent_;
  searches.push_back(Text());
  return searches;
}

void ifkSearchField::EditChanged() {
  cancel_->setVisible(!edit_->text().isEmpty());
  if (updating_) return;
  didTextChange_ = true;
  if (useLiveSearch && TextChanged) TextChanged();
}

void ifkSearchField::Enter() {
  const bool changed = std::exchange(didTextChange_, false);
  if ((!useLiveSearch || changed) && TextChanged) TextChanged();
  Remember();
  if (Entered) Entered();
}

void ifkSearchField::Remember() {
  const std::string text = Text();
  if (text.empty() || std::find(recent_.begin(), recent_.end(), text) != recent_.end()) return;
  recent_.push_back(text);
  if (recent_.size() > kMostRecent) recent_.erase(recent_.begin());
}

void ifkSearchField::Cancel() {
  Remember();
  if (CancelClicked && CancelClicked()) return;
  updating_ = true;
  edit_->clear();
  updating_ = false;
  didTextChange_ = false;
  if (TextChanged) TextChanged();
}

QMenu* ifkSearchField::MakeMenu() {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (MenuItem& item : Menu) {
    QAction* action = menu->addAction(ToQString(item.Text));
    action->setCheckable(true);
    action->setChecked(item.Checked);
    action->setData(ToQString(item.Tag));
    connect(action, &QAction::triggered, this, [this, &item] {
      if (MenuAction) MenuAction(item);
    });
  }
  if (recent_.empty()) return menu;
  menu->addSeparator();
  menu->addAction(Shown(kRecent))->setEnabled(false);
  for (auto text = recent_.rbegin(); text != recent_.rend(); ++text) {
    QString shown = ToQString(*text);
    shown.replace(QLatin1Char('&'), QStringLiteral("&&"));
    menu->addAction(shown, this, [this, again = *text] {
      Text(again);
      edit_->setFocus();
      if (!useLiveSearch) Enter();
    });
  }
  menu->addAction(Shown(kClearRecent), this, [this] { recent_.clear(); });
  return menu;
}

void ifkSearchField::PopUp() {
  if (Menu.empty() && recent_.empty()) return;
  MakeMenu()->popup(mapToGlobal(QPoint(0, height())));
}

bool ifkSearchField::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) didTextChange_ = false;
  if (event->type() == QEvent::FocusOut) Remember();
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
        Enter();
        return true;
      case Qt::Key_Down:
        PopUp();
        return true;
      case Qt::Key_Escape:
        if (edit_->text().isEmpty()) break;
        edit_->clear();
        return true;
      default:
        break;
    }
  }
  return QWidget::eventFilter(watched, event);
}

QSize ifkSearchField::sizeHint() const {
  return edit_->sizeHint();
}

void ifkSearchField::resizeEvent(QResizeEvent*) {
  const int height = std::min(edit_->sizeHint().height(), this->height());
  edit_->setGeometry(0, (this->height() - height) / 2, width(), height);
}

void ifkSearchField::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) DrawIcons();
  QWidget::changeEvent(event);
}

void ifkSearchField::DrawIcons() {
  search_->setIcon(SvgIcon(QStringLiteral("SearchMenu")));
  cancel_->setIcon(SvgIcon(QStringLiteral("SearchCancel")));
}

}  // namespace brivolant
