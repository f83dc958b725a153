// SPDX-License-Identifier: MIT
#include "browser/ui/multiViewFileBrowser.h"

#include <QApplication>
#include <QPointer>
#include <QScrollBar>
#include <algorithm>

#include "browser/DiskThreads.h"
#include "browser/FolderWatch.h"
#include "browser/PhotoFactsCache.h"
#include "browser/SearchText.h"
#include "browser/ui/BrowserViews.h"
#include "browser/ui/ColumnPreview.h"
#include "browser/ui/FileIcons.h"
#include "files/FolderitemExtensions.h"
#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkSplitter.h"

namespace brivolant {
namespace {

/// Milliseconds between two repaints while thumbnails arrive.
constexpr int kRepaint = 40;
/// Milliseconds of quiet after which a changed folder is listed again.
constexpr int kReload = 300;
/// Milliseconds after which typed letters begin a new word.
constexpr int kTyping = 1000;
/// Units of width: of the bar in the column view, and what its two sides keep.
constexpr int kBar = 5;
constexpr int kLeastIcons = 200;
constexpr int kLeastPreview = 180;

/// The bar asks nobody anything.
Dialogs& Silence() {
  class Silent final : public Dialogs {
    void Message(const std::string&, const std::string&) override {}
  };
  static Silent silent;
  return silent;
}

}  // namespace

multiViewFileBrowser::multiViewFileBrowser(std::shared_ptr<const ThumbnailMaker> maker,
                                           std::shared_ptr<const FilePreviewer> previewer,
                                           QWidget* parent)
    : QWidget(parent),
      getter_(std::move(maker)),
      icons_(new BrowserIconView(*this)),
      list_(new BrowserListView(*this)),
      preview_(new ColumnPreview(std::move(previewer), this)),
      splitter_(new ifkSplitter(this, Silence())) {
  list_->hide();
  preview_->hide();
  splitter_->hide();
  splitter_->Dragging = [this] {
    splitterPosition_ = splitter_->Position();
    Lay();
  };
  splitter_->Dragged = [this] {
    if (PreviewChanged) PreviewChanged();
  };
  preview_->InformationSwitched = [this] {
    if (PreviewChanged) PreviewChanged();
  };
  preview_->DoubleClicked = [this] {
    if (ListIndex() < 0 || rows_.SelectedCount() == 0) return;
    const BrowserPayload payload = item(ListIndex());
    if (OpenItem) OpenItem(payload);
  };
  setFocusProxy(icons_);
  moments_.Known = [this](const std::vector<MomentReader::Told>& told) { TakeMoments(told); };
  lister_.Listed = [this](std::vector<BrowserRows::Row> rows, bool done) {
    TakeListed(std::move(rows), done);
  };
  getter_.Started = [this] {
    if (StartedToUpdateThumbnails) StartedToUpdateThumbnails();
  };
  getter_.Changed = [this](const browserItem& item) {
    fresh_.insert(&item);
    if (!repaint_.isActive()) repaint_.start();
  };
  getter_.Finished = [this] {
    Update();
    if (FinishedUpdatingThumbnails) FinishedUpdatingThumbnails();
  };
  const auto once = [this](QTimer& timer, int milliseconds, const std::function<void()>& then) {
    timer.setSingleShot(true);
    timer.setInterval(milliseconds);
    connect(&timer, &QTimer::timeout, this, then);
  };
  once(repaint_, kRepaint, [this] { UpdateFresh(); });
  once(reload_, kReload, [this] { ReloadCurrentView(); });
  once(typing_, kTyping, [this] { typed_.clear(); });
}

multiViewFileBrowser::~multiViewFileBrowser() {
  getter_.Kill();
  lister_.Stop();
}

FolderItem multiViewFileBrowser::CurrentFolder() const {
  const auto* folder = std::get_if<FolderItem>(&currentView_);
  return folder == nullptr ? FolderItem() : *folder;
}

void multiViewFileBrowser::Mode(int mode) {
  if (mode == intMode) return;
  EndRename(false);
  intMode = mode;
  const bool list = mode == kListView;
  QWidget* shown = list ? static_cast<QWidget*>(list_) : icons_;
  const bool focused = icons_->hasFocus() || list_->hasFocus();
  list_->setVisible(list);
  icons_->setVisible(!list);
  preview_->setVisible(mode == kColumnView);
  splitter_->setVisible(mode == kColumnView);
  setFocusProxy(shown);
  Lay();
  if (focused) shown->setFocus();
  if (ListIndex() >= 0) ScrollTo(ListIndex());
  RaiseSelectionChanged();
  if (modeChanged) modeChanged();
  Update();
}

void multiViewFileBrowser::IconSize(int size) {
  IconSizes(intMode == kListView ? iconViewSize : size, intMode == kListView ? size : listViewSize);
}

void multiViewFileBrowser::IconSizes(int icons, int rows) {
  iconViewSize = std::clamp(icons, 16, 256);
  listViewSize = std::clamp(rows, 0, 1);
  const int row = ListIndex();
  icons_->UpdateScrollBar();
  list_->UpdateScrollBar();
  if (row >= 0) ScrollTo(row);
  Update();
}

void multiViewFileBrowser::SplitterPosition(int position) {
  splitterPosition_ = position;
  Lay();
}

void multiViewFileBrowser::Lay() {
  QRect icons = rect();
  if (intMode == kColumnView) {
    splitter_->Minimum = kLeastIcons;
    splitter_->Maximum = std::max(width() - kLeastPreview, kLeastIcons + kBar);
    const int left = std::clamp(splitterPosition_, kLeastIcons, splitter_->Maximum - kBar);
    splitter_->setGeometry(left, 0, kBar, height());
    icons.setWidth(left);
    preview_->setGeometry(left + kBar, 0, width() - left - kBar, height());
  }
  icons_->setGeometry(icons);
  list_->setGeometry(rect());
  icons_->UpdateScrollBar();
  list_->UpdateScrollBar();
}

void multiViewFileBrowser::resizeEvent(QResizeEvent*) {
  Lay();
}

void multiViewFileBrowser::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Lay();
  QWidget::changeEvent(event);
}

