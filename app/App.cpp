// SPDX-License-Identifier: MIT
#include "app/App.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <QUrl>
#include <algorithm>

#include "app/AboutBox.h"
#include "app/MainWindow.h"
#include "app/PreferencesWindow.h"
#include "app/ProgressDialog.h"
#include "app/browse/OwnPreviews.h"
#include "app/core/ApplicationServices.h"
#include "app/core/GlobalApplicationSpecificProperties.h"
#include "app/core/WorkerServices.h"
#include "app/info/InfoWindows.h"
#include "browser/DiskThreads.h"
#include "browser/PhotoFactsCache.h"
#include "browser/SideBarItem.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "engine/ui/EffectStackEditor.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/FileTypes.h"
#include "kit/AccessibleItems.h"
#include "kit/AnimationCore.h"
#include "kit/Appearance.h"
#include "kit/SvgIcon.h"
#include "metadata/MetadataFields.h"
#include "platform/services/SharedFolders.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

using namespace GlobalApplicationSpecificProperties;

constexpr const char* kUpdateCheckPeriod = "UpdateCheckPeriod";
constexpr const char* kAppearance = "Appearance";

/// What is edited when it is opened, by its name, unless it is a folder.
bool NamesPhoto(const FolderItem& file) {
  const bool document =
      FolderitemExtensions::isFileType(file, &InternalFileTypes::BrivolantPhotosDocument);
  const bool own = std::any_of(
      InternalFileTypes::kAll.begin(), InternalFileTypes::kAll.end(),
      [&](const FileType* type) { return FolderitemExtensions::isFileType(file, type); });
  return document || !own;
}

}  // namespace

App::App(QApplication& application, DesktopParts parts)
    : application_(application),
      dialogs_(parts.Dialogs != nullptr ? parts.Dialogs : &ownDialogs_),
      fileDialogs_(parts.FileDialogs != nullptr ? parts.FileDialogs : &ownFileDialogs_),
      clipboard_(parts.Clipboard != nullptr ? parts.Clipboard : &ownClipboard_),
      colorPanel_(parts.ColorPanel != nullptr ? parts.ColorPanel : &ownColorPanel_) {
  if (parts.Desktop != nullptr) desktop_ = parts.Desktop;
  holding_ =
      std::make_unique<HoldingDialogs>(*dialogs_, *fileDialogs_, [this]() -> std::shared_ptr<void> {
        return window_ ? std::make_shared<EditSession::Hold>(window_->Session()) : nullptr;
      });
  dialogs_ = holding_.get();
  fileDialogs_ = holding_.get();
}

App::~App() {
  AnimationCore::Stop();
}

