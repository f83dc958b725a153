// SPDX-License-Identifier: MIT
#include "app/info/MetaDataBrowser.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <array>

#include "kit/InterfaceKitSupport.h"
#include "kit/ifkColors.h"

namespace brivolant {
namespace {

using Sections = MetadataSection;

constexpr int kLabelShare = 40;
constexpr int kRowPadding = 5;
constexpr int kPreviewHeight = 160;
constexpr int kPreviewMargin = 8;

/// In the order in which settings hold them.
constexpr std::array kStored{
    Sections::kSummary, Sections::kPreview, Sections::kProfile, Sections::kDct,
    Sections::kExif,    Sections::kFile,    Sections::kGps,     Sections::kInteroperability,
    Sections::kIptc,    Sections::kJfif,    Sections::kComment, Sections::kPhotoshop,
    Sections::kSubIfd,  Sections::kTiff,    Sections::kProgram};

/// Where the rows of a section are written.
std::optional<MetadataBlock> BlockOfSection(int section) {
  for (const MetadataBlock block :
       {MetadataBlock::kTiff, MetadataBlock::kExif, MetadataBlock::kGps, MetadataBlock::kInterop,
        MetadataBlock::kIptc, MetadataBlock::kXmp, MetadataBlock::kComment}) {
    if (EmptySection(block).Is == section) return block;
  }
  return {};
}

}  // namespace

/// Paints sections, fields and the picture, and hands what was typed to the list.
class MetaDataBrowser::Delegate final : public QStyledItemDelegate {
 public:
  explicit Delegate(MetaDataBrowser& list) : QStyledItemDelegate(&list), list_(list) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    if (IsPreview(index)) return {size.width(), kPreviewHeight + 2 * kPreviewMargin};
    return {size.width(), option.fontMetrics.height() + kRowPadding};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    if (IsPreview(index)) return;
    QStyleOptionViewItem row = option;
    const QTreeWidgetItem* item = list_.itemFromIndex(index);
    if (!index.parent().isValid()) {
      row.font.setBold(true);
    } else if (index.column() == 0) {
      row.palette.setColor(QPalette::Text, row.palette.color(QPalette::PlaceholderText));
    } else if (list_.Editable(item)) {
      painter->save();
      painter->setRenderHint(QPainter::Antialiasing);
      painter->setPen(QPen(ifkColors::FrameInactive(), 1));
      painter->setBrush(row.palette.base());
      painter->drawRoundedRect(QRectF(option.rect).adjusted(0.5, 1.5, -3.5, -1.5), 3, 3);
      painter->restore();
    }
    if (item->data(0, kMappedRole).toBool()) row.font.setItalic(true);
    QStyledItemDelegate::paint(painter, row, index);
  }

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex& index) const override {
    const QTreeWidgetItem* item = list_.itemFromIndex(index);
    if (index.column() != 1 || !list_.Editable(item)) return nullptr;
    auto* edit = new QLineEdit(parent);
    edit->setAccessibleName(item->text(0));
    return edit;
  }

  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    qobject_cast<QLineEdit*>(editor)->setText(PlainText(index));
  }

  void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const override {
    const QString text = qobject_cast<QLineEdit*>(editor)->text();
    if (text == PlainText(index)) return;
    list_.EditedSoon(*list_.itemFromIndex(index), text);
  }

 private:
  /// Without the mark of a difference.
  static QString PlainText(const QModelIndex& index) {
    const QVariant plain = index.data(Qt::UserRole);
    return plain.isValid() ? plain.toString() : index.data(Qt::DisplayRole).toString();
  }
  static bool IsPreview(const QModelIndex& index) {
    return index.parent().isValid() &&
           index.parent().siblingAtColumn(0).data(kSectionRole).toInt() == Sections::kPreview;
  }
  MetaDataBrowser& list_;
};