void multiViewFileBrowser::Update() {
  icons_->viewport()->update();
  list_->viewport()->update();
}

void multiViewFileBrowser::UpdateFresh() {
  const auto& view = intMode == kListView ? static_cast<BrowserView&>(*list_) : *icons_;
  for (int row = inViewFirst_; row < std::min(inViewEnd_, Count()); ++row) {
    if (const auto entry = EntryOf(item(row)); entry && fresh_.contains(entry.get())) {
      view.viewport()->update(view.PlaceOf(row));
    }
  }
  fresh_.clear();
}

void multiViewFileBrowser::Watch(const FolderItem& folder) {
  watcher_.reset();
  if (folder) watcher_ = std::make_unique<FolderWatch>(folder, [this] { reload_.start(); });
}

void multiViewFileBrowser::DisplayItem(const Container& value) {
  const auto* folder = std::get_if<FolderItem>(&value);
  DisplayItem(value, folder ? FolderLister::Look(*folder, FolderLister::kPatience) : std::nullopt);
}

void multiViewFileBrowser::DisplayItem(const Container& value,
                                       const std::optional<FolderLister::Place>& found) {
  EndRename(false);
  getter_.Kill();
  getter_.item.clear();
  lister_.Stop();
  moments_.Stop();
  slowReload_ = false;
  reload_.stop();
  Container container = value;
  // A link is shown as what it leads to; one that leads nowhere shows nothing. A place that does
  // not answer is shown as it is called, and waited for elsewhere.
  if (found && found->Gone && found->Real.Alias()) return;
  if (found) container = found->Real;
  wanted_.clear();
  if (!reloading_) {
    ++choices_;
    before_.clear();
    scaled_.clear();
    scaledAt_.clear();
    photos_.clear();
    icons_->verticalScrollBar()->setValue(0);
    list_->verticalScrollBar()->setValue(0);
    anchor_ = -1;
  }
  rows_.RemoveAllItems();
  // Nothing is selected now, and what was belongs to another folder.
  if (!reloading_) UpdatePreview();
  currentView_ = container;
  const FolderItem folder = CurrentFolder();
  // A slow folder that is read again is watched already.
  if (found || !reloading_) Watch(found ? folder : FolderItem());
  if (folder) {
    listed_ = {rows_.SortColumn(), rows_.Descending()};
    // What was silent once is not waited for again.
    lister_.List(folder,
                 {rows_.SortColumn(), rows_.Descending(), showInvisibles, DocumentExtension, Facts},
                 found ? FolderLister::kPatience : 0);
    if (Listing() && !reloading_ && ListChanged) ListChanged();
    Update();
    return;
  }
  if (const auto* virtualFolder = std::get_if<std::shared_ptr<browserItemCollection>>(&container)) {
    for (int i = 0; i < (*virtualFolder)->Count(); ++i) rows_.AddItem((*virtualFolder)->Item(i));
  } else if (const auto* album = std::get_if<std::shared_ptr<iPhotoAlbum>>(&container)) {
    for (const iPhotoAlbum::Entry& entry : (*album)->item) {
      std::visit([this](const auto& held) { rows_.AddItem(held); }, entry);
    }
  } else if (const auto* roll = std::get_if<std::shared_ptr<iPhotoRoll>>(&container)) {
    for (const auto& photo : (*roll)->item) rows_.AddItem(photo);
  }
  Lay();
  RunGetter();
  ReadMoments();
  if (ListChanged) ListChanged();
  Update();
}

