// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/HoldingDialogs.h"
#include "app/core/Desk.h"
#include "app/core/RecentItems.h"
#include "app/core/Recovery.h"
#include "browser/VolumeList.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "kit/ColorPanelBridge.h"
#include "kit/DesktopServices.h"
#include "platform/services/Preferences.h"
#include "platform/services/SystemServices.h"
#include "platform/values/Text.h"

class QApplication;

namespace brivolant {

class browserItemCollection;

class AboutBox;
class InfoWindows;
class MainWindow;
class PreferencesWindow;
class ProgressDialog;

/// What stands for the desktop; the real one where null. Tests hand in their own.
struct DesktopParts {
  brivolant::Dialogs* Dialogs = nullptr;
  brivolant::FileDialogs* FileDialogs = nullptr;
  brivolant::Clipboard* Clipboard = nullptr;
  brivolant::ColorPanel* ColorPanel = nullptr;
  brivolant::Desktop* Desktop = nullptr;
};

/// The program: exists for the whole run, owns what outlives a window, and answers requests to
/// open files.
class App final : public UserDetails {
 public:
  static constexpr LocalizedText kUnableToLoad1Click{
      "App.kUnableToLoad1Click",
      "Sorry I was unable to open the 1-Click Style called \"<filename>\"."};
  static constexpr LocalizedText k1ClickAddedMessage{
      "App.k1ClickAddedMessage", "\"<filename>\" is now added to the 1-Click Styles"};
  static constexpr LocalizedText k1ClickAddedExplaination{
      "App.k1ClickAddedExplaination",
      "The 1-Click Style \"<filename>\" was successfully added to the list and it now avilable "
      "for use in the \"<catName>\" category."};
  static constexpr LocalizedText kUnableToLoadBorder{
      "App.kUnableToLoadBorder", "Sorry I was unable to open the Border \"<filename>\"."};
  static constexpr LocalizedText kUnableToLoadLayout{
      "App.kUnableToLoadLayout", "Sorry I was unable to open the layout \"<filename>\"."};
  static constexpr LocalizedText kCannotOpen{
      "App.kCannotOpen",
      "Brivolant Photos cannot open the file \"<filename>\" as it can no longer be found."};
  static constexpr LocalizedText kNoDocuments{
      "App.kNoDocuments",
      "Unable to create a UserCreatedElements folder as the users documents folder doesn't exist."};
  static constexpr LocalizedText kUnhandled{"App.kUnhandled",
                                            "Something went wrong, and the last action may not "
                                            "have been completed. Your photo is still open."};
  static constexpr LocalizedText kRecoverMessage{
      "App.kRecoverMessage",
      "The changes made to the photo \"<filename>\" were not saved when the program last ended."};
  static constexpr LocalizedText kRecoverExplanation{"App.kRecoverExplanation",
                                                     "Do you want to bring them back?"};
  static constexpr LocalizedText kRecover{"App.kRecover", "Bring Back"};
  static constexpr LocalizedText kGiveUp{"App.kGiveUp", "Give Up"};
  static constexpr LocalizedText kLater{"App.kLater", "Later"};

  explicit App(QApplication& application, DesktopParts parts = {});
  ~App() override;

  /// Starts: reads the settings and shows the main window. False, and the user has been told, if
  /// the resources are missing.
  [[nodiscard]] bool Open(bool openingScreen = true);
  /// Ends: nothing is left of a clean end.
  void Close();
  /// Writes the edits that are not saved to where a crash leaves them: the desktop's session ends.
  void KeepEdits();
  /// The same, and this run ends now, without a question: the next start offers to bring them back.
  void KeepForNextStart();
  /// Files given by the command line or another start. One photo can be edited: the first is
  /// opened, and the browser shows the others.
  void OpenDocuments(const std::vector<FolderItem>& files);
  /// A file given by the desktop.
  void OpenDocument(const FolderItem& item);
  /// A file chosen from the recent items. What is opened waits until nothing is busy and no
  /// question is open.
  void OpenRecent(const std::string& path);
  void ClearRecentMenu() { recent_->Clear(); }
  const std::vector<std::string>& RecentItem() const { return recent_->RecentItem(); }
  void BringToFront();
  void SaveUserDetails();
  /// Stamps a picture that leaves the program with the user's name, link and copyright, if the user
  /// wants that. Empty, or the sentence why it could not be done.
  [[nodiscard]] std::string TagImageFile(const FolderItem& file) const;
  std::string CreatedWithString() const;
  void ShowAboutBox();
  void ShowPreferences();
  /// What is at a place; asked on another thread, since a disk that is away may never answer.
  struct Looked {
    bool Exists = false;
    bool Folder = false;
  };
  /// Tells what is at these places, behind what the session is at; never if the user gives up.
  void Look(const std::vector<FolderItem>& items,
            std::function<void(const std::vector<Looked>&)> then);
  /// Another photo library was chosen.
  void ReadPhotoLibrary();
  /// Offers to bring back what an unclean end left. True if it was brought back.
  bool OfferRecovery();
  /// Deletes what earlier runs left in temporary folders. Only for the one running program.
  void RemoveLeftovers();
  /// What nothing else caught.
  void UnhandledException(const std::string& what);

