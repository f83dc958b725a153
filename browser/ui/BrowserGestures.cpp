// SPDX-License-Identifier: MIT
// What the browser does at clicks, keys, drags and drops in either view.
#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QUrl>
#include <algorithm>

#include "browser/ui/BrowserViews.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "platform/files/FileAddress.h"

namespace brivolant {
namespace {

/// The dragged picture with the number of files in its corner.
QPixmap DragPicture(const QPixmap& picture, int count) {
  if (count < 2) return picture;
  const double ratio = picture.devicePixelRatio();
  const QString text = QString::number(count);
  QFont font;
  font.setBold(true);
  const QFontMetrics metrics(font);
  const int height = metrics.height() + 6;
  const int width = std::max(metrics.horizontalAdvance(text) + 12, height);
  const QSize size = (QSizeF(picture.size()) / ratio).toSize();
  QPixmap badged(QSize(size.width() + width / 2, size.height() + height / 2) * ratio);
  badged.setDevicePixelRatio(ratio);
  badged.fill(Qt::transparent);
  QPainter painter(&badged);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.drawPixmap(0, height / 2, picture);
  const QRectF badge(size.width() - width / 2.0, 0, width, height);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 90));
  painter.drawRoundedRect(badge.translated(0, 1), height / 2.0, height / 2.0);
  painter.setBrush(QColor(0xD9, 0x2D, 0x20));
  painter.drawRoundedRect(badge, height / 2.0, height / 2.0);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(badge, Qt::AlignCenter, text);
  return badged;
}

}  // namespace

// Names.

bool multiViewFileBrowser::CanRename() const {
  if (rows_.SelectedCount() != 1) return false;
  const auto item = rows_.Item(rows_.SelectedRows().front());
  return item && std::holds_alternative<FolderItem>(item->item);
}

void multiViewFileBrowser::BeginRename() {
  if (!CanRename() || !RenameItem) return;
  EndRename(false);
  const int row = rows_.SelectedRows().front();
  ScrollTo(row);
  renamed_ = rows_.Item(row);
  const bool list = intMode == kListView;
  QWidget* view = list ? list_->viewport() : icons_->viewport();
  rename_ = new QLineEdit(ToQString(renamed_->Name), view);
  rename_->installEventFilter(this);
  const QRect place = list ? list_->NameRect(row) : icons_->LabelRect(row);
  const int height = rename_->sizeHint().height();
  rename_->setGeometry(place.left(), place.center().y() - height / 2, place.width(), height);
  if (!list) rename_->setAlignment(Qt::AlignHCenter);
  rename_->show();
  rename_->setFocus();
  // The extension stays unless one means to change it.
  const bool folder = renamed_->Facts && renamed_->Facts->Is == FileFacts::kFolder;
  const auto dot = rename_->text().lastIndexOf(QLatin1Char('.'));
  if (dot > 0 && !folder) {
    rename_->setSelection(0, static_cast<int>(dot));
  } else {
    rename_->selectAll();
  }
}

void multiViewFileBrowser::EndRename(bool take) {
  if (rename_ == nullptr) return;
  QLineEdit* field = std::exchange(rename_, nullptr);
  const auto item = std::exchange(renamed_, nullptr);
  const QString typed = field->text();
  const bool focused = field->hasFocus();
  field->hide();
  field->deleteLater();
  if (focused) setFocus();
  // A name that was not touched stays, with the blanks at its end.
  if (!take || !RenameItem || typed == ToQString(item->Name)) return;
  RenameItem(*item, typed.trimmed().toStdString());
}

