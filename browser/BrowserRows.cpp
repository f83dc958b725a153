// SPDX-License-Identifier: MIT
#include "browser/BrowserRows.h"

#include <algorithm>
#include <array>

#include "files/FolderitemExtensions.h"
#include "files/NaturalOrder.h"
#include "platform/values/Numbers.h"

namespace brivolant {
namespace {

using FolderitemExtensions::AsFileSize;
using ItemPointer = std::shared_ptr<browserItem>;

std::string SizeText(std::uint64_t bytes) {
  return std::to_string(bytes) + " " + AsFileSize(static_cast<double>(bytes), ".00");
}

std::string CountText(int count) {
  const std::string number = std::to_string(count);
  return number + " " + number + " " +
         (count == 1 ? BrowserRows::kitem : BrowserRows::kItems).Text();
}

std::string DateText(const Date& date) {
  std::string key = PaddedNumber(date.Year, 4);
  for (const int part : {date.Month, date.Day, date.Hour, date.Minute, date.Second}) {
    key += PaddedNumber(part, 2);
  }
  return key + " " + FolderitemExtensions::RelativeDateTime(date, Date::Now());
}

const browserItem* ItemOf(const BrowserPayload& payload) {
  const auto* item = std::get_if<ItemPointer>(&payload);
  return item == nullptr ? nullptr : item->get();
}

bool IsFolder(const BrowserPayload& payload) {
  const browserItem* item = ItemOf(payload);
  return item != nullptr && item->Facts && item->Facts->Is == FileFacts::kFolder;
}

std::int64_t TimeOf(const BrowserPayload& payload) {
  if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) {
    return (*photo)->DateTime().UnixTime();
  }
  const browserItem* item = ItemOf(payload);
  return item != nullptr && item->Facts ? item->Facts->Modified : 0;
}

/// Photos that do not tell stand where they were last changed.
std::int64_t TakenOf(const BrowserPayload& payload) {
  const browserItem* item = ItemOf(payload);
  return item != nullptr && item->Taken.value_or(0) != 0 ? *item->Taken : TimeOf(payload);
}

std::uint64_t SizeOf(const BrowserPayload& payload) {
  if (const auto* roll = std::get_if<std::shared_ptr<iPhotoRoll>>(&payload)) {
    return static_cast<std::uint64_t>((*roll)->Count());
  }
  const browserItem* item = ItemOf(payload);
  if (item == nullptr) return 0;
  if (std::holds_alternative<VolumeItem>(item->item)) return item->Volume.Capacity;
  return item->Facts ? item->Facts->Size : 0;
}

std::string KindText(const BrowserPayload& payload) {
  if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) {
    return (*photo)->MediaType;
  }
  if (std::holds_alternative<std::shared_ptr<iPhotoRoll>>(payload)) {
    return iPhotoRoll::kTypeAsString.Text();
  }
  const browserItem* item = ItemOf(payload);
  if (item == nullptr) return {};
  if (std::holds_alternative<VolumeItem>(item->item)) return item->Volume.Media;
  const auto* file = std::get_if<FolderItem>(&item->item);
  if (file == nullptr) return {};
  const FileFacts facts = item->Facts.value_or(FileFacts());
  if (facts.Is == FileFacts::kAlias) return BrowserRows::kAlias.Text();
  if (facts.Is == FileFacts::kFolder) return BrowserRows::kFolder.Text();
  return FolderitemExtensions::KindByName(*file);
}

}  // namespace

std::string BrowserRows::NameOf(const BrowserPayload& payload) {
  struct Visitor {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(const ItemPointer& item) const { return item->Name; }
    std::string operator()(const std::shared_ptr<browserItemCollection>& c) const {
      return c->Name;
    }
    std::string operator()(const std::shared_ptr<iPhotoItem>& photo) const {
      return photo->Caption;
    }
    std::string operator()(const std::shared_ptr<iPhotoRoll>& roll) const { return roll->Name; }
  };
  return std::visit(Visitor(), payload);
}

