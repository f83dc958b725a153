// SPDX-License-Identifier: MIT
#include "app/browse/CopyController.h"

#include "app/browse/BrowserPane.h"
#include "app/browse/FileHistory.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "metadata/Sidecar.h"
#include "platform/files/FileAddress.h"

namespace brivolant {
namespace {

constexpr const char* kUriList = "text/uri-list";

bool LiesIn(const FolderItem& file, const FolderItem& folder) {
  std::error_code error;
  return std::filesystem::equivalent(file.Parent().Path(), folder.Path(), error) && !error;
}

std::string Quoted(const std::string& name) {
  // "&" marks a mnemonic in a menu.
  std::string quoted = " \"";
  for (const char c : name) quoted.append(c == '&' ? "&&" : std::string(1, c));
  return quoted + "\"";
}

}  // namespace

CopyController::CopyController(const Desk& desk, Commands& commands, BrowserPane& pane,
                               FileHistory& history)
    : desk_(desk), commands_(commands), pane_(pane), history_(history) {
  using namespace Menus;
  multiViewFileBrowser& rows = *pane_.imageBrowser;
  rows.FilesDropped = [this](const std::vector<FolderItem>& files, const FolderItem& folder) {
    DropFilesInto(files, folder);
  };
  commands.Add({
      {"EditCopy", &kEditCopy, "", kInBrowser, [this] { CopyFiles(); },
       [&rows] { return rows.SelectedCount() > 0; }, nullptr, [this] { return CopyCaption(); }},
      {"EditPaste", &kEditPaste, "", kInBrowser, [this] { PasteFiles(); },
       [this, &rows] { return rows.CurrentFolder() && desk_.Clipboard.Has(kUriList); }, nullptr,
       [this] { return PasteCaption(); }},
  });
}

void CopyController::CopyFiles() {
  const std::vector<FolderItem> files = pane_.SelectedFiles();
  if (files.empty()) return;
  std::string names;
  for (const FolderItem& file : files) {
    if (!names.empty()) names += "\n";
    names += file.DisplayName();
  }
  desk_.Clipboard.Set(names, kUriList, FileAddress::ListOf(files));
}

std::vector<FolderItem> CopyController::FilesOnClipboard() const {
  return FileAddress::Files(desk_.Clipboard.Data(kUriList));
}

void CopyController::PasteFiles() {
  if (const FolderItem folder = pane_.imageBrowser->CurrentFolder()) {
    CopyFilesInto(FilesOnClipboard(), folder);
  }
}

std::string CopyController::CopyCaption() const {
  const multiViewFileBrowser& rows = *pane_.imageBrowser;
  const int count = rows.SelectedCount();
  std::string text = Menus::kEditCopy.Text();
  if (count > 1) return text + " " + std::to_string(count) + " " + BrowserRows::kItems.Text();
  if (count == 1) text += Quoted(BrowserRows::NameOf(rows.SelectedItem(0)));
  return text;
}

std::string CopyController::PasteCaption() const {
  std::string text = Menus::kEditPaste.Text();
  // The clipboard's owner is asked only as a menu opens.
  if (!commands_.MenuOpens()) return text;
  const std::vector<FolderItem> copied = FilesOnClipboard();
  return copied.size() == 1 ? text + Quoted(copied.front().DisplayName()) : text;
}

void CopyController::CopyFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder) {
  Copy(files, folder, false);
}

void CopyController::DropFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder) {
  Copy(files, folder, true);
}

void CopyController::Copy(const std::vector<FolderItem>& files, const FolderItem& folder,
                          bool thoseElsewhere) {
  if (files.empty()) return;
  const auto step = std::make_shared<FileHistory::Step>();
  step->Is = FileHistory::Step::kCopy;
  const auto failed = std::make_shared<FolderItem>();
  const auto work = [files, folder, thoseElsewhere, step, failed](Jobs::Control& control) {
    std::vector<FolderItem> wanted = files;
    if (thoseElsewhere) {
      std::erase_if(wanted, [&](const FolderItem& file) { return LiesIn(file, folder); });
    }
    FileCopier copier([&](double done) { return control.Progress(done); },
                      {Sidecar::Following, Sidecar::BesideMoved});
    copier.CopyInto(wanted, folder);
    step->copies = copier.Made();
    if (!copier.Failed().empty()) *failed = copier.Failed().front();
  };
  history_.Run(kCopying, step, work,
               [this, step, folder, failed, select = history_.SelectIfUntouched()] {
                 multiViewFileBrowser& rows = *pane_.imageBrowser;
                 std::vector<FolderItem> made;
                 for (const FileCopier::Copy& copy : step->copies) made.push_back(copy.Item);
                 if (!made.empty()) rows.ReloadCurrentView();
                 if (!made.empty() && folder == rows.CurrentFolder()) select(made);
                 if (*failed) history_.Tell(kNotCopied, *failed);
               });
}

}  // namespace brivolant