bool multiViewFileBrowser::eventFilter(QObject* watched, QEvent* event) {
  if (watched != rename_ || rename_ == nullptr) return QWidget::eventFilter(watched, event);
  if (event->type() == QEvent::FocusOut) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    // Another window may have come up unasked: the keys come back to the field.
    if (reason != Qt::ActiveWindowFocusReason) EndRename(reason != Qt::PopupFocusReason);
  } else if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) {
      EndRename(key != Qt::Key_Escape);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void multiViewFileBrowser::PressRow(int row, Qt::KeyboardModifiers modifiers) {
  if (modifiers.testFlag(Qt::ControlModifier) && AllowMultiSelect) {
    if (row < 0) return;
    rows_.Select(row, !rows_.Selected(row));
    rows_.MoveTo(row);
    anchor_ = row;
    return RaiseSelectionChanged();
  }
  if (modifiers.testFlag(Qt::ShiftModifier) && row >= 0 && rows_.SelectedCount() > 0 &&
      AllowMultiSelect) {
    const int first = rows_.SelectedRows().front();
    for (int i = std::min(first, row); i <= std::max(first, row); ++i) rows_.Select(i, true);
    rows_.MoveTo(row);
    return RaiseSelectionChanged();
  }
  // A press on one of several selected rows may become a drag of all of them.
  if (row >= 0 && rows_.Selected(row)) {
    rows_.MoveTo(row);
    return Update();
  }
  if (row < 0 && rows_.SelectedCount() == 0) return Update();
  rows_.ListIndex(row);
  anchor_ = row;
  RaiseSelectionChanged();
}

void multiViewFileBrowser::MoveTo(int row, bool extend) {
  if (rows_.Count() == 0) return;
  const int target = std::clamp(row, 0, rows_.Count() - 1);
  if (extend && AllowMultiSelect) {
    if (anchor_ < 0) anchor_ = std::max(rows_.ListIndex(), 0);
    rows_.SelectAll(false);
    for (int i = std::min(anchor_, target); i <= std::max(anchor_, target); ++i) {
      rows_.Select(i, true);
    }
    rows_.MoveTo(target);
  } else {
    rows_.ListIndex(target);
    anchor_ = target;
  }
  ScrollTo(target);
  RaiseSelectionChanged();
}

void multiViewFileBrowser::TypeAhead(const QString& text) {
  // The same letter again goes on to the next name that begins with it.
  const bool same = typed_.size() == 1 && typed_ == text;
  if (!same) typed_ += text;
  typing_.start();
  const int from = same ? rows_.ListIndex() + 1 : std::max(rows_.ListIndex(), 0);
  for (int i = 0; i < rows_.Count(); ++i) {
    const int row = (typed_.size() == 1 && !same ? i : from + i) % rows_.Count();
    if (ToQString(rows_.Name(row)).startsWith(typed_, Qt::CaseInsensitive)) {
      return MoveTo(row, false);
    }
  }
}

bool multiViewFileBrowser::HandleSideButton(Qt::MouseButton button) {
  if ((button != Qt::BackButton && button != Qt::ForwardButton) || !Navigate) return false;
  Navigate(button == Qt::BackButton ? -1 : 1);
  return true;
}

bool multiViewFileBrowser::HandleKey(QKeyEvent& event, int rowsPerPage, int perRow) {
  const int row = rows_.ListIndex();
  const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
  if (event.modifiers().testFlag(Qt::ControlModifier) ||
      event.modifiers().testFlag(Qt::AltModifier)) {
    if (event.key() == Qt::Key_Up && ShowEnclosing) return ShowEnclosing(), true;
    const bool sideways = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
    if (sideways && event.modifiers().testFlag(Qt::AltModifier) && Navigate) {
      return Navigate(event.key() == Qt::Key_Left ? -1 : 1), true;
    }
    if (event.key() == Qt::Key_Down && row >= 0 && rows_.Selected(row)) {
      const BrowserPayload payload = item(row);
      if (OpenItem) OpenItem(payload);
      return true;
    }
    return false;
  }
  switch (event.key()) {
    case Qt::Key_Left:
      return perRow == 1 ? false : (MoveTo(row - 1, shift), true);
    case Qt::Key_Right:
      return perRow == 1 ? false : (MoveTo(row + 1, shift), true);
    case Qt::Key_Up:
      return MoveTo(std::max(row - perRow, 0), shift), true;
    case Qt::Key_Down:
      return MoveTo(row < 0 ? 0 : row + perRow, shift), true;
    case Qt::Key_PageUp:
      return MoveTo(row - perRow * rowsPerPage, shift), true;
    case Qt::Key_PageDown:
      return MoveTo(row + perRow * rowsPerPage, shift), true;
    case Qt::Key_Home:
      return MoveTo(0, shift), true;
    case Qt::Key_End:
      return MoveTo(rows_.Count() - 1, shift), true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (row >= 0 && OpenItem) {
        const BrowserPayload payload = item(row);
        OpenItem(payload);
      }
      return true;
    case Qt::Key_Delete:
      if (TrashAction) TrashAction();
      return true;
    case Qt::Key_Backspace:
      if (ShowEnclosing) ShowEnclosing();
      return true;
    case Qt::Key_Space:
      if (typed_.isEmpty()) {
        if (QuickLookAction) QuickLookAction();
        return true;
      }
      [[fallthrough]];
    default:
      break;
  }
  const QString text = event.text();
  if (text.isEmpty() || !text.front().isPrint()) return false;
  TypeAhead(text);
  return true;
}

// Drags and menus.

std::unique_ptr<QMimeData> multiViewFileBrowser::DragData() const {
  std::vector<FolderItem> files;
  for (const int row : rows_.SelectedRows()) {
    for (FolderItem& file : FilesOf(item(row))) files.push_back(std::move(file));
  }
  if (files.empty()) return nullptr;
  auto data = std::make_unique<QMimeData>();
  data->setData(QStringLiteral("text/uri-list"),
                QByteArray::fromStdString(FileAddress::ListOf(files)));
  return data;
}

QPixmap multiViewFileBrowser::DragImage(int count) {
  constexpr int kDragged = 96;
  for (const int row : rows_.SelectedRows()) {
    const QPixmap picture = CellPicture(row, kDragged);
    if (!picture.isNull()) return DragPicture(picture, count);
  }
  return {};
}

void multiViewFileBrowser::StartDrag() {
  std::unique_ptr<QMimeData> data = DragData();
  if (!data) return;
  const QPixmap picture = DragImage(static_cast<int>(data->urls().size()));
  auto* drag = new QDrag(this);
  drag->setMimeData(data.release());
  drag->setPixmap(picture);
  const QSizeF size = QSizeF(picture.size()) / picture.devicePixelRatio();
  drag->setHotSpot(QPoint(static_cast<int>(size.width() / 4), static_cast<int>(size.height() / 2)));
  const std::shared_ptr<void> hold = Holding ? Holding() : nullptr;
  drag->exec(Qt::CopyAction | Qt::LinkAction, Qt::CopyAction);
}

void multiViewFileBrowser::ShowMenu(const QPoint& global) {
  QMenu menu;
  if (!ConstructContextualMenu || !ConstructContextualMenu(menu)) return;
  const std::shared_ptr<void> hold = Holding ? Holding() : nullptr;
  menu.exec(global);
}

FolderItem multiViewFileBrowser::DropTarget(int row, const QObject* source) const {
  if (row >= 0) {
    const auto target = rows_.Item(row);
    const bool folder = target && target->Facts && target->Facts->Is == FileFacts::kFolder;
    if (folder && (source != this || !rows_.Selected(row))) return target->File();
  }
  return CurrentFolder();
}

void multiViewFileBrowser::DragEnter(QDropEvent& event) const {
  AcceptAsCopy(event);
  event.setAccepted(event.mimeData()->hasUrls() && FilesDropped);
}

bool multiViewFileBrowser::DragOver(QDropEvent& event, int row) const {
  const FolderItem target = DropTarget(row, event.source());
  // A hand that slips within a folder does not copy what lies there.
  const bool slip = event.source() == this && target == CurrentFolder();
  const bool taken = target && !slip && event.mimeData()->hasUrls() && FilesDropped;
  AcceptAsCopy(event);
  event.setAccepted(taken);
  return taken;
}

void multiViewFileBrowser::Drop(QDropEvent& event, int row) {
  if (!DragOver(event, row)) return;
  const DragItem item = TakeDrag(*event.mimeData());
  event.setAccepted(!item.Files.empty());
  if (!item.Files.empty()) FilesDropped(item.Files, DropTarget(row, event.source()));
}

}  // namespace brivolant
