// SPDX-License-Identifier: MIT
#include "kit/ifkFontComboBox.h"

#include <QEventLoop>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QStringListModel>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

namespace brivolant {
namespace {

constexpr int kRowHeight = 24;
constexpr int kRowFont = 15;

/// Rows in the face that they name. A font is looked up when its row is first seen.
class FaceDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
    return {100, kRowHeight};
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    QFont face(index.data().toString());
    // A face of symbols would leave its own name unreadable.
    const auto systems = QFontDatabase::writingSystems(index.data().toString());
    if (systems.isEmpty() || systems.contains(QFontDatabase::Symbol)) face = option->font;
    face.setPixelSize(kRowFont);
    option->font = face;
  }
};

}  // namespace

ifkFontComboBoxMenu& ifkFontComboBoxMenu::Instance() {
  // Widgets end before the application; the list goes with it.
  static QPointer<ifkFontComboBoxMenu> menu;
  if (menu.isNull()) {
    menu = new ifkFontComboBoxMenu;
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, menu, &QObject::deleteLater);
  }
  return *menu;
}

ifkFontComboBoxMenu::ifkFontComboBoxMenu() : list_(new QListView(this)) {
  setWindowFlags(Qt::Popup | Qt::FramelessWindowHint);
  setFrameShape(QFrame::NoFrame);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(list_);
  list_->setModel(new QStringListModel(list_));
  list_->setItemDelegate(new FaceDelegate(list_));
  list_->setUniformItemSizes(true);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->installEventFilter(this);
  connect(list_, &QListView::clicked, this, [this] { Take(); });
}

std::string ifkFontComboBoxMenu::Popup(int left, int top, int width, const std::string& current) {
  list_->hide();
  auto* names = static_cast<QStringListModel*>(list_->model());
  names->setStringList(QFontDatabase::families());
  const QScreen* screen = QGuiApplication::screenAt({left, top});
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const QRect available = screen->availableGeometry();
  // To the bottom of the screen, and never off it.
  constexpr int kLeast = 10 * kRowHeight;
  const int from =
      std::clamp(top, available.top(), std::max(available.bottom() - kLeast, available.top()));
  const int side =
      std::clamp(left, available.left(), std::max(available.right() - width, available.left()));
  setGeometry(side, from, width, available.bottom() + 1 - from);
  rvalue_ = QString::fromStdString(current);
  const auto row = names->stringList().indexOf(rvalue_);
  list_->setCurrentIndex(row < 0 ? QModelIndex() : names->index(static_cast<int>(row)));
  if (row < 0) list_->clearSelection();
  list_->show();
  show();
  list_->setFocus();
  list_->scrollTo(list_->currentIndex(), QAbstractItemView::PositionAtCenter);
  QEventLoop loop;
  loop_ = &loop;
  loop.exec();
  loop_ = nullptr;
  return rvalue_.toStdString();
}

void ifkFontComboBoxMenu::Take() {
  const QModelIndex chosen = list_->currentIndex();
  if (chosen.isValid()) rvalue_ = chosen.data().toString();
  hide();
}

void ifkFontComboBoxMenu::hideEvent(QHideEvent* event) {
  QFrame::hideEvent(event);
  if (loop_ != nullptr) loop_->quit();
}

bool ifkFontComboBoxMenu::eventFilter(QObject* watched, QEvent* event) {
  if (watched != list_ || event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    Take();
    return true;
  }
  if (key == Qt::Key_Escape) {
    hide();
    return true;
  }
  return false;
}

ifkFontComboBox::ifkFontComboBox(QWidget* parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  addItems(QFontDatabase::families());
}

void ifkFontComboBox::showPopup() {
  if (menuOpen_) return;
  menuOpen_ = true;
  const QPoint at = mapToGlobal(QPoint(0, height()));
  setEditText(QString::fromStdString(
      ifkFontComboBoxMenu::Instance().Popup(at.x(), at.y(), width(), currentText().toStdString())));
  menuOpen_ = false;
}

void ifkFontComboBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    return QComboBox::keyPressEvent(event);
  }
  if (currentIndex() >= 0) setEditText(itemText(currentIndex()));
  lineEdit()->selectAll();
}

}  // namespace brivolant