MetaDataBrowser::MetaDataBrowser(Log& log, QWidget* parent) : QTreeWidget(parent), log_(log) {
  setColumnCount(2);
  setHeaderHidden(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(EditKeyPressed | SelectedClicked | DoubleClicked);
  setIndentation(14);
  setRootIsDecorated(true);
  setExpandsOnDoubleClick(false);
  setUniformRowHeights(false);
  setTextElideMode(Qt::ElideRight);
  setFrameShape(QFrame::NoFrame);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::Fixed);
  header()->setMinimumSectionSize(40);
  setAccessibleName(Shown(kList));
  setItemDelegate(new Delegate(*this));
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * 0.95);
  setFont(small);
  for (const int section : kStored) open_[section] = true;
  open_[Sections::kXmp] = true;
  // What fills windows, and few look for.
  for (const int section : {Sections::kPhotoshop, Sections::kSubIfd, Sections::kDct,
                            Sections::kInteroperability, Sections::kJfif}) {
    open_[section] = false;
  }
  const auto keep = [this](QTreeWidgetItem* item, bool open) {
    if (!filling_ && filter_.isEmpty()) open_[item->data(0, kSectionRole).toInt()] = open;
  };
  connect(this, &QTreeWidget::itemExpanded, this, [keep](QTreeWidgetItem* i) { keep(i, true); });
  connect(this, &QTreeWidget::itemCollapsed, this, [keep](QTreeWidgetItem* i) { keep(i, false); });
  connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int column) {
    if (item->parent() == nullptr) {
      item->setExpanded(!item->isExpanded());
    } else if (column == 1) {
      Open(*item);
    }
  });
  connect(this, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item, int) {
    if (IsPosition(item)) Open(*item);
  });
}

void MetaDataBrowser::Open(const QTreeWidgetItem& item) {
  if (Editable(&item)) {
    editItem(const_cast<QTreeWidgetItem*>(&item), 1);
  } else if (IsPosition(&item) && OpenAddress) {
    OpenAddress(MapAddress(*info_->Facts().Where));
  }
}

bool MetaDataBrowser::IsPosition(const QTreeWidgetItem* item) const {
  return item != nullptr && info_ && info_->Facts().Where &&
         item->text(0) == Shown(FileInfo::kPosition);
}

bool MetaDataBrowser::Editable(const QTreeWidgetItem* item) const {
  return item != nullptr && item->data(0, kTextRole).toBool();
}

void MetaDataBrowser::Display(std::shared_ptr<FileInfo> info) {
  info_ = std::move(info);
  if (info_) info_->Draft().Changed = [this] { Fill(); };
  Fill();
}

void MetaDataBrowser::Preview(const QImage& picture) {
  preview_ = picture;
  if (QTreeWidgetItem* section = Section(Sections::kPreview)) {
    section->setHidden(preview_.isNull() || !filter_.isEmpty());
  }
  viewport()->update();
}

void MetaDataBrowser::SetRow(QTreeWidgetItem& line, const MetadataRow& row) {
  QString value = ToQString(EnsureUTF8(row.Value));
  QString tip = value;
  if (row.Mapped) tip += QLatin1Char('\n') + Shown(kFromPacket);
  QVariant plain;
  if (!row.Differs.empty()) {
    tip += QLatin1Char('\n') +
           ToQString(WithPlaceholders(kPacketDiffers.Text(), {{"<text>", row.Differs}}));
    // What is edited is the text alone.
    plain = value;
    value += QStringLiteral("  \u2260");
  }
  line.setText(0, ToQString(EnsureUTF8(row.Label)));
  if (line.text(1) != value) line.setText(1, value);
  line.setData(0, kTagRole, ToQString(row.Tag));
  line.setData(0, kIndexRole, row.Index);
  line.setData(0, kTextRole, row.Text);
  line.setData(0, kMappedRole, row.Mapped);
  line.setData(1, Qt::UserRole, plain);
  line.setFlags(row.Text ? line.flags() | Qt::ItemIsEditable : line.flags() & ~Qt::ItemIsEditable);
  line.setToolTip(1, tip);
}

