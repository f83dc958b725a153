// SPDX-License-Identifier: MIT
// The commands on the files that are selected in the browser.
#include <algorithm>

#include "app/browse/BrowserController.h"
#include "app/browse/FileController.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/session/EditSession.h"
#include "formats/BrivolantDocument.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

constexpr const char* kUriList = "text/uri-list";
/// Nobody makes more files the desktop's picture; their kinds are not looked up at every key.
constexpr int kMostPictures = 16;

std::string Quoted(const std::string& name) {
  // "&" marks a mnemonic in a menu.
  std::string quoted = " \"";
  for (const char c : name) quoted.append(c == '&' ? "&&" : std::string(1, c));
  return quoted + "\"";
}

}  // namespace

std::string FileController::CopyCaption() const {
  const multiViewFileBrowser& rows = *browser_.imageBrowser;
  const int count = rows.SelectedCount();
  std::string text = Menus::kEditCopy.Text();
  if (count > 1) return text + " " + std::to_string(count) + " " + BrowserRows::kItems.Text();
  if (count == 1) text += Quoted(BrowserRows::NameOf(rows.SelectedItem(0)));
  return text;
}

std::string FileController::PasteCaption() const {
  std::string text = Menus::kEditPaste.Text();
  // The clipboard's owner is asked only as a menu opens.
  if (!commands_.MenuOpens()) return text;
  const std::vector<FolderItem> copied = FilesOnClipboard();
  return copied.size() == 1 ? text + Quoted(copied.front().DisplayName()) : text;
}

std::string FileController::UndoCaption() const {
  std::string text = Menus::kEditUndo.Text();
  if (steps_.empty()) return text;
  const Step::Kind kind = steps_.back()->Is;
  std::string done = (kind == Step::kOther    ? *steps_.back()->name
                      : kind == Step::kRename ? Menus::kFileRename
                      : kind == Step::kTrash  ? Menus::kFileMoveToTrash
                                              : Menus::kEditCopy)
                         .Text();
  // One letter of a caption is underlined, not two.
  std::erase(done, '&');
  return text + " " + done;
}

bool FileController::PicturesSelected() const {
  if (browser_.imageBrowser->SelectedCount() > kMostPictures) return false;
  const std::vector<FolderItem> files = browser_.SelectedFiles();
  return !files.empty() && std::all_of(files.begin(), files.end(), [](const FolderItem& file) {
    return FolderitemExtensions::NamesPicture(file.Name());
  });
}

bool FileController::MayTrash(const std::vector<FolderItem>& files) {
  const bool open = std::any_of(files.begin(), files.end(),
                                [this](const auto& file) { return session_.LiesIn(file); });
  if (!open) return true;
  std::string trash = Menus::kFileMoveToTrash.Text();
  std::erase(trash, '&');
  const EditSession::Hold hold(session_);
  return desk_.Services.Dialogs.Ask(
             {WithPlaceholders(kTrashOpen.Text(), {{"<filename>", session_.Document()->Name}}),
              kTrashOpenExplanation.Text(),
              trash,
              Captions::kCancel.Text(),
              {}}) == Answer::kAction;
}

void FileController::AddCommands(Commands& commands) {
  using namespace Menus;
  multiViewFileBrowser& rows = *browser_.imageBrowser;
  const auto some = [&rows] { return rows.SelectedCount() > 0; };
  const auto alias = [&rows] {
    if (rows.SelectedCount() != 1) return false;
    const BrowserPayload selected = rows.SelectedItem(0);
    const auto* item = std::get_if<std::shared_ptr<browserItem>>(&selected);
    return item != nullptr && (*item)->Facts.value_or(FileFacts()).Is == FileFacts::kAlias;
  };
  const auto reveal = [this](bool original) {
    asking_.Start({{},
                   false,
                   [&desktop = desk_.Desktop, original,
                    files = browser_.SelectedFiles()](Jobs::Control& control) {
                     // Where a link leads a disk may be away, and nobody's end waits for it.
                     (void)control.Apart([&desktop, original, files] {
                       for (const FolderItem& file : files) {
                         desktop.Reveal(original ? FolderitemExtensions::OriginalFile(file) : file);
                       }
                     });
                   },
                   [](Jobs::End, const std::string&) {}});
  };
  commands.Add({
      {"EditUndo", &kEditUndo, "", kInBrowser, [this] { UndoStep(); },
       [this] { return !steps_.empty(); }, nullptr, [this] { return UndoCaption(); }},
      {"EditCopy", &kEditCopy, "", kInBrowser, [this] { CopyFiles(); }, some, nullptr,
       [this] { return CopyCaption(); }},
      {"EditPaste", &kEditPaste, "", kInBrowser, [this] { PasteFiles(); },
       [this, &rows] { return rows.CurrentFolder() && desk_.Clipboard.Has(kUriList); }, nullptr,
       [this] { return PasteCaption(); }},
      {"FileMoveToTrash", &kFileMoveToTrash, "Ctrl+Backspace", kInBrowser,
       [this] { FileMoveToTrash(); }, some},
      {"FileRename", &kFileRename, "F2", kInBrowser, [&rows] { rows.BeginRename(); },
       [&rows] { return rows.SelectedCount() == 1 && rows.CanRename(); }},
      {"FileAddToFavorites", &kFileAddToFavorites, "", kInBrowser, [this] { AddFavoritesMethod(); },
       [this, &rows] {
         return rows.SelectedCount() > kMostPictures || !browser_.SelectedFiles().empty();
       }},
      {"FileShowOriginal", &kFileShowOriginal, "", kInBrowser, [reveal] { reveal(true); }, alias},
      {"FileShowInFinder", &kFileShowInFinder, "", kInBrowser, [reveal] { reveal(false); },
       [&rows] { return rows.SelectedCount() == 1; }},
      {"FileShareVia", &kFileShare, "", kInBrowser},
      // A heading.
      {"menuskFileShareDevice", &kFileShareDevice, "", kInBrowser, nullptr, [] { return false; }},
      {"menuskFileShareSetasDesktopPicture", &kFileShareDesktop, "", kInBrowser,
       [this] { SetDesktopPicture(); }, [this] { return PicturesSelected(); }},
  });
}

}  // namespace brivolant
