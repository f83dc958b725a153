// SPDX-License-Identifier: MIT
#pragma once

#include <QCollator>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "browser/browserItem.h"
#include "platform/values/Text.h"

namespace brivolant {

/// The one model of the browser: rows in their order, each with its payload and whether it is
/// selected. All views are painted from it. Belongs to one thread.
class BrowserRows {
 public:
  static constexpr LocalizedText kName{"multiViewFileBrowser.kName", "Name"};
  static constexpr LocalizedText kKind{"multiViewFileBrowser.kKind", "Kind"};
  static constexpr LocalizedText kFileSize{"multiViewFileBrowser.kFileSize", "Size"};
  static constexpr LocalizedText kModDate{"multiViewFileBrowser.kModDate", "Date Modified"};
  static constexpr LocalizedText kAlias{"multiViewFileBrowser.kAlias", "Alias"};
  static constexpr LocalizedText kFolder{"multiViewFileBrowser.kFolder", "Folder"};
  static constexpr LocalizedText kitem{"multiViewFileBrowser.kitem", "Item"};
  static constexpr LocalizedText kItems{"multiViewFileBrowser.kItems", "Items"};

  static constexpr LocalizedText kTakenDate{"multiViewFileBrowser.kTakenDate", "Date Taken"};

  /// The last is an order, and no column of a list.
  enum Column {
    kNameColumn = 0,
    kKindColumn = 1,
    kSizeColumn = 2,
    kDateColumn = 3,
    kTakenColumn = 4
  };

  struct Row {
    BrowserPayload tag;
    bool selected = false;
    /// Of the name, as long as rows are kept in an order.
    std::optional<QCollatorSortKey> key;
  };

  int Count() const { return static_cast<int>(rows_.size()); }
  const BrowserPayload& Tag(int row) const { return rows_[static_cast<std::size_t>(row)].tag; }
  /// The row's item, or null if it is of another kind.
  std::shared_ptr<browserItem> Item(int row) const;
  /// Name of a payload.
  static std::string NameOf(const BrowserPayload& payload);
  std::string Name(int row) const { return NameOf(Tag(row)); }
  /// The text of a cell. Sizes and dates begin with a key for sorting and a blank; ShownText is
  /// what follows.
  std::string CellText(int row, int column) const;
  std::string ShownText(int row, int column) const;
  /// False for a payload that the browser does not show.
  bool AddItem(BrowserPayload value);
  void Remove(int row);
  /// The current row is then the one that followed the first of them, selected.
  void RemoveSelected();
  void RemoveAllItems();
  /// Takes rows that come sorted, each at its place.
  void Merge(std::vector<Row> rows);

  // The order: folders first, then by the column, then by name.
  int SortColumn() const { return column_; }
  bool Descending() const { return descending_; }
  void Sort(int column, bool descending);
  /// Sorts rows by name keys that are there.
  static void Sort(std::vector<Row>& rows, int column, bool descending);

  // The selection.
  bool Selected(int row) const { return rows_[static_cast<std::size_t>(row)].selected; }
  void Select(int row, bool selected);
  void SelectAll(bool selected);
  int SelectedCount() const { return selected_; }
  std::vector<int> SelectedRows() const;
  /// The row that keys move from; -1 for none. Setting it selects that row alone.
  int ListIndex() const { return listIndex_; }
  void ListIndex(int row);
  /// The same without a change of the selection.
  void MoveTo(int row) { listIndex_ = row; }

 private:
  static bool Before(const Row& a, const Row& b, int column, bool descending);
  void Recount();

  std::vector<Row> rows_;
  int selected_ = 0;
  int listIndex_ = -1;
  int column_ = kNameColumn;
  bool descending_ = false;
};

}  // namespace brivolant