bool MetaDataBrowser::FillInPlace(const std::vector<MetadataSection>& sections) {
  // The first is the picture's.
  if (topLevelItemCount() != static_cast<int>(sections.size()) + 1) return false;
  for (std::size_t i = 0; i < sections.size(); ++i) {
    const QTreeWidgetItem* item = topLevelItem(static_cast<int>(i) + 1);
    if (item->data(0, kSectionRole).toInt() != sections[i].Is ||
        item->childCount() != static_cast<int>(sections[i].Rows.size())) {
      return false;
    }
  }
  for (std::size_t i = 0; i < sections.size(); ++i) {
    QTreeWidgetItem* item = topLevelItem(static_cast<int>(i) + 1);
    int line = 0;
    for (const MetadataRow& row : sections[i].Rows) SetRow(*item->child(line++), row);
  }
  return true;
}

void MetaDataBrowser::Fill() {
  filling_ = true;
  const auto sections = info_ ? info_->Sections(hideUnknown) : std::vector<MetadataSection>();
  // Who has gone on to the next row with mouse or keys is not thrown out of it.
  if (!info_ || !FillInPlace(sections)) FillAnew(sections);
  ApplyFilter();
  filling_ = false;
}

void MetaDataBrowser::FillAnew(const std::vector<MetadataSection>& sections) {
  const Key key = currentItem() == nullptr ? Key() : KeyOf(*currentItem());
  const QLineEdit* edit = Editor();
  const QString typing = edit == nullptr ? QString() : edit->text();
  const int scrolled = verticalScrollBar()->value();
  setUpdatesEnabled(false);
  clear();
  if (info_) {
    QList<QTreeWidgetItem*> all;
    const auto folder = [&](int number, const QString& label) {
      auto* item = new QTreeWidgetItem({label});
      item->setData(0, kSectionRole, number);
      item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
      all << item;
      return item;
    };
    QTreeWidgetItem* preview = folder(Sections::kPreview, Shown(kPreview));
    auto* picture = new QTreeWidgetItem(preview);
    picture->setFlags(Qt::ItemIsEnabled);
    for (const MetadataSection& section : sections) {
      QTreeWidgetItem* item = folder(section.Is, ToQString(section.Label));
      for (const MetadataRow& row : section.Rows) SetRow(*new QTreeWidgetItem(item), row);
    }
    addTopLevelItems(all);
    for (QTreeWidgetItem* item : all) {
      setFirstColumnSpanned(indexOfTopLevelItem(item), {}, true);
      item->setExpanded(Visible(item->data(0, kSectionRole).toInt()));
    }
    preview->setHidden(preview_.isNull());
    setFirstColumnSpanned(0, indexFromItem(preview), true);
  }
  QTreeWidgetItem* current = ItemOf(key);
  if (current != nullptr) setCurrentItem(current, 1);
  verticalScrollBar()->setValue(scrolled);
  setUpdatesEnabled(true);
  if (edit != nullptr && Editable(current)) {
    editItem(current, 1);
    if (QLineEdit* again = Editor()) again->setText(typing);
  }
}

void MetaDataBrowser::Filter(const QString& text) {
  filter_ = text.trimmed();
  filling_ = true;
  ApplyFilter();
  filling_ = false;
}

void MetaDataBrowser::ApplyFilter() {
  for (int i = 0; i < topLevelItemCount(); ++i) {
    QTreeWidgetItem* section = topLevelItem(i);
    const int number = section->data(0, kSectionRole).toInt();
    bool any = filter_.isEmpty();
    for (int j = 0; j < section->childCount(); ++j) {
      QTreeWidgetItem* row = section->child(j);
      const bool shown = filter_.isEmpty() || row->text(0).contains(filter_, Qt::CaseInsensitive) ||
                         row->text(1).contains(filter_, Qt::CaseInsensitive);
      row->setHidden(!shown);
      any = any || shown;
    }
    const bool picture = number == Sections::kPreview;
    section->setHidden(!any || (picture && (preview_.isNull() || !filter_.isEmpty())));
    section->setExpanded(!filter_.isEmpty() || Visible(number));
  }
}

bool MetaDataBrowser::Visible(int section) const {
  const auto found = open_.find(section);
  return found != open_.end() && found->second;
}

