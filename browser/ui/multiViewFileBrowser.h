// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "browser/BrowserRows.h"
#include "browser/FolderLister.h"
#include "browser/IconGrid.h"
#include "browser/MomentReader.h"
#include "browser/browserThumbnailGetter.h"
#include "kit/AccessibleItems.h"
#include "platform/values/Text.h"

class QDropEvent;
class QKeyEvent;
class QLineEdit;
class QMenu;
class QMimeData;
class QScrollBar;

namespace brivolant {

class BrowserIconView;
class BrowserListView;
class ColumnPreview;
class FilePreviewer;
class FolderWatch;
class ifkSplitter;

/// Shows one container (a folder, a library album, search results) as icons, as a list, or as icons
/// beside a large preview. It knows
/// nothing of the window around: it reports, and the owner decides what opening means. Rows,
/// selection and order live in one model, so both views always show the same.
class multiViewFileBrowser final : public QWidget {
 public:
  enum ViewMode { kIconView = 0, kListView = 1, kColumnView = 2 };
  /// What is on show.
  using Container = std::variant<std::monostate, FolderItem, std::shared_ptr<browserItemCollection>,
                                 std::shared_ptr<iPhotoAlbum>, std::shared_ptr<iPhotoRoll>>;

  static constexpr LocalizedText kSelected{"multiViewFileBrowser.kSelected", "<x> of <t> selected"};
  static constexpr LocalizedText kFreeSpace{"multiViewFileBrowser.kFreeSpace", "available"};
  static constexpr LocalizedText kEmptyFolder{"multiViewFileBrowser.kEmptyFolder",
                                              "There is nothing here yet"};

  static constexpr LocalizedText kUnreadableFolder{"multiViewFileBrowser.kUnreadableFolder",
                                                   "You may not look into this folder"};

  multiViewFileBrowser(std::shared_ptr<const ThumbnailMaker> maker,
                       std::shared_ptr<const FilePreviewer> previewer, QWidget* parent = nullptr);
  ~multiViewFileBrowser() override;

  int Mode() const { return intMode; }
  void Mode(int mode);
  /// 16 to 256 for icons; 0 or 1, the height of rows, for the list.
  int IconSize() const { return intMode == kListView ? listViewSize : iconViewSize; }
  void IconSize(int size);
  /// Both sizes, whatever is on show.
  void IconSizes(int icons, int rows);
  int minIconSize() const { return intMode == kListView ? 0 : 16; }
  int maxIconSize() const { return intMode == kListView ? 1 : 256; }
  /// Cells stand in the middle of the width.
  bool hAlignColumns() const { return intMode == kColumnView; }
  /// Left edge of the bar between icons and preview; it is kept within the control.
  int SplitterPosition() const { return splitterPosition_; }
  void SplitterPosition(int position);
  bool AllowMultiSelect = true;
  bool showInvisibles = false;
  /// Shown where there is nothing; empty for the usual words.
  std::string EmptyText;
  std::string TextOfNothing() const;
  /// Extension of the program's documents, which are folders that are shown as files.
  std::string DocumentExtension;
  /// What photos tell; without it there is no order by it, and tips do not show it.
  std::shared_ptr<PhotoFactsCache> Facts;
  /// A tip can say more now.
  std::function<void(const std::shared_ptr<browserItem>& item)> ShotKnown;

  const Container& currentView() const { return currentView_; }
  /// The folder on show, or nil.
  FolderItem CurrentFolder() const;
  void DisplayItem(const Container& value);
  /// The same of a folder that was looked at already; nothing if it did not answer.
  void DisplayItem(const Container& value, const std::optional<FolderLister::Place>& found);
  /// Lists again; what is still there keeps its selection and its thumbnail.
  void ReloadCurrentView();
  /// True until the listing is complete.
  bool Listing() const { return lister_.Running(); }

