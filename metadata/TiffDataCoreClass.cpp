// SPDX-License-Identifier: MIT
#include "metadata/TiffDataCoreClass.h"

#include <algorithm>
#include <utility>

#include "platform/values/Text.h"

namespace brivolant {
namespace {

/// Values of a list, and bytes of one, that are shown.
constexpr std::size_t kShownValues = 6;
constexpr std::size_t kShownBytes = 30;

bool Has(const TiffDataCoreClass::Entry* entry, int index) {
  return entry != nullptr && index >= 1 && static_cast<std::size_t>(index) <= entry->Values.size();
}

}  // namespace

const TiffDataCoreClass::Entry* TiffDataCoreClass::Find(const std::string& tag) const {
  const auto found = places_.find(tag);
  return found == places_.end() ? nullptr : &entries_[found->second];
}

void TiffDataCoreClass::AddData(const std::string& tag, int type, std::vector<TagValue> values) {
  const auto [place, fresh] = places_.try_emplace(tag, entries_.size());
  if (fresh) entries_.push_back({tag, type, {}});
  Entry& entry = entries_[place->second];
  entry.Type = type;
  entry.Values.insert(entry.Values.end(), std::make_move_iterator(values.begin()),
                      std::make_move_iterator(values.end()));
}

void TiffDataCoreClass::AddData(const std::string& tag, int type, TagValue value) {
  std::vector<TagValue> values;
  values.push_back(std::move(value));
  AddData(tag, type, std::move(values));
}

TagValue TiffDataCoreClass::Value(const std::string& tag, int index) const {
  const Entry* entry = Find(tag);
  return Has(entry, index) ? entry->Values[static_cast<std::size_t>(index - 1)] : TagValue();
}

void TiffDataCoreClass::Value(const std::string& tag, int index, TagValue value) {
  const Entry* entry = Find(tag);
  if (entry == nullptr) return AddData(tag, ReturnTagType(tag), std::move(value));
  std::vector<TagValue>& values = entries_[places_.at(tag)].Values;
  if (Has(entry, index)) values.erase(values.begin() + (index - 1));
  values.push_back(std::move(value));
}

std::string TiffDataCoreClass::Key(int index) const {
  return index < 0 || index >= Count() ? std::string()
                                       : entries_[static_cast<std::size_t>(index)].Tag;
}

TagValue TiffDataCoreClass::Lookup(const std::string& tag, const TagValue& otherwise,
                                   int index) const {
  return hasKey(tag) ? Value(tag, index) : otherwise;
}

std::string TiffDataCoreClass::StringValue(const std::string& tag) const {
  const Entry* entry = Find(tag);
  if (entry == nullptr) return {};
  if (entry->Values.size() == 1) return handleStringValue(tag, entry->Values.front());
  std::string text = "[";
  const std::size_t shown = std::min(entry->Values.size(), kShownValues);
  for (std::size_t i = 0; i < shown; ++i) {
    if (i > 0) text += ", ";
    text += handleStringValue(tag, entry->Values[i]);
  }
  if (shown == kShownValues) text += "...";
  return text + "]";
}

std::string TiffDataCoreClass::StringValue(const std::string& tag, const TagValue& value) const {
  return hasKey(tag) ? handleStringValue(tag, value) : std::string();
}

std::string TiffDataCoreClass::TagName(const std::string& tag) const {
  std::string name = TagCatalog::NameOf(catalog_, tag);
  return name.empty() ? "unknown TagID: \"" + tag + "\"" : name;
}

int TiffDataCoreClass::TagType(const std::string& tag) const {
  const Entry* entry = Find(tag);
  return entry != nullptr && entry->Type != 0 ? entry->Type : ReturnTagType(tag);
}

void TiffDataCoreClass::ReadRawData(std::string bytes) {
  myRawData = std::move(bytes);
  ProcessRawData(myRawData);
}

std::string TiffDataCoreClass::asRawData() const {
  std::string bytes = GetDataAsRawData();
  return bytes.empty() ? myRawData : bytes;
}

int TiffDataCoreClass::ValueCount(const std::string& tag) const {
  const Entry* entry = Find(tag);
  return entry == nullptr ? 0 : static_cast<int>(entry->Values.size());
}

void TiffDataCoreClass::Remove(const std::string& tag, int index) {
  const Entry* entry = Find(tag);
  if (!Has(entry, index)) return;
  const std::size_t place = places_.at(tag);
  std::vector<TagValue>& values = entries_[place].Values;
  values.erase(values.begin() + (index - 1));
  if (!values.empty()) return;
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(place));
  places_.erase(tag);
  for (auto& [other, at] : places_) {
    if (at > place) --at;
  }
}

std::string TiffDataCoreClass::handleStringValue(const std::string& tag,
                                                 const TagValue& value) const {
  return PlainStringValue(tag, value);
}

int TiffDataCoreClass::ReturnTagType(const std::string& tag) const {
  return TagCatalog::TypeOf(catalog_, tag);
}

void TiffDataCoreClass::ProcessRawData(std::string_view) {}

std::string TiffDataCoreClass::GetDataAsRawData() const {
  return {};
}

std::string TiffDataCoreClass::PlainStringValue(const std::string& tag,
                                                const TagValue& value) const {
  if (TagType(tag) == kUndefinedType) return AsHex(BytesOf(value).substr(0, kShownBytes));
  return OrUnknown(TextOf(value), value);
}

std::string TiffDataCoreClass::OrUnknown(std::string text, const TagValue& value) {
  if (!text.empty()) return text;
  if (!std::holds_alternative<std::string>(value)) {
    const auto number = static_cast<std::uint32_t>(WholeNumberOf(value));
    return "Unknown " + Hexadecimal(number, 2);
  }
  return "Unknown " + AsHex(BytesOf(value).substr(0, kShownBytes));
}

}  // namespace brivolant