void MetaDataBrowser::Visible(int section, bool visible) {
  open_[section] = visible;
  if (QTreeWidgetItem* item = Section(section)) item->setExpanded(visible);
}

std::string MetaDataBrowser::Settings() const {
  std::string settings;
  for (const int section : kStored) settings += static_cast<char>(Visible(section) ? 1 : 0);
  return settings;
}

void MetaDataBrowser::Settings(const std::string& settings) {
  if (settings.empty()) return;
  if (settings.size() != kStored.size()) {
    return log_.Write("metaDataControl.Settings length is incorrect");
  }
  for (std::size_t i = 0; i < kStored.size(); ++i) Visible(kStored.at(i), settings[i] != 0);
}

QTreeWidgetItem* MetaDataBrowser::Section(int number) const {
  for (int i = 0; i < topLevelItemCount(); ++i) {
    if (topLevelItem(i)->data(0, kSectionRole).toInt() == number) return topLevelItem(i);
  }
  return nullptr;
}

MetaDataBrowser::Key MetaDataBrowser::KeyOf(const QTreeWidgetItem& item) const {
  const QTreeWidgetItem* section = item.parent() == nullptr ? &item : item.parent();
  return {section->data(0, kSectionRole).toInt(), item.data(0, kTagRole).toString().toStdString(),
          item.data(0, kIndexRole).toInt()};
}

QTreeWidgetItem* MetaDataBrowser::ItemOf(const Key& key) const {
  QTreeWidgetItem* section = Section(key.Section);
  if (section == nullptr || key.Tag.empty()) return section;
  QTreeWidgetItem* found = nullptr;
  for (int i = 0; i < section->childCount(); ++i) {
    const Key other = KeyOf(*section->child(i));
    if (other.Tag == key.Tag && other.Index <= std::max(key.Index, 1)) found = section->child(i);
  }
  return found == nullptr ? section : found;
}

void MetaDataBrowser::EditedSoon(const QTreeWidgetItem& item, const QString& text) {
  typed_ = Typed{KeyOf(item), item.text(0), text};
  QMetaObject::invokeMethod(
      this, [this] { TakeTyped(); }, Qt::QueuedConnection);
}

void MetaDataBrowser::mousePressEvent(QMouseEvent* event) {
  pressed_ = true;
  QTreeWidget::mousePressEvent(event);
}

void MetaDataBrowser::mouseReleaseEvent(QMouseEvent* event) {
  QTreeWidget::mouseReleaseEvent(event);
  pressed_ = false;
  QMetaObject::invokeMethod(
      this, [this] { TakeTyped(); }, Qt::QueuedConnection);
}

QLineEdit* MetaDataBrowser::Editor() const {
  if (state() != EditingState) return nullptr;
  QLineEdit* found = nullptr;
  // One that is closed goes a little later.
  for (auto* edit : viewport()->findChildren<QLineEdit*>()) {
    if (found == nullptr || edit->hasFocus()) found = edit;
  }
  return found;
}

void MetaDataBrowser::TakeTyped() {
  // The row that is being pressed must be there when the button goes up.
  if (pressed_) return;
  if (const auto typed = std::exchange(typed_, std::nullopt)) {
    Edited(typed->Row, typed->Name, typed->Text);
  }
}

void MetaDataBrowser::FinishEdit() {
  if (QLineEdit* edit = Editor()) {
    commitData(edit);
    closeEditor(edit, QAbstractItemDelegate::NoHint);
  }
  pressed_ = false;
  TakeTyped();
}

void MetaDataBrowser::Edited(const Key& key, const QString& name, const QString& text) {
  const auto block = BlockOfSection(key.Section);
  if (!info_ || !block) return;
  // A packet may have other prefixes than edits.
  const std::string tag =
      *block == MetadataBlock::kXmp ? info_->Draft().UsualName(key.Tag) : key.Tag;
  if (info_->Draft().Edit(*block, tag, key.Index, text.toStdString())) return;
  // A row that was to be added is none yet.
  Fill();
  QString shown = name;
  while (shown.endsWith(QLatin1Char(':'))) shown.chop(1);
  if (Rejected) {
    Rejected(WithPlaceholders(kNotTaken.Text(),
                              {{"<text>", text.toStdString()}, {"<name>", shown.toStdString()}}));
  }
}