std::shared_ptr<browserItem> BrowserRows::Item(int row) const {
  const auto* item = std::get_if<ItemPointer>(&Tag(row));
  return item == nullptr ? nullptr : *item;
}

std::string BrowserRows::CellText(int row, int column) const {
  const BrowserPayload& payload = Tag(row);
  if (column == kNameColumn) return NameOf(payload);
  if (column == kKindColumn) return KindText(payload);
  const browserItem* item = ItemOf(payload);
  if (column == kDateColumn) {
    if (std::holds_alternative<std::shared_ptr<iPhotoItem>>(payload)) {
      return DateText(std::get<std::shared_ptr<iPhotoItem>>(payload)->DateTime());
    }
    if (item != nullptr && std::holds_alternative<VolumeItem>(item->item)) {
      const std::int64_t modified = item->Volume.Modified;
      return modified == 0 ? std::string() : DateText(Date::FromUnixTime(modified));
    }
    return item != nullptr && item->Facts ? DateText(Date::FromUnixTime(item->Facts->Modified))
                                          : std::string();
  }
  if (const auto* roll = std::get_if<std::shared_ptr<iPhotoRoll>>(&payload)) {
    return CountText((*roll)->Count());
  }
  if (const auto* folder = std::get_if<std::shared_ptr<browserItemCollection>>(&payload)) {
    return CountText((*folder)->Count());
  }
  if (item == nullptr || std::holds_alternative<std::shared_ptr<iPhotoItem>>(payload)) return {};
  // A volume that has not answered yet.
  if (std::holds_alternative<VolumeItem>(item->item) && !item->Volume.Known) return {};
  const FileFacts facts = item->Facts.value_or(FileFacts());
  if (facts.Is == FileFacts::kAlias || facts.Is == FileFacts::kFolder) return "0 --";
  if (facts.Is == FileFacts::kPlain) return SizeText(SizeOf(payload));
  return SizeText(0);
}

std::string BrowserRows::ShownText(int row, int column) const {
  std::string text = CellText(row, column);
  if (column < kSizeColumn) return text;
  const std::size_t blank = text.find(' ');
  return blank == std::string::npos ? text : text.substr(blank + 1);
}

bool BrowserRows::AddItem(BrowserPayload value) {
  if (std::holds_alternative<std::monostate>(value)) return false;
  if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&value)) {
    if ((*photo)->ImagePath.empty()) return false;
  }
  rows_.push_back({std::move(value), false, std::nullopt});
  return true;
}

void BrowserRows::Remove(int row) {
  if (Selected(row)) --selected_;
  rows_.erase(rows_.begin() + row);
  if (listIndex_ >= Count()) listIndex_ = Count() - 1;
}

void BrowserRows::RemoveSelected() {
  if (selected_ == 0) return;
  const int first = SelectedRows().front();
  std::erase_if(rows_, [](const Row& row) { return row.selected; });
  selected_ = 0;
  ListIndex(std::min(first, Count() - 1));
}

void BrowserRows::RemoveAllItems() {
  rows_.clear();
  selected_ = 0;
  listIndex_ = -1;
}

bool BrowserRows::Before(const Row& a, const Row& b, int column, bool descending) {
  const bool folderA = IsFolder(a.tag);
  const bool folderB = IsFolder(b.tag);
  if (folderA != folderB) return folderA;
  const auto byName = [&] { return a.key && b.key ? a.key->compare(*b.key) : 0; };
  int order = 0;
  if (column == kSizeColumn) {
    const std::uint64_t sizeA = SizeOf(a.tag);
    const std::uint64_t sizeB = SizeOf(b.tag);
    order = sizeA < sizeB ? -1 : sizeA > sizeB ? 1 : 0;
  } else if (column == kDateColumn || column == kTakenColumn) {
    const auto time = column == kDateColumn ? TimeOf : TakenOf;
    const std::int64_t timeA = time(a.tag);
    const std::int64_t timeB = time(b.tag);
    order = timeA < timeB ? -1 : timeA > timeB ? 1 : 0;
  } else if (column == kNameColumn) {
    order = byName();
  }
  if (order == 0 && column != kNameColumn) return byName() < 0;
  return descending ? order > 0 : order < 0;
}

