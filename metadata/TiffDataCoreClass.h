// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "metadata/TagCatalog.h"
#include "metadata/TagValue.h"

namespace brivolant {

class ImageMetaData;

/// A block of metadata: tags, each with a list of values. A tag is known by its text, four
/// upper-case hexadecimal digits in most blocks. Values of a tag are counted from 1, tags from 0.
class TiffDataCoreClass {
 public:
  struct Entry {
    std::string Tag;
    /// As in the file, or as the block knows it; 0 if neither does.
    int Type = 0;
    std::vector<TagValue> Values;
  };

  /// With what a standard says of its tags.
  explicit TiffDataCoreClass(std::span<const CatalogTag> catalog) : catalog_(catalog) {}
  virtual ~TiffDataCoreClass() = default;
  TiffDataCoreClass(const TiffDataCoreClass&) = delete;
  TiffDataCoreClass& operator=(const TiffDataCoreClass&) = delete;

  /// All tags, in the order in which they came.
  const std::vector<Entry>& AllData() const { return entries_; }
  /// Appends to the tag's list, and makes it if it is not there.
  void AddData(const std::string& tag, int type, std::vector<TagValue> values);
  void AddData(const std::string& tag, int type, TagValue value);
  /// Nil where there is none.
  TagValue Value(const std::string& tag, int index) const;
  /// Takes out the value at `index` and appends the new one, so that what changed comes last.
  void Value(const std::string& tag, int index, TagValue value);
  std::string Key(int index) const;
  int Count() const { return static_cast<int>(entries_.size()); }
  TagValue Lookup(const std::string& tag, const TagValue& otherwise, int index) const;
  bool hasKey(const std::string& tag) const { return places_.contains(tag); }
  /// What the user sees of a tag: of a list the first six values.
  std::string StringValue(const std::string& tag) const;
  std::string StringValue(const std::string& tag, const TagValue& value) const;
  std::string TagName(const std::string& tag) const;
  int TagType(const std::string& tag) const;
  /// Keeps the bytes, and makes tags of them.
  void ReadRawData(std::string bytes);
  /// The tags as bytes; of a block that makes none, those that it was read from.
  std::string asRawData() const;
  int ValueCount(const std::string& tag) const;
  /// A list that becomes empty takes its tag along. What is not there is passed over.
  void Remove(const std::string& tag, int index);

  ImageMetaData* parent = nullptr;
  std::string myRawData;

 protected:
  virtual std::string handleStringValue(const std::string& tag, const TagValue& value) const;
  virtual int ReturnTagType(const std::string& tag) const;
  virtual void ProcessRawData(std::string_view bytes);
  virtual std::string GetDataAsRawData() const;
  /// What most tags show: bytes in hexadecimal, the first thirty of them, or the value as text. A
  /// text that is empty becomes "Unknown" and the bytes.
  std::string PlainStringValue(const std::string& tag, const TagValue& value) const;
  static std::string OrUnknown(std::string text, const TagValue& value);

 private:
  const Entry* Find(const std::string& tag) const;

  std::span<const CatalogTag> catalog_;
  std::vector<Entry> entries_;
  /// Where each tag is in them.
  std::unordered_map<std::string, std::size_t> places_;
};

}  // namespace brivolant