bool multiViewFileBrowser::MayTell(const browserItem& item) {
  if (!item.Facts) return false;
  if (item.Facts->Is == FileFacts::kDocument) return true;
  // A link tells what its photo or its document does.
  const std::string document = LowerCase(item.File().Name());
  if (item.Facts->Is == FileFacts::kAlias && document.ends_with(".brvphoto")) return true;
  const bool file = item.Facts->Is == FileFacts::kPlain || item.Facts->Is == FileFacts::kAlias;
  return file && FolderitemExtensions::NamesPicture(item.File().Name());
}

void multiViewFileBrowser::ReadMoments() {
  if (rows_.SortColumn() != BrowserRows::kTakenColumn || Listing()) return;
  std::vector<FolderItem> photos;
  for (int i = 0; i < rows_.Count(); ++i) {
    const auto item = rows_.Item(i);
    if (item && !item->Taken && MayTell(*item)) photos.push_back(item->File());
  }
  moments_.Read(std::move(photos), Facts);
}

void multiViewFileBrowser::TakeMoments(const std::vector<MomentReader::Told>& told) {
  std::unordered_map<std::string, const PhotoFactsCache::Facts*> known;
  for (const MomentReader::Told& photo : told) known[photo.Photo.ShellPath()] = &photo.Facts;
  for (int i = 0; i < rows_.Count(); ++i) {
    const auto item = rows_.Item(i);
    const auto found = item ? known.find(item->File().ShellPath()) : known.end();
    if (found == known.end()) continue;
    item->Taken = found->second->Taken;
    item->Said = found->second->Title + "\n" + found->second->Words;
  }
  if (rows_.SortColumn() != BrowserRows::kTakenColumn) return;
  rows_.Sort(rows_.SortColumn(), rows_.Descending());
  Update();
}