  int Count() const { return rows_.Count(); }
  const BrowserPayload& item(int index) const { return rows_.Tag(index); }
  bool isItemSelected(int index) const { return rows_.Selected(index); }
  void isItemSelected(int index, bool selected);
  std::vector<BrowserPayload> SelectedItems() const;
  int SelectedCount() const { return rows_.SelectedCount(); }
  BrowserPayload SelectedItem(int index) const;
  int ListIndex() const { return rows_.ListIndex(); }
  void ListIndex(int row);
  void SelectAll();
  void UnselectAll();
  /// Selects the rows whose names contain the text, or equal it, and shows the first.
  void HighLightItem(const std::string& text, bool partial);
  void Remove(const std::shared_ptr<browserItem>& item);
  /// Selects the rows of these files alone, and shows the first; those that are still being listed
  /// as soon as they are there. By their places: names that look alike may be several.
  void SelectFiles(const std::vector<FolderItem>& files);
  /// Takes the selected rows away and selects the one that follows them.
  void RemoveSelected();
  /// The status line.
  std::string GetViewInfo() const;
  void Sort(int column, bool descending);
  /// One file or folder is selected.
  bool CanRename() const;
  /// A field over the name of the one that is selected; Return takes the new name, Escape the old.
  void BeginRename();
  /// The field while there is one, else null.
  QLineEdit* RenameField() { return rename_; }
  void Update();

  BrowserRows& Rows() { return rows_; }
  browserThumbnailGetter& myImageGetter() { return getter_; }
  /// A row's thumbnail or icon, fitted into a square of `side` units.
  QPixmap CellPicture(int row, int side);
  /// The thumbnail as far as it is there; null otherwise. Reads nothing.
  QImage Thumbnail(const BrowserPayload& payload);
  BrowserIconView& IconView() { return *icons_; }
  BrowserListView& ListView() { return *list_; }
  ColumnPreview& previewCanvas() { return *preview_; }
  ifkSplitter& splitter() { return *splitter_; }

  /// Lives while a menu is open or something is dragged out.
  std::function<std::shared_ptr<void>()> Holding;
  std::function<void(const BrowserPayload&)> OpenItem;
  std::function<void()> modeChanged;
  /// The lines of the preview were switched, or the bar beside it was moved.
  std::function<void()> PreviewChanged;
  std::function<void()> ListChanged;
  std::function<void()> SelectionChanged;
  std::function<void()> StartedToUpdateThumbnails;
  std::function<void()> FinishedUpdatingThumbnails;
  /// The folder on show is there no more.
  std::function<void()> FolderGone;
  std::function<void()> QuickLookAction;
  std::function<void()> TrashAction;
  /// A new name was typed; false leaves the old one.
  std::function<bool(const browserItem& item, const std::string& name)> RenameItem;
  /// The rows were put in another order by the user.
  std::function<void()> Sorted;
  /// Back (-1) or forward (1) through what was shown before.
  std::function<void(int direction)> Navigate;
  /// Up to the container of this one.
  std::function<void()> ShowEnclosing;
  /// Fills the menu for the selection; false for none.
  std::function<bool(QMenu&)> ConstructContextualMenu;
  /// Files were dropped on this folder.
  std::function<void(const std::vector<FolderItem>& files, const FolderItem& folder)> FilesDropped;

  // What both views do alike; public for them.

