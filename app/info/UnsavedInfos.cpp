// SPDX-License-Identifier: MIT
#include "app/info/UnsavedInfos.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <algorithm>
#include <cstdio>

#include "formats/BinaryDictionary.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/FileNames.h"

namespace brivolant {
namespace {

constexpr const char* kFile = "File";
constexpr const char* kChanges = "Changes";
constexpr const char* kBefore = "Before";
constexpr const char* kBlock = "Block";
constexpr const char* kTag = "Tag";
constexpr const char* kAct = "Act";
constexpr const char* kText = "Text";
constexpr const char* kTexts = "Texts";
constexpr std::string_view kEnding = ".edits";
constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 26;

/// Whole or not at all, but not through to the disk: what ends a program leaves the system's own
/// memory alone, and the window would wait.
bool WriteQuickly(const FolderItem& file, const std::string& bytes) {
  const std::string beside = file.ShellPath() + ".new";
  const int opened = open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW,
                          S_IRUSR | S_IWUSR);
  if (opened < 0) return false;
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t put = write(opened, bytes.data() + done, bytes.size() - done);
    if (put <= 0) break;
    done += static_cast<std::size_t>(put);
  }
  const bool whole = close(opened) == 0 && done == bytes.size();
  return whole && std::rename(beside.c_str(), file.Path().c_str()) == 0;
}

Dictionary PlaceOf(MetadataBlock block, const std::string& tag) {
  Dictionary place;
  place.Value(kBlock, static_cast<int>(block));
  place.Value(kTag, tag);
  return place;
}

std::optional<MetadataDraft::Place> ReadPlace(const Dictionary& held) {
  const int block = held.Lookup(kBlock, -1).ToInt();
  if (block < 0 || block > static_cast<int>(MetadataBlock::kComment)) return {};
  return MetadataDraft::Place{static_cast<MetadataBlock>(block), held.Lookup(kTag, "").ToText()};
}

std::optional<UnsavedInfos::Entered> ReadEntered(const Dictionary& all) {
  UnsavedInfos::Entered entered;
  const auto* changes = all.Value(kChanges).As<Collection>();
  const auto* before = all.Value(kBefore).As<Collection>();
  if (changes == nullptr || before == nullptr) return {};
  for (int i = 0; i < changes->Count(); ++i) {
    const auto* held = changes->Item(i).As<Dictionary>();
    const auto place = held == nullptr ? std::nullopt : ReadPlace(*held);
    const int act = held == nullptr ? -1 : held->Lookup(kAct, -1).ToInt();
    if (!place || act < 0 || act > static_cast<int>(MetadataChange::Act::kRemove)) return {};
    MetadataChange change{static_cast<MetadataChange::Act>(act), place->first, place->second};
    if (held->HasKey(kText)) change.Text = held->Value(kText).ToText();
    entered.Changes.push_back(std::move(change));
  }
  for (int i = 0; i < before->Count(); ++i) {
    const auto* held = before->Item(i).As<Dictionary>();
    const auto place = held == nullptr ? std::nullopt : ReadPlace(*held);
    const auto* texts = held == nullptr ? nullptr : held->Value(kTexts).As<Collection>();
    if (!place || texts == nullptr) return {};
    std::vector<std::string>& said = entered.Before[*place];
    for (int k = 0; k < texts->Count(); ++k) said.push_back(texts->Item(k).ToText());
  }
  if (entered.Changes.empty()) return {};
  return entered;
}

std::optional<Dictionary> ReadKept(const FolderItem& place) {
  const auto bytes = ReadFile(place, kMostBytes);
  return bytes ? BinaryDictionary::BinaryDictionaryFromString(*bytes) : std::nullopt;
}

}  // namespace

FolderItem UnsavedInfos::Place(const FolderItem& file) const {
  const QByteArray path = QByteArray::fromStdString(file.ShellPath());
  const QByteArray digest = QCryptographicHash::hash(path, QCryptographicHash::Md5).toHex();
  return folder_.Child(digest.toStdString() + std::string(kEnding));
}

void UnsavedInfos::Keep(const FolderItem& file, const Entered& entered) {
  const FolderItem place = Place(file);
  if (entered.Changes.empty()) {
    if (place.Exists() && place.Delete()) log_.Write("Not deleted: " + place.DisplayName());
    return;
  }
  if (!folder_.Exists()) (void)folder_.CreateAsFolder();
  // What people say of their photos is nobody else's.
  (void)chmod(folder_.Path().c_str(), S_IRWXU);
  Collection changes;
  for (const MetadataChange& change : entered.Changes) {
    Dictionary one = PlaceOf(change.Block, change.Tag);
    one.Value(kAct, static_cast<int>(change.What));
    if (change.Text) one.Value(kText, *change.Text);
    changes.Add(one);
  }
  Collection before;
  for (const auto& [at, texts] : entered.Before) {
    Dictionary one = PlaceOf(at.first, at.second);
    Collection said;
    for (const std::string& text : texts) said.Add(text);
    one.Value(kTexts, said);
    before.Add(one);
  }
  Dictionary all;
  all.Value(kFile, file.ShellPath());
  all.Value(kChanges, changes);
  all.Value(kBefore, before);
  if (!WriteQuickly(place, BinaryDictionary::BinaryStringFromDictionary(all))) {
    log_.Write("What was entered of \"" + file.DisplayName() + "\" could not be kept.");
  }
}

std::optional<UnsavedInfos::Entered> UnsavedInfos::Of(const FolderItem& file) {
  const FolderItem place = Place(file);
  if (!place.Exists()) return {};
  const auto all = ReadKept(place);
  auto entered =
      all && all->Lookup(kFile, "").ToText() == file.ShellPath() ? ReadEntered(*all) : std::nullopt;
  if (!entered) {
    log_.Write("What was kept of \"" + file.DisplayName() + "\" cannot be read.");
    (void)place.Delete();
  }
  return entered;
}

std::vector<FolderItem> UnsavedInfos::Files() const {
  std::vector<FolderItem> files;
  for (const FolderItem& place : folder_.Children()) {
    if (!place.Name().ends_with(kEnding)) continue;
    const auto all = ReadKept(place);
    const std::string path = all ? all->Lookup(kFile, "").ToText() : std::string();
    if (!path.empty()) files.emplace_back(path);
  }
  return files;
}

void UnsavedInfos::Follow(const FolderItem& before, const FolderItem& after) {
  for (const FolderItem& file : Files()) {
    const FolderItem now = PlaceAfter(file, before, after);
    if (now.IsNil()) continue;
    const auto entered = Of(file);
    Forget(file);
    if (entered) Keep(now, *entered);
  }
}

}  // namespace brivolant