void MetaDataBrowser::CopyValue(bool withName) {
  QStringList lines;
  for (const QTreeWidgetItem* item : selectedItems()) {
    if (item->parent() == nullptr) continue;
    const QVariant plain = item->data(1, Qt::UserRole);
    const QString value = plain.isValid() ? plain.toString() : item->text(1);
    lines << (withName ? item->text(0) + QLatin1Char(' ') + value : value);
  }
  if (!lines.isEmpty()) QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

bool MetaDataBrowser::CanEdit() const {
  return Editable(currentItem());
}

void MetaDataBrowser::EditCurrent() {
  if (CanEdit()) editItem(currentItem(), 1);
}

void MetaDataBrowser::RemoveCurrent() {
  if (CanEdit()) Edited(KeyOf(*currentItem()), currentItem()->text(0), {});
}

void MetaDataBrowser::FillMenu(QMenu& menu) {
  const auto add = [&](const LocalizedText& text, bool enabled, std::function<void()> act) {
    QAction* action = menu.addAction(Shown(text), this, std::move(act));
    action->setEnabled(enabled);
  };
  const QTreeWidgetItem* item = currentItem();
  const bool row = item != nullptr && item->parent() != nullptr;
  add(kCopyValue, row, [this] { CopyValue(); });
  add(kCopyRow, row, [this] { CopyValue(true); });
  menu.addSeparator();
  add(kEdit, CanEdit(), [this] { EditCurrent(); });
  add(kRemove, CanEdit(), [this] { RemoveCurrent(); });
  if (info_ && info_->Facts().Where && OpenAddress) {
    menu.addSeparator();
    add(kShowOnMap, true, [this] { OpenAddress(MapAddress(*info_->Facts().Where)); });
  }
}

void MetaDataBrowser::contextMenuEvent(QContextMenuEvent* event) {
  if (!info_) return;
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  FillMenu(*menu);
  const bool keys = event->reason() == QContextMenuEvent::Keyboard && currentItem() != nullptr;
  menu->popup(keys ? viewport()->mapToGlobal(visualItemRect(currentItem()).center())
                   : event->globalPos());
}

void MetaDataBrowser::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return CopyValue();
  if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) return RemoveCurrent();
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  QTreeWidgetItem* item = currentItem();
  if (enter && item != nullptr && state() != EditingState) {
    if (item->parent() == nullptr) return item->setExpanded(!item->isExpanded());
    return Open(*item);
  }
  QTreeWidget::keyPressEvent(event);
}

void MetaDataBrowser::PlaceColumns() {
  const int width = viewport()->width();
  setColumnWidth(0, width * kLabelShare / 100);
  setColumnWidth(1, width - width * kLabelShare / 100);
}

void MetaDataBrowser::resizeEvent(QResizeEvent* event) {
  QTreeWidget::resizeEvent(event);
  PlaceColumns();
}

void MetaDataBrowser::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
  QTreeWidget::drawRow(painter, option, index);
  const QTreeWidgetItem* item = itemFromIndex(index);
  if (item->parent() == nullptr) {
    if (index.row() > 0) {
      painter->setPen(ifkColors::FrameInactive());
      painter->drawLine(option.rect.topLeft(), option.rect.topRight());
    }
    return;
  }
  if (item->parent()->data(0, kSectionRole).toInt() != Sections::kPreview || preview_.isNull()) {
    return;
  }
  const QRect room = option.rect.adjusted(0, kPreviewMargin, 0, -kPreviewMargin);
  const QSize size = preview_.size().scaled(room.size(), Qt::KeepAspectRatio);
  const QRect place(room.center() - QPoint(size.width() / 2, size.height() / 2), size);
  painter->save();
  painter->setRenderHint(QPainter::SmoothPixmapTransform);
  painter->drawImage(place, preview_);
  painter->restore();
}

}  // namespace brivolant