void multiViewFileBrowser::ReloadCurrentView() {
  // Whoever is typing a name is not disturbed by a change of the folder.
  if (Listing() || rename_ != nullptr) return reload_.start();
  const int current = rows_.ListIndex();
  const auto place = [this](int row) {
    const auto item = rows_.Item(row);
    return item ? item->File().ShellPath() : rows_.Name(row);
  };
  const std::string name = current >= 0 ? place(current) : std::string();
  const int icons = icons_->verticalScrollBar()->value();
  const int list = list_->verticalScrollBar()->value();
  before_.clear();
  for (int i = 0; i < rows_.Count(); ++i) {
    const auto item = rows_.Item(i);
    if (item) before_[item->File().ShellPath()] = {item, rows_.Selected(i), std::nullopt};
  }
  reloading_ = true;
  DisplayItem(Container(currentView_));
  reloading_ = false;
  if (CurrentFolder().IsNil()) {
    for (int i = 0; i < rows_.Count(); ++i) {
      const auto known = before_.find(place(i));
      if (known != before_.end()) rows_.Select(i, known->second.selected);
    }
    before_.clear();
  }
  for (int i = 0; current >= 0 && i < rows_.Count(); ++i) {
    if (place(i) == name) rows_.MoveTo(i);
  }
  Lay();
  icons_->verticalScrollBar()->setValue(icons);
  list_->verticalScrollBar()->setValue(list);
  // While a slow folder is read, what is shown of the selection stays.
  slowReload_ = Listing();
  if (!slowReload_) RaiseSelectionChanged(false);
  if (!slowReload_) LeaveIfGone();
}

void multiViewFileBrowser::LeaveIfGone() {
  if (CurrentFolder() && lister_.Found() && lister_.Found()->Gone && FolderGone) FolderGone();
}

void multiViewFileBrowser::TakeListed(std::vector<BrowserRows::Row> rows, bool done) {
  // What did not change keeps its thumbnail and stays selected.
  for (BrowserRows::Row& row : rows) {
    const auto& item = std::get<std::shared_ptr<browserItem>>(row.tag);
    const std::string path = item->File().ShellPath();
    row.selected = wanted_.contains(path);
    const auto known = before_.find(path);
    if (known == before_.end()) continue;
    const auto& old = std::get<std::shared_ptr<browserItem>>(known->second.tag);
    if (wanted_.empty()) row.selected = known->second.selected;
    if (old->Facts != item->Facts) continue;
    if (item->Taken) {
      old->Taken = item->Taken;
      old->Said = item->Said;
    }
    row.tag = old;
  }
  // The order may be another than the listing began with; and moments are known of old rows.
  const int column = rows_.SortColumn();
  if (column != listed_.first || rows_.Descending() != listed_.second ||
      column == BrowserRows::kTakenColumn) {
    BrowserRows::Sort(rows, column, rows_.Descending());
  }
  rows_.Merge(std::move(rows));
  if (rows_.ListIndex() < 0 && rows_.SelectedCount() > 0) {
    rows_.MoveTo(rows_.SelectedRows().front());
  }
  Lay();
  Update();
  if (!done) return;
  before_.clear();
  if (!watcher_) {
    // It has answered at last. What changed meanwhile is seen by a second look.
    currentView_ = lister_.Found()->Real;
    Watch(CurrentFolder());
    reload_.start();
  }
  const bool selects = !std::exchange(wanted_, {}).empty();
  RunGetter();
  ReadMoments();
  const bool slow = std::exchange(slowReload_, false);
  if (slow || selects) {
    if (selects && ListIndex() >= 0) ScrollTo(ListIndex());
    RaiseSelectionChanged(false);
  }
  if (ListChanged) ListChanged();
  if (slow) LeaveIfGone();
}

// The selection.

