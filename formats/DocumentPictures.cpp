// SPDX-License-Identifier: MIT
// The pictures that were pasted into a document: kept with the session until it is saved. And what
// of the package is kept with the session in case that the package goes away.
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "formats/BrivolantDocument.h"
#include "formats/DocumentParts.h"
#include "platform/files/AtomicFile.h"
#include "platform/values/Captions.h"

namespace brivolant {

using namespace documentTexts;

/// A copy of a picture for as long as someone holds it.
class BrivolantDocument::SessionPicture {
 public:
  explicit SessionPicture(FolderItem file) : file_(std::move(file)) {}
  ~SessionPicture() {
    (void)file_.Delete();
    // Each temporary file lies in a folder of its own.
    if (file_.Parent().Children().empty()) (void)file_.Parent().Delete();
  }
  SessionPicture(const SessionPicture&) = delete;
  SessionPicture& operator=(const SessionPicture&) = delete;
  const FolderItem& File() const { return file_; }

 private:
  FolderItem file_;
};

namespace {

/// True for the names that effects give: an identifier, 8-4-4-4-12 hexadecimal digits. Such a
/// picture is of use while a stack names it; others stay.
bool IsGivenByEffect(std::string_view name) {
  constexpr std::string_view kForm = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
  return name.size() == kForm.size() &&
         std::equal(name.begin(), name.end(), kForm.begin(), [](char c, char form) {
           return form == '-' ? c == '-' : std::isxdigit(static_cast<unsigned char>(c)) != 0;
         });
}

bool Names(std::string_view styleData, std::string_view name) {
  return styleData.find(name) != std::string_view::npos;
}

/// True if a picture belongs to what is saved with that style.
bool Wanted(std::string_view name, std::string_view styleData) {
  return !IsGivenByEffect(name) || Names(styleData, name);
}

/// True if a picture stands there already: a name leads to one picture for good.
bool Stands(const FolderItem& picture, const FolderItem& place) {
  return place.Exists() && place.Length() == picture.Length();
}

}  // namespace

FolderItem BrivolantDocument::PastedImage(std::string_view name) const {
  if (!IsFreeName(name, OriginalImageID)) return {};
  if (const auto found = session_.find(name); found != session_.end()) {
    return found->second ? found->second->File() : FolderItem();
  }
  for (const FolderItem& package : {tFile, File}) {
    FolderItem child = package.Child(name);
    if (child.Exists()) return child;
  }
  return {};
}

FolderItem BrivolantDocument::HeldOriginal() const {
  return heldOriginal_ ? heldOriginal_->File() : FolderItem();
}

BrivolantDocument::KeptPicture BrivolantDocument::Hold(std::string_view name,
                                                       const FolderItem& file) const {
  std::error_code error;
  // What is written here takes a file's place and never changes it, so that another name for it
  // does. It costs nothing, where a copy costs the file's length.
  if (!std::filesystem::is_regular_file(file.Path(), error)) return nullptr;
  const FolderItem place = services_.TemporaryFiles.Child(name);
  if (place.IsNil()) return nullptr;
  if (file.Alias() || link(file.Path().c_str(), place.Path().c_str()) != 0) {
    std::filesystem::copy_file(file.Path(), place.Path(), error);
  }
  auto held = std::make_shared<const SessionPicture>(place);
  return error ? nullptr : held;
}

void BrivolantDocument::HoldFiles() {
  heldPacket_ = MetadataPacket();
  if (!heldOriginal_) {
    const FolderItem original = OriginalFile();
    heldOriginal_ = Hold(original.Name(), original);
    if (!heldOriginal_) services_.Log.Write("Not held: " + original.ShellPath());
  }
  for (const auto& [name, file] : PastedImages()) {
    if (!session_.contains(name) && IsGivenByEffect(name))
      (void)KeepForSession(name, Hold(name, file));
  }
}

bool BrivolantDocument::PastedImage(std::string_view name, const FolderItem& file) {
  if (!IsFreeName(name, OriginalImageID)) return false;
  if (file.IsNil()) {
    session_[std::string(name)] = nullptr;
    return true;
  }
  if (file == PastedImage(name)) return file.Exists();
  // The user's own file: whoever writes it may change it where it is.
  const FolderItem copy = services_.TemporaryFiles.Child(name);
  if (copy.IsNil() || CopyFileAtomically(file, copy)) return false;
  return KeepForSession(name, std::make_shared<const SessionPicture>(copy));
}

bool BrivolantDocument::AdoptPastedImage(std::string_view name, const FolderItem& file) {
  return IsFreeName(name, OriginalImageID) && file.Exists() &&
         KeepForSession(name, std::make_shared<const SessionPicture>(file));
}

bool BrivolantDocument::KeepForSession(std::string_view name, KeptPicture picture) {
  if (!picture) return false;
  session_[std::string(name)] = std::move(picture);
  return true;
}

PastedFiles BrivolantDocument::PastedImages() const {
  if (!listed_ || !(listed_->File == File) || !(listed_->tFile == tFile)) {
    listed_ = Listing{File, tFile, {}};
    for (const FolderItem& package : {File, tFile}) {
      if (!package.Directory()) continue;
      for (const FolderItem& child : package.Children()) {
        const std::string name = child.Name();
        // What begins with a dot is on its way to another name.
        const bool own = name.starts_with('.') || !IsFreeName(name, OriginalImageID);
        std::error_code error;
        if (!own && std::filesystem::is_regular_file(child.Path(), error)) {
          listed_->Files[name] = child;
        }
      }
    }
  }
  PastedFiles files = listed_->Files;
  for (const auto& [name, picture] : session_) {
    if (picture) {
      files[name] = picture->File();
    } else {
      files.erase(name);
    }
  }
  return files;
}

PastedFiles BrivolantDocument::SessionImages() const {
  PastedFiles files;
  for (const auto& [name, picture] : session_) {
    if (picture) files[name] = picture->File();
  }
  return files;
}

bool BrivolantDocument::PicturesAreThere() const {
  const PastedFiles files = PastedImages();
  const bool whole = std::all_of(files.begin(), files.end(), [&](const auto& entry) {
    return !Names(StyleData, entry.first) || entry.second.Exists();
  });
  if (whole) return true;
  const Question question{WithPlaceholders(kPicturesGone.Text(), {{"<filename>", Name}}),
                          kPicturesGoneExplanation.Text(),
                          Captions::kSave.Text(),
                          Captions::kCancel.Text(),
                          {}};
  return services_.Dialogs.Ask(question) == Answer::kAction;
}

bool BrivolantDocument::OriginalIsThere() const {
  const bool hadFile = originalImageFile || !OriginalImageID.empty() || !stateOnDisk_.empty();
  if (!hadFile || OriginalSource()) return true;
  const Question question{WithPlaceholders(kOriginalGone.Text(), {{"<filename>", Name}}),
                          kOriginalGoneExplanation.Text(),
                          Captions::kSave.Text(),
                          Captions::kCancel.Text(),
                          {}};
  return services_.Dialogs.Ask(question) == Answer::kAction;
}

bool BrivolantDocument::WritePictures(const FolderItem& package) const {
  const PastedFiles files = PastedImages();
  return std::all_of(files.begin(), files.end(), [&](const auto& entry) {
    const auto& [name, file] = entry;
    const FolderItem place = package.Child(name);
    return !Wanted(name, StyleData) || file == place || !file.Exists() || Stands(file, place) ||
           !CopyFileAtomically(file, place);
  });
}

void BrivolantDocument::DropPictures(const FolderItem& package) {
  for (const FolderItem& child : package.Children()) {
    const std::string name = child.Name();
    if (!IsFreeName(name, OriginalImageID)) continue;
    const auto found = session_.find(name);
    const bool removed = found != session_.end() && !found->second;
    // What the saved stacks named and these do not: undo may still bring it back.
    const bool left = savedStyle_.find(name) != std::string::npos && !Wanted(name, StyleData) &&
                      (found != session_.end() || KeepForSession(name, Hold(name, child)));
    if (removed || left) (void)child.Delete();
  }
}

}  // namespace brivolant
