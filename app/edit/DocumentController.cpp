// SPDX-License-Identifier: MIT
#include "app/edit/DocumentController.h"

#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <array>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "browser/FolderLister.h"
#include "formats/BrivolantDocument.h"
#include "formats/FileTypes.h"
#include "formats/ImageFile.h"
#include "kit/DesktopServices.h"
#include "platform/files/FileNames.h"
#include "platform/services/SharedFolders.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

constexpr const char* kCopyFormat = "SaveAsCopy.format";
constexpr const char* kCopyFolder = "SaveAsCopy.folder";
constexpr const char* kCopyQuality = "SaveAsCopy.Quality";
constexpr int kDefaultQuality = 75;
constexpr std::array kCopyTypes{&ImagesWritableMac::Jpeg, &ImagesWritableMac::PNG,
                                &ImagesWritableMac::TIFF};
/// An extension with its dot.
std::string Ending(std::string_view extension) {
  return std::string(1, '.').append(extension);
}

/// Extensions that a dialog for photos shows.
std::string PhotoExtensions() {
  return ReadableExtensions() + ";" +
         std::string(InternalFileTypes::BrivolantPhotosDocument.Extensions);
}

}  // namespace

DocumentController::DocumentController(const Desk& desk, EditSession& session, Commands& commands,
                                       Panes& panes)
    : desk_(desk), session_(session), panes_(panes) {
  session_.AskPlace = [this] { return AskWhereToSave(); };
  AddCommands(commands);
}

DocumentController::~DocumentController() {
  session_.AskPlace = nullptr;
}

void DocumentController::AddCommands(Commands& commands) {
  using namespace Menus;
  const auto editing = [this] { return Editing(); };
  commands.Add({
      {"FileNewFromClipboard", &kFileNewFromClipboard, "Ctrl+N", kAllPanes,
       [this] { NewFromClipboard(); }, [this] { return desk_.Clipboard.HasPicture(); }},
      {"FileOpen", &kFileOpen, "Ctrl+O", kAllPanes, [this] { ChooseAndOpen(); }},
      {"FileSave", &kFileSave, "Ctrl+S", kInEditor, [this] { SaveMethod([](bool) {}); },
       [this] { return Editing() && session_.Dirty(); }},
      {"FileSaveACopyAs", &kFileSaveCopyAs, "Ctrl+Shift+S", kInEditor, [this] { SaveACopyAs(); },
       editing},
      {"FileGetInfo", &kFileGetInfo, "Ctrl+I", kInEditor, [this] { desk_.ShowInfo({ShownFile()}); },
       [this] { return Editing() && ShownFile(); }},
  });
}

FolderItem DocumentController::ShownFile() const {
  const BrivolantDocument* document = session_.Document();
  if (document == nullptr) return {};
  // Until it is saved it is the photo that it was made of.
  return document->tFile ? document->originalImageFile : document->File;
}

std::vector<FolderItem> DocumentController::ChoosePhotos(const LocalizedText& title) {
  const EditSession::Hold hold(session_);
  return desk_.FileDialogs.Open(title.Text(), {},
                                {{kAllPhotos.Text(), PhotoExtensions()}, {kAllFiles.Text(), ""}});
}

void DocumentController::ChooseAndOpen() {
  std::vector<FolderItem> files = ChoosePhotos(kOpenTitle);
  if (files.empty()) return;
  if (files.size() > 1) OthersChosen(files);
  desk_.OpenDocument(files.front());
}

void DocumentController::Drop(const DragItem& item) {
  if (item.IsEmpty()) return;
  // The drag's source waits for the drop to return; a question must not keep it waiting.
  QTimer::singleShot(0, &panes_.Window(), [this, item] {
    if (item.Files.size() > 1) OthersChosen(item.Files);
    if (!item.Files.empty()) return desk_.OpenDocument(item.Files.front());
    const auto open = [this, item] { session_.Open(item.Picture, kDroppedPicture.Text()); };
    if (!AskToSave(open)) open();
  });
}

void DocumentController::NewFromClipboard() {
  const PictureSource picture = desk_.Clipboard.PastedPicture();
  if (!picture) return;
  const auto open = [this, picture] { session_.Open(picture, kNewFromClipboard.Text()); };
  if (!AskToSave(open)) open();
}

// Saving.

