// SPDX-License-Identifier: MIT
#include "app/browse/InfoController.h"

#include <algorithm>
#include <utility>

#include "app/browse/BrowserPane.h"
#include "app/browse/EditInfoSheet.h"
#include "app/browse/FileHistory.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "browser/PhotoFactsCache.h"
#include "kit/InterfaceKitSupport.h"

namespace brivolant {
namespace {

constexpr std::size_t kMostWindows = 10;
/// Sentences of one message; a screen holds no more.
constexpr std::size_t kMostTold = 10;

}  // namespace

InfoController::InfoController(const Desk& desk, Commands& commands, BrowserPane& pane,
                               FileHistory& history)
    : desk_(desk), commands_(commands), pane_(pane), history_(history) {
  commands.Add({
      {"FileGetInfo", &Menus::kFileGetInfo, "Ctrl+I", kInBrowser, [this] { GetInfoMethod(); }},
      {"FileEditInfo", &Menus::kFileEditInfo, "Ctrl+Shift+I", kInBrowser, [this] { EditInfo(); },
       [this] { return pane_.imageBrowser->SelectedCount() > 0 && !sheet_; }},
  });
}

InfoController::~InfoController() {
  delete sheet_;
}

EditInfoSheet* InfoController::Sheet() const {
  return static_cast<EditInfoSheet*>(sheet_.data());
}

void InfoController::GetInfoMethod() {
  std::vector<FolderItem> files = pane_.SelectedFiles();
  if (files.size() > kMostWindows) return Ask(files);
  if (files.empty()) {
    // Of what is no folder, such as an album, nothing is known.
    if (const FolderItem folder = pane_.imageBrowser->CurrentFolder()) files.push_back(folder);
  }
  if (!files.empty()) desk_.ShowInfo(files);
}

void InfoController::EditInfo() {
  const std::vector<FolderItem> files = pane_.SelectedFiles();
  if (!files.empty() && !sheet_) Ask(files);
}

void InfoController::Follow(const FileMoves& moves) const {
  if (desk_.InfoFollows) desk_.InfoFollows(moves);
}

void InfoController::Ask(const std::vector<FolderItem>& files) {
  const auto common = std::make_shared<std::optional<ManyInfos::Common>>();
  reading_.Cancel();
  reading_.Start(
      {{},
       true,
       [files, common](Jobs::Control& control) { *common = ManyInfos::Read(files, control); },
       [this, files, common](Jobs::End, const std::string&) {
         if (!*common || sheet_) return;
         auto* sheet = new EditInfoSheet(*pane_.imageBrowser->window(), files, **common);
         sheet_ = sheet;
         sheet->Rejected = [this](const std::string& why) {
           desk_.Services.Dialogs.Message(why, {});
         };
         sheet->Accepted = [this, files](const ManyInfos::Order& order) { Give(files, order); };
         sheet->show();
       }});
}

void InfoController::Give(const std::vector<FolderItem>& files, const ManyInfos::Order& order) {
  const auto result = std::make_shared<ManyInfos::Result>();
  history_.Work().Start(
      {ManyInfos::kWriting.Text(), true,
       [files, order, result, facts = pane_.imageBrowser->Facts](Jobs::Control& control) {
         ManyInfos::Give(files, order, *result, control);
         // What has just been said is found at once.
         for (const auto& given : result->Given) (void)facts->Of(given.Keeper.File);
       },
       [this, result](Jobs::End end, const std::string& why) {
         if (end == Jobs::End::kFailed) result->Failed.push_back(why);
         AddStep(std::move(result->Given));
         pane_.imageBrowser->ReloadCurrentView();
         Tell(kNotGiven, result->Failed);
       }});
}

void InfoController::AddStep(std::vector<ManyInfos::Done> given) {
  if (given.empty()) return;
  history_.AddStep(kEditInfo, [this, given = std::move(given)] { TakeBack(given); });
}

void InfoController::TakeBack(std::vector<ManyInfos::Done> given) {
  const auto left = std::make_shared<std::vector<ManyInfos::Done>>(std::move(given));
  const auto failed = std::make_shared<std::vector<std::string>>();
  history_.Work().Start(
      {FileHistory::kTakingBack.Text(), true,
       [left, failed](Jobs::Control& control) { *failed = ManyInfos::TakeBack(*left, control); },
       [this, left, failed](Jobs::End end, const std::string& why) {
         if (end == Jobs::End::kFailed) failed->push_back(why);
         // What was not taken back can be tried again.
         AddStep(std::move(*left));
         pane_.imageBrowser->ReloadCurrentView();
         Tell(kNotTakenBack, *failed);
       }});
}

void InfoController::Tell(const LocalizedText& text, const std::vector<std::string>& sentences) {
  if (sentences.empty()) return;
  std::string all;
  for (std::size_t i = 0; i < std::min(sentences.size(), kMostTold); ++i) {
    all += (i == 0 ? "" : "\n") + sentences[i];
  }
  if (sentences.size() > kMostTold) all += "\n...";
  desk_.Services.Dialogs.Message(text.Text(), all);
}

}  // namespace brivolant