  /// A press on a row, or on nothing (-1).
  void PressRow(int row, Qt::KeyboardModifiers modifiers);
  /// True if the key was handled.
  bool HandleKey(QKeyEvent& event, int rowsPerPage, int perRow);
  /// True for the buttons of a mouse that go back and forward.
  bool HandleSideButton(Qt::MouseButton button);
  void StartDrag();
  /// The files of the selection as a drag hands them over; null if there are none.
  std::unique_ptr<QMimeData> DragData() const;
  /// The first picture of the selection with the number of files in its corner.
  QPixmap DragImage(int count);
  void ShowMenu(const QPoint& global);
  /// `chosen`: by somebody, not by reading the folder again.
  void RaiseSelectionChanged(bool chosen = true);
  /// Another number whenever somebody selects something else, or shows another folder.
  int Choices() const { return choices_; }
  /// A row as assistive tools are told of it: name, kind, size and date.
  AccessibleItem DescribeRow(int row, const QRect& place) const;
  /// What a tool tip says of a row: the whole name, where it is, and its facts.
  QString TipOf(int row);
  void AskShot(const std::shared_ptr<browserItem>& item);
  /// Reads the moments of photos that are needed and not known.
  void ReadMoments();
  /// A photo or a document, which may tell when it was taken.
  static bool MayTell(const browserItem& item);
  void TakeMoments(const std::vector<MomentReader::Told>& told);
  /// The rows that a view shows now: their thumbnails come first.
  void RowsInView(int first, int end);
  /// Where a drop at a row goes: its folder, else the folder on show; nil if it cannot take any.
  /// What is dragged from here itself cannot go into itself: `source` is what it is dragged from.
  FolderItem DropTarget(int row, const QObject* source) const;
  /// Answers a drag over a row: a copy, or nothing. True if it is taken.
  bool DragOver(QDropEvent& event, int row) const;
  void DragEnter(QDropEvent& event) const;
  void Drop(QDropEvent& event, int row);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct Scaled {
    qint64 of = 0;
    int side = 0;
    double ratio = 1;
    QPixmap pixmap;
  };
  void Lay();
  void Watch(const FolderItem& folder);
  void LeaveIfGone();
  void TakeListed(std::vector<BrowserRows::Row> rows, bool done);
  void RunGetter();
  /// Pixels that a thumbnail needs in the present view.
  int NeededSide() const;
  /// What has the thumbnail of a payload: the row's item, or one that stands for the photo of a
  /// library; null if there can be none.
  std::shared_ptr<browserItem> EntryOf(const BrowserPayload& payload);
  void MoveTo(int row, bool extend);
  /// Paints the rows whose pictures are new.
  void UpdateFresh();
  void UpdatePreview();
  void EndRename(bool take);
  void TypeAhead(const QString& text);
  void ScrollTo(int row);

  int intMode = kIconView;
  int iconViewSize = 128;
  int listViewSize = 0;
  Container currentView_;
  BrowserRows rows_;
  FolderLister lister_;
  /// The order with which it began.
  std::pair<int, bool> listed_{BrowserRows::kNameColumn, false};
  MomentReader moments_;
  browserThumbnailGetter getter_;
  BrowserIconView* icons_;
  BrowserListView* list_;
  ColumnPreview* preview_;
  ifkSplitter* splitter_;
  int splitterPosition_ = 320;
  QLineEdit* rename_ = nullptr;
  int choices_ = 0;
  std::shared_ptr<browserItem> renamed_;
  /// Null as long as the folder has not answered.
  std::unique_ptr<FolderWatch> watcher_;
  QTimer reload_;
  QTimer repaint_;
  /// Rows that were there before a reload, by their paths.
  std::unordered_map<std::string, BrowserRows::Row> before_;
  bool reloading_ = false;
  /// Paths of files that are to be selected when they are listed.
  std::unordered_set<std::string> wanted_;
  /// A reload still reads: the selection is told when it ends.
  bool slowReload_ = false;
  QString typed_;
  QTimer typing_;
  /// Where a range began that is selected by keys.
  int anchor_ = -1;
  std::unordered_map<std::shared_ptr<iPhotoItem>, std::shared_ptr<browserItem>> photos_;
  std::size_t scaledMost_ = 0;
  /// The rows that were last painted, and entries whose pictures came since.
  int inViewFirst_ = 0;
  int inViewEnd_ = 0;
  std::unordered_set<const browserItem*> fresh_;
  std::list<std::pair<const void*, Scaled>> scaled_;
  std::unordered_map<const void*, std::list<std::pair<const void*, Scaled>>::iterator> scaledAt_;
};

}  // namespace brivolant