void multiViewFileBrowser::UpdatePreview() {
  if (intMode != kColumnView) return;
  if (rows_.SelectedCount() != 1) return preview_->Clear();
  const BrowserPayload payload = SelectedItem(0);
  const auto* row = std::get_if<std::shared_ptr<browserItem>>(&payload);
  const std::vector<FolderItem> files = FilesOf(payload);
  if (files.size() != 1) return preview_->Clear();
  QImage stand = Thumbnail(payload);
  if (stand.isNull()) {
    constexpr int kIcon = 512;
    stand = FileIcons::For(payload, kIcon, 1).toImage();
  }
  const std::int64_t stamp = row != nullptr && (*row)->Facts ? (*row)->Facts->Modified : 0;
  preview_->Display(files.front(), stamp, ToQString(BrowserRows::NameOf(payload)), stand);
}

void multiViewFileBrowser::RaiseSelectionChanged(bool chosen) {
  if (chosen) ++choices_;
  UpdatePreview();
  Update();
  TellAccessibleFocus(intMode == kListView ? static_cast<QWidget&>(*list_) : *icons_,
                      rows_.ListIndex());
  if (SelectionChanged) SelectionChanged();
}

AccessibleItem multiViewFileBrowser::DescribeRow(int row, const QRect& place) const {
  AccessibleItem item;
  item.Name = ToQString(rows_.Name(row));
  item.Place = place;
  item.Selected = rows_.Selected(row);
  QStringList facts;
  for (const int column :
       {BrowserRows::kKindColumn, BrowserRows::kSizeColumn, BrowserRows::kDateColumn}) {
    const QString text = ToQString(rows_.ShownText(row, column));
    if (!text.isEmpty() && text != QStringLiteral("--")) facts << text;
  }
  item.Description = facts.join(QStringLiteral(", "));
  return item;
}

std::string multiViewFileBrowser::TextOfNothing() const {
  if (!EmptyText.empty()) return EmptyText;
  const bool closed = CurrentFolder() && lister_.Found() && lister_.Found()->Closed;
  return (closed ? kUnreadableFolder : kEmptyFolder).Text();
}

void multiViewFileBrowser::AskShot(const std::shared_ptr<browserItem>& item) {
  if (!Facts || !MayTell(*item)) return;
  // Once, whatever comes of it: a disk that is away is not asked at every move of the mouse.
  item->Shot = std::string();
  const auto told = std::make_shared<std::string>();
  DiskThreads::Run(item->File(),
                   [item, told, facts = Facts, list = QPointer<multiViewFileBrowser>(this)] {
                     *told = facts->Of(item->File()).Shot;
                     QMetaObject::invokeMethod(
                         qApp,
                         [item, told, list] {
                           item->Shot = *told;
                           if (list && list->ShotKnown) list->ShotKnown(item);
                         },
                         Qt::QueuedConnection);
                   });
}

QString multiViewFileBrowser::TipOf(int row) {
  if (row < 0) return {};
  const AccessibleItem item = DescribeRow(row, {});
  QStringList lines{item.Name};
  const auto entry = rows_.Item(row);
  const FolderItem file = entry ? entry->File() : FolderItem();
  // In a folder one knows where one is.
  if (file && CurrentFolder().IsNil()) lines << ToQString(EnsureUTF8(file.Parent().ShellPath()));
  if (!item.Description.isEmpty()) lines << item.Description;
  if (entry && entry->Shot) {
    if (!entry->Shot->empty()) lines << ToQString(EnsureUTF8(*entry->Shot));
  } else if (entry && file) {
    AskShot(entry);
  }
  return lines.join(QLatin1Char('\n'));
}

void multiViewFileBrowser::isItemSelected(int index, bool selected) {
  rows_.Select(index, selected);
  RaiseSelectionChanged();
}

std::vector<BrowserPayload> multiViewFileBrowser::SelectedItems() const {
  std::vector<BrowserPayload> items;
  for (const int row : rows_.SelectedRows()) items.push_back(item(row));
  return items;
}

BrowserPayload multiViewFileBrowser::SelectedItem(int index) const {
  const std::vector<int> rows = rows_.SelectedRows();
  return index >= 0 && index < static_cast<int>(rows.size())
             ? item(rows[static_cast<std::size_t>(index)])
             : BrowserPayload();
}