bool App::Open(bool openingScreen) {
  const FolderItem resources = otherSharedComponents::ResourcesFolder();
  if (!resources.Directory()) {
    dialogs_->Message(otherSharedComponents::MissingResourcesMessage(
                          ApplicationName.Text(), ApplicationPublisherName.Text(),
                          URLApplicationPublisher.Text()),
                      {});
    return false;
  }
  SetIconFolder(resources.Child("Icons"));
  preferences_ =
      std::make_unique<brivolant::Preferences>(kPreferencesID, ConfigurationFolder(), log_);
  Appearance::Apply(application_, static_cast<Appearance::Scheme>(AppearanceChoice()));
  QApplication::setWindowIcon(SvgIcon(QStringLiteral("brivolant-photos")));
  InstallEffectStackAccessibility();
  InstallAccessibleItems();
  if (openingScreen) {
    about_ = std::make_unique<AboutBox>();
    about_->UseAsOpeningScreen();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  AnimationCore::Start();
  ReadUserDetails();
  MakeTemporaryFolder();
  recent_ = std::make_unique<RecentItems>(*preferences_);
  recovery_ = std::make_unique<brivolant::Recovery>(DataFolder().Child("brivolant-photos"), log_);
  progress_ = std::make_unique<ProgressDialog>();
  progress_->OpenChanged = [this](bool open) { progressWindowOpen = open; };
  styleServices_ = std::make_unique<brivolant::Services>(Services());
  styles_ = std::make_unique<OneClickWonderStorage>(*styleServices_);
  if (!SendViaEmail) SendViaEmail = brivolant::SendViaEmail;
  MakeDesk();
  window_ = std::make_unique<MainWindow>(*this);
  info_ = std::make_unique<InfoWindows>(
      *desk_, NewFilePreviewer(), *window_,
      DataFolder().Child("brivolant-photos").Child("Unsaved Information"));
  info_->Written = [this](const FolderItem& file) {
    DiskThreads::Run(file, [file, facts = window_->imageBrowser->Facts] { (void)facts->Of(file); });
    window_->imageBrowser->ReloadCurrentView();
  };
  recent_->UpdateRecentMenu = [this] { window_->UpdateRecentMenu(); };
  ownDialogs_.Window(window_.get());
  ownFileDialogs_.Window(window_.get());
  ownColorPanel_.Window(window_.get());
  window_->Open();
  about_.reset();
  return true;
}

void App::MakeTemporaryFolder() {
  // Beside the user's own styles, so that a document can be moved into place by a rename.
  const FolderItem own = otherSharedComponents::userElementsFolder();
  if (own && temporary_.Configure(own.Child("CleanOnQuit"))) return;
  // Photos can be opened all the same; only what the user makes has no folder to lie in.
  dialogs_->Message(kNoDocuments.Text(), {});
  const FolderItem anywhere(QFile::encodeName(QDir::tempPath()).toStdString());
  if (!temporary_.Configure(anywhere.Child("CleanOnQuit"))) {
    log_.Write("There is no folder for temporary files.");
  }
}

void App::MakeDesk() {
  desk_ = std::make_unique<brivolant::Desk>(brivolant::Desk{
      Services(), *preferences_, *fileDialogs_, *clipboard_, *colorPanel_, *desktop_, *styles_,
      [this](const FolderItem& file) { OpenDocument(file); }, [this] { BringToFront(); },
      [this](const FolderItem& file, const std::string& subject) {
        return SendViaEmail(file, subject);
      },
      [this](const std::string& name, const std::string& link) {
        if (name == usersFullName && link == usersContactLink) return;
        usersFullName = name;
        usersContactLink = link;
        SaveUserDetails();
      },
      [this] { return myComputer(); }, [this](bool open) { QuickLookOpen = open; },
      [this](const std::vector<FolderItem>& files) {
        if (info_) info_->Show(files);
      },
      [this](const FileMoves& moves) {
        if (info_) info_->Follow(moves);
      },
      [this](const std::function<void()>& then) { info_ ? info_->WhenWritten(then) : then(); }});
}

void App::ReadUserDetails() {
  usersContactLink = preferences_->Value("usersContactLink", "").ToText();
  usersCopyright = preferences_->Value("usersCopyright", "").ToText();
  usersEmailApp = preferences_->Value("usersEmailApp", "Mail").ToText();
  usersFullName = preferences_->Value("usersFullName", "").ToText();
  if (usersFullName.empty()) usersFullName = StoredUserDetails(log_).FullName();
  userTagImages = preferences_->Value("userTagImages", true).ToBool();
}

void App::SaveUserDetails() {
  preferences_->Assign("usersContactLink", usersContactLink);
  preferences_->Assign("usersCopyright", usersCopyright);
  preferences_->Assign("usersEmailApp", usersEmailApp);
  preferences_->Assign("usersFullName", usersFullName);
  preferences_->Assign("userTagImages", userTagImages);
  preferences_->SynchronizeSoon();
}

std::string App::TagImageFile(const FolderItem& file) const {
  if (!userTagImages) return {};
  const std::string creator(Trim(usersFullName + "  " + usersContactLink));
  return StampImage(file, creator, usersCopyright, CreatedWithString());
}

void App::Close() {
  preferencesWindow_.reset();
  about_.reset();
  info_.reset();
  window_.reset();
  // Not before: the window's end waits for edits that are being written.
  if (recovery_ && !keeps_) recovery_->Forget();
  desk_.reset();
  styles_.reset();
  progress_.reset();
}

void App::KeepEdits() {
  if (!window_) return;
  window_->Session().Settling();
  window_->Session().KeepEditsNow();
  if (info_) info_->KeepUnsaved();
}

void App::KeepForNextStart() {
  KeepEdits();
  keeps_ = true;
  // A photo that was pasted lies nowhere else.
  temporary_.Keep();
}

void App::OpenDocuments(const std::vector<FolderItem>& files) {
  if (files.size() == 1) return OpenDocument(files.front());
  if (files.empty()) return;
  Look(files, [this, files](const std::vector<Looked>& looked) {
    std::vector<FolderItem> photos;
    std::vector<FolderItem> opened;
    for (std::size_t i = 0; i < files.size(); ++i) {
      const FolderItem& file = files[i];
      const bool photo =
          NamesPhoto(file) && (BrivolantDocument::IsDocument(file) || !looked[i].Folder);
      if (photo) photos.push_back(file);
      if (!photo || photos.size() == 1) opened.push_back(file);
    }
    if (photos.size() > 1 && window_) window_->ShowFiles(photos);
    for (const FolderItem& file : opened) OpenDocument(file);
  });
}

void App::Look(const std::vector<FolderItem>& items,
               std::function<void(const std::vector<Looked>&)> then) {
  const auto looked = std::make_shared<std::vector<Looked>>();
  const auto look = [items, looked] {
    for (const FolderItem& item : items) looked->push_back({item.Exists(), item.Directory()});
  };
  if (!window_) {
    look();
    return then(*looked);
  }
  const auto seen = std::make_shared<bool>(false);
  const std::string text = WithPlaceholders(EditSession::kOpeningImage.Text(),
                                            {{"<filename>", items.front().DisplayName()}});
  window_->Session().Work().Start(
      {text, true, [look, seen](Jobs::Control& control) { *seen = control.Apart(look); },
       [looked, seen, then = std::move(then)](Jobs::End, const std::string&) {
         if (*seen) then(*looked);
       },
       nullptr, true});
}

void App::OpenDocument(const FolderItem& item) {
  if (!MainWindowOpen) log_.Write("OpenDocument fired before open!");
  if (!window_) return Take(item);
  // Behind work on the present photo, and behind a question that is open: what is beneath it must
  // not change.
  window_->Session().Work().WhenIdle([this, item] { Take(item); });
}

void App::Take(const FolderItem& item) {
  using namespace InternalFileTypes;
  using FolderitemExtensions::isFileType;
  const auto refuse = [&](const LocalizedText& text) {
    dialogs_->Message(WithPlaceholders(text.Text(), {{"<filename>", item.DisplayName()}}), {});
  };
  if (isFileType(item, &BrivolantPhotosOneClickWonder)) return InstallStyle(item);
  if (isFileType(item, &BrivolantPhotosBorder)) return refuse(kUnableToLoadBorder);
  if (isFileType(item, &BrivolantPhotosCombinerLayouts)) return refuse(kUnableToLoadLayout);
  if (isFileType(item, &BrivolantPhotosHelpLink)) {
    QDesktopServices::openUrl(
        QUrl(QStringLiteral("mailto:") + QString::fromStdString(URLSupportEmailAddress.Text())));
    if (item.Delete()) log_.Write(std::string("Not deleted: ").append(item.ShellPath()));
    return;
  }
  if (!window_) return;
  // Its disk may be away, and who waits for it can give it up.
  Look({item}, [this, item](const std::vector<Looked>& looked) {
    const bool folder = looked.front().Folder && !BrivolantDocument::IsDocument(item);
    folder ? window_->DisplayContainer(item) : Replace(item);
  });
}

void App::Replace(const FolderItem& item) {
  window_->Session().Work().WhenIdle([this, item] {
    const auto open = [this, item] { window_->OpenImage(item, {}); };
    if (!window_->AskToSave(open)) open();
  });
}

/// A style that is being installed. What it uses is its own, since its disk may never answer.
struct App::Installing {
  explicit Installing(const brivolant::Services& owner) : worker(owner), style(worker.All()) {}
  WorkerServices worker;
  OneClickWonder style;
  FolderItem target;
  bool read = false;
  bool done = false;
  void Read(const FolderItem& file) { read = style.Load(file); }
  /// Moves the file into the folder, or copies it where it cannot be moved.
  void Run(const FolderItem& file, const FolderItem& folder) {
    if (!read || !folder) return;
    done = true;
    if (file.Parent() == folder) return;
    // A style of that name may be there; neither replaces the other.
    style.GenerateFile(folder);
    target = style.File;
    done = !file.MoveFileTo(target) || !file.CopyFileTo(target);
  }
};

void App::InstallStyle(const FolderItem& file) {
  styles_->Load();
  const auto installing = std::make_shared<Installing>(*styleServices_);
  const FolderItem folder = styles_->usersCustomWondersFolder;
  if (!window_) {
    installing->Read(file);
    installing->Run(file, folder);
    return Installed(file, *installing);
  }
  window_->Session().Work().Start(
      {WithPlaceholders(EditSession::kOpeningImage.Text(), {{"<filename>", file.DisplayName()}}),
       true,
       [installing, file, folder](Jobs::Control& control) {
         // Nothing is moved of what was given up.
         if (control.Apart([installing, file] { installing->Read(file); })) {
           installing->Run(file, folder);
         }
       },
       [this, file, installing](Jobs::End end, const std::string&) {
         for (const auto& told : installing->worker.Take()) {
           dialogs_->Message(told.Message, told.Explanation);
         }
         if (end != Jobs::End::kCancelled) Installed(file, *installing);
       },
       nullptr, true});
}

void App::Installed(const FolderItem& file, Installing& installing) {
  const OneClickWonder& style = installing.style;
  if (!installing.done) {
    dialogs_->Message(
        WithPlaceholders(kUnableToLoad1Click.Text(), {{"<filename>", file.DisplayName()}}), {});
    return;
  }
  installing.target ? (void)styles_->Add(installing.target) : (void)styles_->Refresh();
  const auto last = static_cast<int>(OneClickWonderStorage::CategoryName.size()) - 1;
  const std::string category =
      OneClickWonderStorage::CategoryName
          .at(static_cast<std::size_t>(std::clamp(style.Category, 0, last)))
          .Text();
  const std::string name = style.Name().empty() ? style.Name(0) : style.Name();
  const auto told = [&](const LocalizedText& text) {
    return WithPlaceholders(text.Text(), {{"<filename>", name}, {"<catName>", category}});
  };
  dialogs_->Message(told(k1ClickAddedMessage), told(k1ClickAddedExplaination));
  if (window_ && window_->Document() != nullptr) {
    window_->ShowStyle(style);
    window_->SwapDisplay(MainWindow::kEditorPane);
  }
}

void App::OpenRecent(const std::string& path) {
  const FolderItem item(path);
  Look({item}, [this, item, path](const std::vector<Looked>& looked) {
    if (looked.front().Exists) return Replace(item);
    dialogs_->Message(
        WithPlaceholders(kCannotOpen.Text(), {{"<filename>", RecentItems::TextFor(path)}}), {});
  });
}

void App::BringToFront() {
  if (!window_) return;
  if (window_->isMinimized()) window_->showNormal();
  window_->show();
  window_->raise();
  window_->activateWindow();
}

bool App::InfoMustWait(const std::function<void()>& then) {
  return info_ && info_->MustWait(then);
}

std::string App::CreatedWithString() const {
  return GlobalApplicationSpecificProperties::CreatedWithString();
}

void App::ShowAboutBox() {
  about_ = std::make_unique<AboutBox>(window_.get());
  about_->show();
}

void App::ShowPreferences() {
  if (preferencesWindow_ && preferencesWindow_->isVisible()) {
    preferencesWindow_->raise();
    preferencesWindow_->activateWindow();
    return;
  }
  preferencesWindow_ = std::make_unique<PreferencesWindow>(*this, window_.get());
  preferencesWindow_->show();
}

void App::ReadPhotoLibrary() {
  if (window_) window_->ReadPhotoLibrary();
}

bool App::OfferRecovery() {
  if (info_) info_->BringBack();
  // One document is open at a time: what is not brought back now is offered at the next start.
  for (const RecoveredEdits& left : recovery_->Left()) {
    // What arrives meanwhile must not come between.
    const EditSession::Hold hold(window_->Session());
    const Answer answer =
        dialogs_->Ask({WithPlaceholders(kRecoverMessage.Text(), {{"<filename>", left.Name}}),
                       kRecoverExplanation.Text(), kRecover.Text(), kLater.Text(), kGiveUp.Text()});
    // Only the clear word gives them up.
    if (answer == Answer::kAlternate) recovery_->GiveUp(left);
    if (answer != Answer::kAction) continue;
    // What cannot be opened, because its disk is away or its folder cannot be read, stays.
    window_->OpenRecovered(left);
    return true;
  }
  return false;
}

void App::RemoveLeftovers() {
  const auto packages = recovery_->Packages();
  if (!packages) return log_.Write("Kept edits cannot be read: no temporary folder is deleted.");
  for (const FolderItem& item : otherSharedComponents::userElementsFolder().Children()) {
    if (!item.Name().starts_with(".CleanOnQuit-") || FileLock::InUse(item)) continue;
    // A photo from the clipboard may lie nowhere else.
    const bool needed =
        std::any_of(packages->begin(), packages->end(), [&](const FolderItem& package) {
          return package.ShellPath().starts_with(item.ShellPath() + "/");
        });
    if (needed) continue;
    if (item.DeleteFolder()) log_.Write("Not deleted: " + item.DisplayName());
  }
}

void App::UnhandledException(const std::string& what) {
  log_.Write("Unhandled exception: " + what);
  dialogs_->Message(kUnhandled.Text(), what);
}

int App::UpdateCheckPeriod() const {
  return std::clamp(preferences_->Value(kUpdateCheckPeriod, 0).ToInt(), 0, 4);
}

void App::UpdateCheckPeriod(int period) {
  preferences_->Assign(kUpdateCheckPeriod, period);
}

int App::AppearanceChoice() const {
  return std::clamp(preferences_->Value(kAppearance, 0).ToInt(), 0, 2);
}

void App::AppearanceChoice(int choice) {
  preferences_->Assign(kAppearance, choice);
  Appearance::Apply(application_, static_cast<Appearance::Scheme>(choice));
}

brivolant::Services App::Services() {
  return {log_, *dialogs_, *this, temporary_, clock_, random_};
}

const std::shared_ptr<browserItemCollection>& App::myComputer() {
  if (!computer_) computer_ = std::make_shared<browserItemCollection>();
  computer_->Name = QSysInfo::machineHostName().toStdString();
  if (computer_->Name.empty()) computer_->Name = SideBarSources::kComputer.Text();
  computer_->Icon = "Computer";
  computer_->RemoveAllItems();
  for (const auto& volume : volumes_.Look()) computer_->AddItem(volume);
  return computer_;
}

}  // namespace brivolant