FolderItem DocumentController::AskWhereToSave() {
  const EditSession::Hold hold(session_);
  const std::string extension(InternalFileTypes::BrivolantPhotosDocument.Extensions);
  int filter = 0;
  const FolderItem chosen = desk_.FileDialogs.Save(
      kSaveTitle.Text(),
      otherSharedComponents::DefaultPipDocumentsFolder().Child(
          SafeFileName(session_.Document()->Name, Ending(extension))),
      {{InternalFileTypes::BrivolantPhotosDocument.Name.Text(), extension}}, filter);
  return BrivolantDocument::PackageFor(chosen);
}

void DocumentController::SaveMethod(std::function<void(bool)> then) {
  if (!Editing() || session_.Busy()) return then(false);
  FolderItem place;
  session_.Settling();
  if (session_.NeedsPlace()) {
    place = AskWhereToSave();
    if (place.IsNil()) return then(false);
  }
  session_.Save(place, std::move(then));
}

bool DocumentController::AskToSave(const std::function<void()>& then) {
  if (session_.Busy()) {
    // Behind the work under way, such as a save.
    if (then) {
      session_.Work().WhenIdle([this, then] {
        if (!AskToSave(then)) then();
      });
    }
    return true;
  }
  session_.Settling();
  if (!session_.Dirty()) return false;
  if (panes_.Pane() != kEditorPane) panes_.SwapDisplay(kEditorPane);
  desk_.BringToFront();
  std::string save = Menus::kFileSave.Text();
  std::erase(save, '&');
  Answer answer = Answer::kCancel;
  {
    const EditSession::Hold hold(session_);
    answer = desk_.Services.Dialogs.Ask(
        {WithPlaceholders(kAskToSaveMessage.Text(), {{"<filename>", session_.Document()->Name}}),
         kAskToSaveExplaination.Text(), save, Captions::kCancel.Text(),
         Captions::kDontSave.Text()});
  }
  if (answer == Answer::kCancel) return true;
  if (answer == Answer::kAction) {
    // A save that does not happen keeps the photo open: going on would lose the changes.
    SaveMethod([then](bool saved) {
      if (saved && then) then();
    });
    return true;
  }
  session_.GiveUpChanges();
  return false;
}

void DocumentController::SaveACopyAs() {
  if (!Editing() || session_.Busy()) return;
  auto& preferences = desk_.Preferences;
  int filter = std::clamp(preferences.Value(kCopyFormat, 0).ToInt(), 0,
                          static_cast<int>(kCopyTypes.size()) - 1);
  std::vector<FileFilter> filters;
  filters.reserve(kCopyTypes.size());
  for (const FileType* type : kCopyTypes) {
    filters.push_back({type->Name.Text(), std::string(type->Extensions)});
  }
  const std::string folderPath = preferences.Value(kCopyFolder, "").ToText();
  FolderItem folder = folderPath.empty() ? FolderItem() : FolderItem(folderPath);
  // One of a share that does not answer is not waited for.
  constexpr int kPatience = 40;
  const auto found = folder ? FolderLister::Look(folder, kPatience) : std::nullopt;
  if (!found || found->Gone) folder = otherSharedComponents::DefaultPipDocumentsFolder();
  const auto typeAt = [](int index) { return kCopyTypes.at(static_cast<std::size_t>(index)); };
  FolderItem chosen;
  {
    const EditSession::Hold hold(session_);
    chosen = desk_.FileDialogs.Save(
        kSaveCopyTitle.Text(),
        folder.Child(SafeFileName(session_.Document()->Name,
                                  Ending(ImageIO::FirstExtension(*typeAt(filter))))),
        filters, filter);
  }
  if (chosen.IsNil()) return;
  // A name that says its format wins over the format of the list.
  for (std::size_t i = 0; i < kCopyTypes.size(); ++i) {
    if (ImageIO::Match(*kCopyTypes.at(i), chosen)) filter = static_cast<int>(i);
  }
  const FileType& type = *typeAt(filter);
  if (!ImageIO::Match(type, chosen)) {
    const std::string name = NumberedName(chosen.Name(), 0, Ending(ImageIO::FirstExtension(type)));
    chosen = chosen.Parent().Child(name);
  }
  preferences.Assign(kCopyFormat, filter);
  preferences.Assign(kCopyFolder, chosen.Parent().ShellPath());
  preferences.SynchronizeSoon();
  session_.SaveCopy(chosen, std::string(type.Identifier),
                    preferences.Value(kCopyQuality, kDefaultQuality).ToDouble() / 100);
}

}  // namespace brivolant
