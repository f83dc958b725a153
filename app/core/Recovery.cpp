// SPDX-License-Identifier: MIT
#include "app/core/Recovery.h"

#include "formats/BinaryDictionary.h"
#include "formats/BrivolantDocument.h"
#include "platform/files/AtomicFile.h"

namespace brivolant {
namespace {

constexpr std::string_view kNote = "Recovery";
constexpr std::string_view kFallback = "Edits.recovery";
constexpr std::string_view kPicture = "Pasted-";
constexpr const char* kPackage = "Package";
constexpr const char* kOriginal = "Original";
constexpr const char* kSaved = "Saved";
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

}  // namespace

void RecoveredEdits::ApplyTo(BrivolantDocument& document) const {
  document.StyleData = StyleData;
  document.Crop = Crop;
  document.CropOffSet = CropOffSet;
  document.CropSize = CropSize;
  document.Orientation = Orientation;
  document.Rotation = Rotation;
  document.Flip = Flip;
  document.Name = Name;
  for (const auto& [name, file] : Pasted) (void)document.PastedImage(name, file);
}

Recovery::Recovery(FolderItem folder, Log& log) : folder_(std::move(folder)), log_(log) {}

FolderItem Recovery::Note() const {
  return folder_.Child(kNote);
}

std::optional<PastedFiles> Recovery::KeepPictures(const PastedFiles& pictures) {
  PastedFiles kept;
  for (const auto& [name, file] : pictures) {
    const FolderItem copy = folder_.Child(std::string(kPicture) + name);
    // A name leads to one picture for good.
    if (!copy.Exists() && CopyFileAtomically(file, copy)) return std::nullopt;
    kept[name] = copy;
  }
  return kept;
}

bool Recovery::Keep(const BrivolantDocument& document, const std::string& styleData) {
  if (folder_.CreateAsFolder() && !folder_.Directory()) {
    log_.Write("Unsaved edits cannot be kept in \"" + folder_.ShellPath() + "\".");
    return false;
  }
  const auto pictures = KeepPictures(document.SessionImages());
  if (!pictures) {
    log_.Write("Pasted pictures cannot be kept in \"" + folder_.ShellPath() + "\".");
    return false;
  }
  std::string bytes =
      BinaryDictionary::BinaryStringFromDictionary(EditsOf(document, styleData, *pictures));
  if (bytes == lastWritten_ && kept_.Exists()) return true;
  // Beside the package where that can be written, else with the note.
  FolderItem place = document.File.Parent().Child("." + document.File.Name() + ".recovery");
  if (!place.IsWriteable() || WriteFileAtomically(place, bytes)) {
    place = folder_.Child(kFallback);
    if (WriteFileAtomically(place, bytes)) {
      log_.Write("Unsaved edits cannot be kept in \"" + place.ShellPath() + "\".");
      return false;
    }
  }
  if (WriteFileAtomically(Note(), place.ShellPath())) {
    log_.Write("Unsaved edits cannot be kept in \"" + Note().ShellPath() + "\".");
    return false;
  }
  if (kept_ && !(kept_ == place)) (void)kept_.Delete();
  kept_ = place;
  lastWritten_ = std::move(bytes);
  return true;
}

void Recovery::Forget() {
  if (kept_.IsNil()) {
    if (const auto path = ReadFile(Note()); path && !path->empty()) kept_ = FolderItem(*path);
  }
  // Only what this class wrote is deleted, whatever the note says.
  if (kept_ && kept_.Name().ends_with(".recovery")) (void)kept_.Delete();
  for (const FolderItem& file : folder_.Children()) {
    if (file.Name().starts_with(kPicture)) (void)file.Delete();
  }
  (void)Note().Delete();
  kept_ = {};
  lastWritten_.clear();
}

std::optional<RecoveredEdits> Recovery::Left() const {
  const auto path = ReadFile(Note());
  if (!path || path->empty()) return std::nullopt;
  const auto bytes = ReadFile(FolderItem(*path));
  if (!bytes) return std::nullopt;
  const auto read = BinaryDictionary::BinaryDictionaryFromString(*bytes);
  if (!read || !read->HasKey(kStyle)) return std::nullopt;
  const Dictionary& edits = *read;
  RecoveredEdits left;
  left.Package = FileAt(edits.Value(kPackage));
  left.Original = FileAt(edits.Value(kOriginal));
  left.Saved = edits.Value(kSaved).ToBool();
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

}  // namespace brivolant
