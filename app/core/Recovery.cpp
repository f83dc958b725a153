// SPDX-License-Identifier: MIT
#include "app/core/Recovery.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "formats/BinaryDictionary.h"
#include "formats/BrivolantDocument.h"
#include "platform/files/AtomicFile.h"
#include "platform/services/SystemServices.h"

namespace brivolant {
namespace {

constexpr std::string_view kSets = "Unsaved";
constexpr std::string_view kEdits = "Edits";
constexpr std::string_view kPicture = "Pasted-";
constexpr const char* kPackage = "Package";
constexpr const char* kOriginal = "Original";
constexpr const char* kSaved = "Saved";
constexpr const char* kState = "StateOnDisk";
constexpr const char* kName = "Name";
constexpr const char* kStyle = "StyleData";
constexpr const char* kCrop = "Crop";
constexpr const char* kCropX = "CropX";
constexpr const char* kCropY = "CropY";
constexpr const char* kCropWidth = "CropWidth";
constexpr const char* kCropHeight = "CropHeight";
constexpr const char* kOrientation = "Orientation";
constexpr const char* kRotation = "Rotation";
constexpr const char* kFlip = "Flip";
constexpr const char* kPasted = "Pasted";

Dictionary EditsOf(const BrivolantDocument& document, const std::string& styleData,
                   const PastedFiles& pictures) {
  Dictionary edits;
  edits.Value(kPackage, document.File.ShellPath());
  edits.Value(kOriginal, document.originalImageFile.ShellPath());
  edits.Value(kSaved, document.tFile.IsNil());
  edits.Value(kState, document.StateOnDisk());
  edits.Value(kName, document.Name);
  edits.Value(kStyle, styleData);
  edits.Value(kCrop, document.Crop);
  edits.Value(kCropX, document.CropOffSet.Left);
  edits.Value(kCropY, document.CropOffSet.Right);
  edits.Value(kCropWidth, document.CropSize.Left);
  edits.Value(kCropHeight, document.CropSize.Right);
  edits.Value(kOrientation, document.Orientation);
  edits.Value(kRotation, document.Rotation);
  edits.Value(kFlip, document.Flip);
  Dictionary pasted;
  for (const auto& [name, file] : pictures) pasted.Value(name, file.ShellPath());
  edits.Value(kPasted, pasted);
  return edits;
}

FolderItem FileAt(const Variant& path) {
  const std::string text = path.ToText();
  return text.empty() ? FolderItem() : FolderItem(text);
}

/// Nanoseconds: two programs may end within a second.
std::int64_t WrittenAt(const FolderItem& file) {
  constexpr std::int64_t kSecond = 1000000000;
  struct stat status {};
  if (stat(file.Path().c_str(), &status) != 0) return 0;
  return status.st_mtim.tv_sec * kSecond + status.st_mtim.tv_nsec;
}

std::optional<RecoveredEdits> ReadSet(const FolderItem& set) {
  const auto bytes = ReadFile(set.Child(kEdits));
  if (!bytes) return std::nullopt;
  const auto read = BinaryDictionary::BinaryDictionaryFromString(*bytes);
  if (!read || !read->HasKey(kStyle)) return std::nullopt;
  const Dictionary& edits = *read;
  RecoveredEdits left;
  left.Set = set;
  left.Package = FileAt(edits.Value(kPackage));
  left.Original = FileAt(edits.Value(kOriginal));
  left.Saved = edits.Value(kSaved).ToBool();
  left.StateOnDisk = edits.Value(kState).ToText();
  left.Name = edits.Value(kName).ToText();
  left.StyleData = edits.Value(kStyle).ToText();
  left.Crop = edits.Value(kCrop).ToBool();
  left.CropOffSet = {edits.Value(kCropX).ToDouble(), edits.Value(kCropY).ToDouble()};
  left.CropSize = {edits.Value(kCropWidth).ToDouble(), edits.Value(kCropHeight).ToDouble()};
  left.Orientation = edits.Value(kOrientation).ToInt();
  left.Rotation = edits.Value(kRotation).ToInt();
  left.Flip = edits.Value(kFlip).ToInt();
  const Variant pasted = edits.Value(kPasted);
  if (const auto* pictures = pasted.As<Dictionary>()) {
    for (int i = 0; i < pictures->Count(); ++i) {
      left.Pasted[pictures->Key(i).ToText()] = FileAt(pictures->ValueAt(i));
    }
  }
  return left;
}

}  // namespace

bool RecoveredEdits::ApplyTo(BrivolantDocument& document) const {
  document.StyleData = StyleData;
  document.Crop = Crop;
  document.CropOffSet = CropOffSet;
  document.CropSize = CropSize;
  document.Orientation = Orientation;
  document.Rotation = Rotation;
  document.Flip = Flip;
  document.Name = Name;
  // Of another package it says nothing.
  if (Saved && document.File == Package) document.StateOnDisk(StateOnDisk);
  return std::all_of(Pasted.begin(), Pasted.end(), [&](const auto& picture) {
    return document.PastedImage(picture.first, picture.second);
  });
}

Recovery::Recovery(const FolderItem& folder, Log& log) : folder_(folder.Child(kSets)), log_(log) {}

Recovery::~Recovery() {
  Release();
}

void Recovery::Release() {
  lock_.Release();
  package_.Release();
  set_ = {};
  lastWritten_.clear();
}

bool Recovery::MakeSet() {
  if (set_ && set_.Directory()) return true;
  Release();
  if (folder_.CreateAsFolder() && !folder_.Directory()) return false;
  std::string pattern = folder_.Child("XXXXXX").ShellPath();
  if (mkdtemp(pattern.data()) == nullptr) return false;
  set_ = FolderItem(pattern);
  lock_ = FileLock(set_);
  return true;
}

PastedFiles Recovery::KeepPictures(const PastedFiles& pictures) const {
  PastedFiles kept;
  for (const auto& [name, file] : pictures) {
    const FolderItem copy = set_.Child(std::string(kPicture) + name);
    // A name leads to one picture for good.
    if (copy.Exists() || !CopyFileAtomically(file, copy)) {
      kept[name] = copy;
    } else {
      log_.Write("A pasted picture cannot be kept in \"" + copy.ShellPath() + "\".");
    }
  }
  return kept;
}

bool Recovery::Keep(const BrivolantDocument& document, const std::string& styleData) {
  const std::lock_guard lock(mutex_);
  if (!MakeSet()) {
    log_.Write("Unsaved edits cannot be kept in \"" + folder_.ShellPath() + "\".");
    return false;
  }
  // The edits without a picture are worth more than nothing.
  const PastedFiles pictures = KeepPictures(document.SessionImages());
  std::string bytes =
      BinaryDictionary::BinaryStringFromDictionary(EditsOf(document, styleData, pictures));
  const FolderItem file = set_.Child(kEdits);
  if (bytes == lastWritten_ && file.Exists()) return true;
  if (WriteFileAtomically(file, bytes)) {
    log_.Write("Unsaved edits cannot be kept in \"" + file.ShellPath() + "\".");
    return false;
  }
  lastWritten_ = std::move(bytes);
  return true;
}

void Recovery::Forget() {
  const std::lock_guard lock(mutex_);
  if (set_) (void)set_.DeleteFolder();
  Release();
}

std::vector<RecoveredEdits> Recovery::Left() const {
  const std::lock_guard guard(mutex_);
  std::vector<std::pair<std::int64_t, RecoveredEdits>> found;
  for (const FolderItem& set : folder_.Children()) {
    if (set == set_ || !set.Directory() || set.Alias() || FileLock::InUse(set)) continue;
    if (auto edits = ReadSet(set)) {
      found.emplace_back(WrittenAt(set.Child(kEdits)), std::move(*edits));
    }
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  std::vector<RecoveredEdits> left;
  left.reserve(found.size());
  for (auto& [time, edits] : found) left.push_back(std::move(edits));
  return left;
}

std::optional<std::vector<FolderItem>> Recovery::Packages() const {
  std::vector<FolderItem> packages;
  std::error_code error;
  std::filesystem::directory_iterator at(folder_.Path(), error);
  // Nothing was ever kept.
  if (error == std::errc::no_such_file_or_directory) return packages;
  for (const std::filesystem::directory_iterator end; !error && at != end; at.increment(error)) {
    const FolderItem set(at->path());
    const bool written = std::filesystem::exists(set.Path() / kEdits, error);
    if (error) break;
    if (!written) continue;
    const auto edits = ReadSet(set);
    if (!edits) return std::nullopt;
    packages.push_back(edits->Package);
  }
  if (error) return std::nullopt;
  return packages;
}

void Recovery::Adopt(const RecoveredEdits& edits) {
  const std::lock_guard guard(mutex_);
  Release();
  lock_ = FileLock(edits.Set);
  if (lock_.Is() == FileLock::kTaken) return;
  // A file system without locks is taken for free: the data folder is this user's.
  set_ = edits.Set;
  // A package in another run's folder for temporary files is this run's from now on.
  if (!edits.Saved) package_ = FileLock(CleanOnQuit::RootOf(edits.Package));
}

void Recovery::GiveUp(const RecoveredEdits& edits) {
  // Only what this class wrote is deleted.
  if (edits.Set && edits.Set.Parent() == folder_ && !FileLock::InUse(edits.Set)) {
    (void)edits.Set.DeleteFolder();
  }
}

}  // namespace brivolant
