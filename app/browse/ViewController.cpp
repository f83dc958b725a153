// SPDX-License-Identifier: MIT
#include "app/browse/ViewController.h"

#include <QScopedValueRollback>
#include <algorithm>

#include "app/browse/BrowserPane.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "browser/ui/ColumnPreview.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"

namespace brivolant {
namespace {

constexpr const char* kIconSizeKey = "imageBrowser.IconSize";
constexpr const char* kRowSizeKey = "imageBrowser.RowSize";

}  // namespace

ViewController::ViewController(const Desk& desk, Commands& commands, BrowserPane& pane)
    : desk_(desk), commands_(commands), pane_(pane) {
  Wire();
  AddViews();
  AddOrders();
}

void ViewController::Wire() {
  multiViewFileBrowser& browser = *pane_.imageBrowser;
  browser.modeChanged = [this] { ModeChanged(); };
  browser.PreviewChanged = [this] {
    desk_.Preferences.Assign("PreviewDisplayMetaData",
                             pane_.imageBrowser->previewCanvas().PreviewDisplayMetaData());
    desk_.Preferences.Assign("imageBrowser.splitter", pane_.imageBrowser->SplitterPosition());
  };
  browser.Sorted = [this] {
    desk_.Preferences.Assign("imageBrowser.sortColumn", pane_.imageBrowser->Rows().SortColumn());
    desk_.Preferences.Assign("imageBrowser.sortDescending",
                             pane_.imageBrowser->Rows().Descending());
    commands_.Changed();
  };
  pane_.browserViewStyle->Action = [this](SegmentViewPiece& piece) {
    pane_.imageBrowser->Mode(piece.Tag.ToInt());
  };
  pane_.iconSize->ValueChanged = [this] {
    if (updating_) return;
    pane_.imageBrowser->IconSize(pane_.iconSize->value());
    KeepIconSize();
  };
}

void ViewController::Restore() {
  auto& preferences = desk_.Preferences;
  pane_.imageBrowser->previewCanvas().PreviewDisplayMetaData(
      preferences.Value("PreviewDisplayMetaData", true).ToBool());
  pane_.imageBrowser->SplitterPosition(
      preferences.Value("imageBrowser.splitter", pane_.imageBrowser->SplitterPosition()).ToInt());
  const int mode =
      std::clamp<int>(preferences.Value("imageBrowser.mode", 0).ToInt(),
                      multiViewFileBrowser::kIconView, multiViewFileBrowser::kColumnView);
  // Each view has a size of its own, also those that are not on show.
  const int icons = preferences.Value(kIconSizeKey, 128).ToInt();
  const int rows = preferences.Value(kRowSizeKey, 0).ToInt();
  pane_.imageBrowser->IconSizes(icons, rows);
  pane_.imageBrowser->Mode(mode);
  pane_.imageBrowser->Sort(std::clamp<int>(preferences.Value("imageBrowser.sortColumn", 0).ToInt(),
                                           BrowserRows::kNameColumn, BrowserRows::kTakenColumn),
                           preferences.Value("imageBrowser.sortDescending", false).ToBool());
  ModeChanged();
}

void ViewController::ModeChanged() {
  const int mode = pane_.imageBrowser->Mode();
  for (int i = 0; i <= pane_.browserViewStyle->Count(); ++i) {
    pane_.browserViewStyle->Segment(i).Selected =
        pane_.browserViewStyle->Segment(i).Tag.ToInt() == mode;
  }
  pane_.browserViewStyle->update();
  desk_.Preferences.Assign("imageBrowser.mode", mode);
  KeepIconSize();
  {
    const QScopedValueRollback updating(updating_, true);
    pane_.iconSize->Minimum = pane_.imageBrowser->minIconSize();
    pane_.iconSize->Maximum = pane_.imageBrowser->maxIconSize();
    pane_.iconSize->value(pane_.imageBrowser->IconSize());
  }
  pane_.iconSize->update();
  commands_.Changed();
}

void ViewController::KeepIconSize() {
  const bool list = pane_.imageBrowser->Mode() == multiViewFileBrowser::kListView;
  desk_.Preferences.Assign(list ? kRowSizeKey : kIconSizeKey, pane_.imageBrowser->IconSize());
}

void ViewController::AddViews() {
  using namespace Menus;
  multiViewFileBrowser& browser = *pane_.imageBrowser;
  struct View {
    const char* name;
    const LocalizedText& text;
    const char* shortcut;
    int mode;
  };
  for (const View& view :
       {View{"ViewAsIcons", kViewAsIcons, "Ctrl+1", multiViewFileBrowser::kIconView},
        {"ViewAsList", kViewAsList, "Ctrl+2", multiViewFileBrowser::kListView},
        {"ViewAsColumns", kViewAsColumns, "Ctrl+3", multiViewFileBrowser::kColumnView}}) {
    commands_.Add({{view.name, &view.text, view.shortcut, kInBrowser,
                    [&browser, mode = view.mode] { browser.Mode(mode); }, nullptr,
                    [&browser, mode = view.mode] { return browser.Mode() == mode; }}});
  }
  commands_.Add({
      {"ViewShowHiddenFiles", &kViewShowHiddenFiles, "Ctrl+H", kInBrowser,
       [&browser] {
         browser.showInvisibles = !browser.showInvisibles;
         browser.ReloadCurrentView();
       },
       nullptr, [&browser] { return browser.showInvisibles; }},
      {"EditSelectAll", &kEditSelectAll, "Ctrl+A", kInBrowser, [&browser] { browser.SelectAll(); }},
      {"EditSelectNone", &kEditSelectNone, "Ctrl+Shift+A", kInBrowser,
       [&browser] { browser.UnselectAll(); }},
  });
}

void ViewController::AddOrders() {
  using namespace Menus;
  multiViewFileBrowser& browser = *pane_.imageBrowser;
  struct Order {
    const char* name;
    const LocalizedText& text;
    int column;
  };
  for (const Order& order :
       {Order{"ViewSortByName", BrowserRows::kName, BrowserRows::kNameColumn},
        {"ViewSortByKind", BrowserRows::kKind, BrowserRows::kKindColumn},
        {"ViewSortBySize", BrowserRows::kFileSize, BrowserRows::kSizeColumn},
        {"ViewSortByDate", BrowserRows::kModDate, BrowserRows::kDateColumn},
        {"ViewSortByTaken", BrowserRows::kTakenDate, BrowserRows::kTakenColumn}}) {
    commands_.Add(
        {{order.name, &order.text, "", kInBrowser, [this, column = order.column] { Sort(column); },
          nullptr,
          [&browser, column = order.column] { return browser.Rows().SortColumn() == column; }}});
  }
  commands_.Add({
      {"ViewSortBy", &kViewSortBy, "", kInBrowser},
      {"ViewSortDescending", &kViewSortDescending, "", kInBrowser, [this] { Sort(-1); }, nullptr,
       [&browser] { return browser.Rows().Descending(); }},
  });
}

void ViewController::Sort(int column) {
  const BrowserRows& rows = pane_.imageBrowser->Rows();
  const bool descending = column < 0 ? !rows.Descending() : rows.Descending();
  pane_.imageBrowser->Sort(column < 0 ? rows.SortColumn() : column, descending);
}

}  // namespace brivolant
