// SPDX-License-Identifier: MIT
#include "app/info/UnsavedInfos.h"

#include <sys/stat.h>

#include <QCryptographicHash>
#include <algorithm>

#include "formats/BinaryDictionary.h"

namespace brivolant {
namespace {

constexpr const char* kFile = "File";
constexpr const char* kCount = "Count";
constexpr const char* kBlock = "Block";
constexpr const char* kTag = "Tag";
constexpr const char* kAct = "Act";
constexpr const char* kText = "Text";
constexpr const char* kHasText = "HasText";
/// Nobody types more.
constexpr int kMost = 100000;

}  // namespace

FolderItem UnsavedInfos::Place(const FolderItem& file) const {
  const std::string path = file.ShellPath();
  return folder_.Child(
      QCryptographicHash::hash(QByteArray::fromStdString(path), QCryptographicHash::Md5)
          .toHex()
          .toStdString() +
      ".edits");
}

void UnsavedInfos::Keep(const FolderItem& file, const std::vector<MetadataChange>& changes) {
  const FolderItem place = Place(file);
  if (changes.empty()) {
    if (place.Exists() && place.Delete()) log_.Write("Not deleted: " + place.DisplayName());
    return;
  }
  if (!folder_.Exists()) {
    (void)folder_.CreateAsFolder();
    // What people say of their photos is nobody else's.
    (void)chmod(folder_.Path().c_str(), S_IRWXU);
  }
  Dictionary all;
  all.Value(kFile, file.ShellPath());
  all.Value(kCount, static_cast<int>(changes.size()));
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const MetadataChange& change = changes[i];
    Dictionary one;
    one.Value(kBlock, static_cast<int>(change.Block));
    one.Value(kTag, change.Tag);
    one.Value(kAct, static_cast<int>(change.What));
    one.Value(kHasText, change.Text.has_value());
    one.Value(kText, change.Text.value_or(""));
    all.Value(std::to_string(i), one);
  }
  if (!BinaryDictionary::SaveAsBinaryDictionary(place, all, nullptr)) {
    log_.Write("What was entered of \"" + file.DisplayName() + "\" could not be kept.");
  }
}

std::vector<MetadataChange> UnsavedInfos::Of(const FolderItem& file) const {
  std::vector<MetadataChange> changes;
  const FolderItem place = Place(file);
  if (!place.Exists()) return changes;
  const auto all = BinaryDictionary::OpenAsBinaryDictionary(place);
  if (!all || all->Lookup(kFile, "").ToText() != file.ShellPath()) return changes;
  const int count = std::clamp(all->Lookup(kCount, 0).ToInt(), 0, kMost);
  for (int i = 0; i < count; ++i) {
    const auto* one = all->Value(std::to_string(i)).As<Dictionary>();
    if (one == nullptr) return {};
    const int block = one->Lookup(kBlock, -1).ToInt();
    const int act = one->Lookup(kAct, -1).ToInt();
    if (block < 0 || block > static_cast<int>(MetadataBlock::kComment) || act < 0 ||
        act > static_cast<int>(MetadataChange::Act::kRemove)) {
      return {};
    }
    MetadataChange change{static_cast<MetadataChange::Act>(act), static_cast<MetadataBlock>(block),
                          one->Lookup(kTag, "").ToText()};
    if (one->Lookup(kHasText, false).ToBool()) change.Text = one->Lookup(kText, "").ToText();
    changes.push_back(std::move(change));
  }
  return changes;
}

std::vector<FolderItem> UnsavedInfos::Files() const {
  std::vector<FolderItem> files;
  for (const FolderItem& place : folder_.Children()) {
    if (!place.Name().ends_with(".edits")) continue;
    const auto all = BinaryDictionary::OpenAsBinaryDictionary(place);
    const std::string path = all ? all->Lookup(kFile, "").ToText() : std::string();
    if (!path.empty()) files.emplace_back(path);
  }
  return files;
}

}  // namespace brivolant
