// SPDX-License-Identifier: MIT
#pragma once

#include "kit/ifkWindow.h"
#include "platform/values/Text.h"

class QComboBox;
class QLineEdit;

namespace brivolant {

class App;

/// The user's own details. Closing the window saves them.
class PreferencesWindow final : public ifkWindow {
 public:
  static constexpr LocalizedText kWindowTitle{"PreferencesWindow.kWindowTitle", "Preferences"};
  static constexpr LocalizedText kFullName{"PreferencesWindow.kFullName", "Full Name:"};
  static constexpr LocalizedText kContactLink{"PreferencesWindow.kContactLink", "Contact Link:"};
  static constexpr LocalizedText kCopyRight{"PreferencesWindow.kCopyRight", "Copyright:"};
  static constexpr LocalizedText kPreferredEmailClient{"PreferencesWindow.kPreferredEmailClient",
                                                       "e-mail application:"};
  static constexpr LocalizedText kCheckForUpdate{"PreferencesWindow.kCheckForUpdate",
                                                 "Check For Update:"};
  static constexpr LocalizedText kUpdateCheckEveryLaunch{
      "PreferencesWindow.kUpdateCheckEveryLaunch", "Every Launch"};
  static constexpr LocalizedText kUpdateCheckDaily{"PreferencesWindow.kUpdateCheckDaily", "Daily"};
  static constexpr LocalizedText kUpdateCheckWeekly{"PreferencesWindow.kUpdateCheckWeekly",
                                                    "Weekly"};
  static constexpr LocalizedText kUpdateCheckMonthly{"PreferencesWindow.kUpdateCheckMonthly",
                                                     "Monthly"};
  static constexpr LocalizedText kUpdateCheckNever{"PreferencesWindow.kUpdateCheckNever", "Never"};
  static constexpr LocalizedText kAppearance{"PreferencesWindow.kAppearance", "Appearance:"};
  static constexpr LocalizedText kFollowDesktop{"PreferencesWindow.kFollowDesktop",
                                                "As the desktop"};
  static constexpr LocalizedText kLight{"PreferencesWindow.kLight", "Light"};
  static constexpr LocalizedText kDark{"PreferencesWindow.kDark", "Dark"};
  static constexpr LocalizedText kPhotoLibrary{"PreferencesWindow.kPhotoLibrary", "Photo Library:"};
  static constexpr LocalizedText kLibraryFromPictures{"PreferencesWindow.kLibraryFromPictures",
                                                      "As found in Pictures"};
  static constexpr LocalizedText kChooseLibrary{"PreferencesWindow.kChooseLibrary", "Choose..."};
  static constexpr LocalizedText kChooseLibraryTitle{"PreferencesWindow.kChooseLibraryTitle",
                                                     "Choose the File of a Photo Library"};
  static constexpr LocalizedText kLibraryFile{"PreferencesWindow.kLibraryFile",
                                              "Photo library (AlbumData.xml)"};
  static constexpr LocalizedText kCopiesCarry{"PreferencesWindow.kCopiesCarry", "Copies Tell:"};
  static constexpr LocalizedText kCarryAll{"PreferencesWindow.kCarryAll",
                                           "All that the photo tells"};
  static constexpr LocalizedText kCarryWithoutPlace{"PreferencesWindow.kCarryWithoutPlace",
                                                    "All but where it was taken"};
  static constexpr LocalizedText kCarryNone{"PreferencesWindow.kCarryNone", "Nothing"};
  static constexpr LocalizedText kCopyRightHelp{"PreferencesWindow.kCopyRightHelp",
                                                "Puts \xC2\xA9 at the caret"};

  /// Filled from the application; it must outlive the window.
  explicit PreferencesWindow(App& app, QWidget* parent = nullptr);

  QLineEdit& contactName() { return *contactName_; }
  QLineEdit& contactLink() { return *contactLink_; }
  QLineEdit& copyright() { return *copyright_; }
  QWidget& copyRightButton() { return *copyRightButton_; }
  QComboBox& eMailApp() { return *eMailApp_; }
  QComboBox& updateCheck() { return *updateCheck_; }
  QComboBox& appearance() { return *appearance_; }
  /// All, all but the place, nothing.
  QComboBox& copiesCarry() { return *copiesCarry_; }
  /// As found, then the chosen file if there is one, then choosing one.
  QComboBox& photoLibrary() { return *photoLibrary_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Save();
  void FillPhotoLibrary();
  void ChoosePhotoLibrary(int index);

  App& app_;
  QLineEdit* contactName_;
  QLineEdit* contactLink_;
  QLineEdit* copyright_;
  QWidget* copyRightButton_;
  QComboBox* eMailApp_;
  QComboBox* updateCheck_;
  QComboBox* appearance_;
  QComboBox* photoLibrary_;
  QComboBox* copiesCarry_;
};

}  // namespace brivolant