  // UserDetails.
  std::string FullName() const override { return usersFullName; }
  std::string ContactLink() const override { return usersContactLink; }
  std::string Copyright() const override { return usersCopyright; }
  std::string CreatedWith() const override { return CreatedWithString(); }

  bool progressWindowOpen = false;
  bool MainWindowOpen = false;
  bool QuickLookOpen = false;
  std::string usersEmailApp = "Mail";
  std::string usersFullName;
  std::string usersContactLink;
  std::string usersCopyright;
  bool userTagImages = true;

  int UpdateCheckPeriod() const;
  void UpdateCheckPeriod(int period);
  /// An Appearance::Scheme.
  int AppearanceChoice() const;
  void AppearanceChoice(int choice);

  brivolant::Services Services();
  brivolant::Preferences& Preferences() { return *preferences_; }
  brivolant::FileDialogs& FileDialogs() { return *fileDialogs_; }
  brivolant::Dialogs& Dialogs() { return *dialogs_; }
  brivolant::Clipboard& Clipboard() { return *clipboard_; }
  brivolant::ColorPanel& ColorPanel() { return *colorPanel_; }
  brivolant::Log& Log() { return log_; }
  brivolant::Desktop& Desktop() { return *desktop_; }
  /// The styles of the program and of the user; read when they are first needed.
  OneClickWonderStorage& Styles() { return *styles_; }
  /// Services that live as long as the styles.
  const brivolant::Services& StyleServices() const { return *styleServices_; }
  /// Hands a file to the mail program; false if none could be started.
  std::function<bool(const FolderItem& file, const std::string& subject)> SendViaEmail;
  /// What the parts of the window get of the application.
  const brivolant::Desk& Desk() const { return *desk_; }
  RecentItems& Recent() { return *recent_; }
  ProgressDialog& Progress() { return *progress_; }
  brivolant::Recovery& Recovery() { return *recovery_; }
  /// The mounted disks as a folder; read anew at every call, and the same object always.
  const std::shared_ptr<browserItemCollection>& myComputer();
  /// Null before Open.
  MainWindow* Window() { return window_.get(); }
  PreferencesWindow* PreferencesShown() { return preferencesWindow_.get(); }
  /// See InfoWindows::MustWait.
  bool InfoMustWait(const std::function<void()>& then);
  /// Null before Open.
  InfoWindows* Info() { return info_.get(); }
  AboutBox* AboutShown() { return about_.get(); }

 private:
  void ReadUserDetails();
  void MakeDesk();
  void MakeTemporaryFolder();
  void Take(const FolderItem& item);
  /// Asks what is to become of the photo in work, then opens.
  void Replace(const FolderItem& item);
  struct Installing;
  void InstallStyle(const FolderItem& file);
  void Installed(const FolderItem& file, Installing& installing);

  QApplication& application_;
  std::shared_ptr<browserItemCollection> computer_;
  VolumeList volumes_;
  StandardErrorLog log_;
  SystemRandom random_;
  SystemClock clock_;
  /// Its own dice: other threads ask for temporary files too.
  SystemRandom temporaryRandom_;
  CleanOnQuit temporary_{temporaryRandom_};
  WidgetDialogs ownDialogs_;
  WidgetFileDialogs ownFileDialogs_;
  WidgetClipboard ownClipboard_;
  WidgetColorPanel ownColorPanel_;
  std::unique_ptr<HoldingDialogs> holding_;
  brivolant::Dialogs* dialogs_;
  brivolant::FileDialogs* fileDialogs_;
  brivolant::Clipboard* clipboard_;
  brivolant::ColorPanel* colorPanel_;
  /// Edits that are not saved are kept when this run ends.
  bool keeps_ = false;
  std::unique_ptr<brivolant::Preferences> preferences_;
  std::unique_ptr<RecentItems> recent_;
  std::unique_ptr<brivolant::Recovery> recovery_;
  std::unique_ptr<ProgressDialog> progress_;
  FreedesktopDesktop ownDesktop_;
  brivolant::Desktop* desktop_ = &ownDesktop_;
  std::unique_ptr<brivolant::Services> styleServices_;
  std::unique_ptr<OneClickWonderStorage> styles_;
  std::unique_ptr<brivolant::Desk> desk_;
  std::unique_ptr<MainWindow> window_;
  std::unique_ptr<PreferencesWindow> preferencesWindow_;
  std::unique_ptr<AboutBox> about_;
  std::unique_ptr<InfoWindows> info_;
};

}  // namespace brivolant