void multiViewFileBrowser::ListIndex(int row) {
  rows_.ListIndex(row);
  anchor_ = row;
  if (row >= 0) ScrollTo(row);
  RaiseSelectionChanged();
}

void multiViewFileBrowser::SelectAll() {
  if (!AllowMultiSelect) return;
  rows_.SelectAll(true);
  RaiseSelectionChanged();
}

void multiViewFileBrowser::UnselectAll() {
  rows_.SelectAll(false);
  RaiseSelectionChanged();
}

void multiViewFileBrowser::HighLightItem(const std::string& text, bool partial) {
  int first = -1;
  const SearchText part(text);
  for (int i = 0; i < rows_.Count(); ++i) {
    const std::string name = rows_.Name(i);
    const auto item = rows_.Item(i);
    const bool said = item && !item->Said.empty() && part.In(item->Said);
    const bool match = partial ? part.In(name) || said : name == text;
    rows_.Select(i, match);
    if (match && first < 0) first = i;
  }
  if (first >= 0) {
    rows_.MoveTo(first);
    ScrollTo(first);
  }
  RaiseSelectionChanged();
}

void multiViewFileBrowser::SelectFiles(const std::vector<FolderItem>& files) {
  std::unordered_set<std::string> paths;
  for (const FolderItem& file : files) paths.insert(file.ShellPath());
  int first = -1;
  for (int i = 0; i < rows_.Count(); ++i) {
    const auto item = rows_.Item(i);
    const bool match = item && paths.contains(item->File().ShellPath());
    rows_.Select(i, match);
    if (match && first < 0) first = i;
  }
  if (Listing()) wanted_ = std::move(paths);
  if (first >= 0) {
    rows_.MoveTo(first);
    ScrollTo(first);
  }
  RaiseSelectionChanged();
}

void multiViewFileBrowser::RemoveSelected() {
  rows_.RemoveSelected();
  Lay();
  if (ListIndex() >= 0) ScrollTo(ListIndex());
  RaiseSelectionChanged();
}

void multiViewFileBrowser::Remove(const std::shared_ptr<browserItem>& wanted) {
  for (int i = 0; i < rows_.Count(); ++i) {
    if (rows_.Item(i) != wanted) continue;
    rows_.Remove(i);
    break;
  }
  Lay();
  RaiseSelectionChanged();
}

std::string multiViewFileBrowser::GetViewInfo() const {
  const std::string count = std::to_string(rows_.Count());
  std::string info;
  if (rows_.SelectedCount() > 0) {
    info = WithPlaceholders(kSelected.Text(),
                            {{"<x>", std::to_string(rows_.SelectedCount())}, {"<t>", count}});
  } else {
    info = count + " " + (rows_.Count() == 1 ? BrowserRows::kitem : BrowserRows::kItems).Text();
  }
  // As it was when the folder was listed: the disk is not asked at every key.
  if (CurrentFolder() && lister_.Found() && !lister_.Found()->Gone) {
    const auto free = static_cast<double>(lister_.Found()->Available);
    info += ", " + FolderitemExtensions::AsFileSize(free, ".00") + " " + kFreeSpace.Text();
  }
  return info;
}

void multiViewFileBrowser::Sort(int column, bool descending) {
  const bool changed = column != rows_.SortColumn() || descending != rows_.Descending();
  EndRename(false);
  rows_.Sort(column, descending);
  // What is not known is read beside the window.
  if (changed) ReadMoments();
  list_->ShowOrder(column, descending);
  if (ListIndex() >= 0) ScrollTo(ListIndex());
  Update();
  if (changed && Sorted) Sorted();
}

void multiViewFileBrowser::ScrollTo(int row) {
  if (intMode == kListView) {
    list_->ScrollTo(row);
  } else {
    icons_->ScrollTo(row);
  }
}

}  // namespace brivolant