void BrowserRows::Sort(std::vector<Row>& rows, int column, bool descending) {
  if (column != kKindColumn) {
    std::stable_sort(rows.begin(), rows.end(),
                     [&](const Row& a, const Row& b) { return Before(a, b, column, descending); });
    return;
  }
  // The kind's words are found once a row, not once a comparison.
  std::vector<std::pair<std::string, std::size_t>> kinds;
  kinds.reserve(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) kinds.emplace_back(KindText(rows[i].tag), i);
  std::stable_sort(kinds.begin(), kinds.end(), [&](const auto& a, const auto& b) {
    const Row& rowA = rows[a.second];
    const Row& rowB = rows[b.second];
    if (IsFolder(rowA.tag) != IsFolder(rowB.tag)) return IsFolder(rowA.tag);
    if (a.first != b.first) return descending ? a.first > b.first : a.first < b.first;
    return Before(rowA, rowB, kNameColumn, false);
  });
  std::vector<Row> sorted;
  sorted.reserve(rows.size());
  for (const auto& [kind, index] : kinds) sorted.push_back(std::move(rows[index]));
  rows = std::move(sorted);
}

void BrowserRows::Sort(int column, bool descending) {
  column_ = column;
  descending_ = descending;
  const BrowserPayload* current = listIndex_ >= 0 && listIndex_ < Count()
                                      ? &rows_[static_cast<std::size_t>(listIndex_)].tag
                                      : nullptr;
  const BrowserPayload kept = current == nullptr ? BrowserPayload() : *current;
  const NaturalOrder natural;
  for (Row& row : rows_) {
    if (!row.key) row.key = natural.Key(NameOf(row.tag));
  }
  Sort(rows_, column, descending);
  for (int i = 0; current != nullptr && i < Count(); ++i) {
    if (Tag(i) == kept) listIndex_ = i;
  }
}

void BrowserRows::Merge(std::vector<Row> rows) {
  const BrowserPayload kept =
      listIndex_ >= 0 && listIndex_ < Count() ? Tag(listIndex_) : BrowserPayload();
  if (rows_.empty()) {
    rows_ = std::move(rows);
  } else if (column_ == kKindColumn) {
    rows_.insert(rows_.end(), std::make_move_iterator(rows.begin()),
                 std::make_move_iterator(rows.end()));
    Sort(rows_, column_, descending_);
  } else {
    const auto middle = static_cast<std::ptrdiff_t>(rows_.size());
    rows_.insert(rows_.end(), std::make_move_iterator(rows.begin()),
                 std::make_move_iterator(rows.end()));
    std::inplace_merge(
        rows_.begin(), rows_.begin() + middle, rows_.end(),
        [&](const Row& a, const Row& b) { return Before(a, b, column_, descending_); });
  }
  if (!std::holds_alternative<std::monostate>(kept)) {
    for (int i = 0; i < Count(); ++i) {
      if (Tag(i) == kept) listIndex_ = i;
    }
  }
  Recount();
}

void BrowserRows::Recount() {
  selected_ = static_cast<int>(
      std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.selected; }));
}

void BrowserRows::Select(int row, bool selected) {
  bool& present = rows_[static_cast<std::size_t>(row)].selected;
  if (present == selected) return;
  present = selected;
  selected_ += selected ? 1 : -1;
}

void BrowserRows::SelectAll(bool selected) {
  for (Row& row : rows_) row.selected = selected;
  selected_ = selected ? Count() : 0;
}

std::vector<int> BrowserRows::SelectedRows() const {
  std::vector<int> selected;
  selected.reserve(static_cast<std::size_t>(selected_));
  for (int i = 0; i < Count() && static_cast<int>(selected.size()) < selected_; ++i) {
    if (Selected(i)) selected.push_back(i);
  }
  return selected;
}

void BrowserRows::ListIndex(int row) {
  if (selected_ > 0) SelectAll(false);
  listIndex_ = row;
  if (row >= 0) Select(row, true);
}

}  // namespace brivolant
