// SPDX-License-Identifier: MIT
#include "app/PreferencesWindow.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <array>

#include "app/App.h"
#include "app/browse/LibraryController.h"
#include "app/session/EditSession.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkButton.h"

namespace brivolant {
namespace {

constexpr int kMargin = 24;
constexpr int kWidth = 460;
constexpr int kFieldHeight = 28;
constexpr std::array kMailPrograms{"Mail", "Entourage", "Mailsmith", "Eudora", "GyazMail"};

}  // namespace

PreferencesWindow::PreferencesWindow(App& app, QWidget* parent)
    : ifkWindow(parent, Qt::Dialog),
      app_(app),
      contactName_(new QLineEdit),
      contactLink_(new QLineEdit),
      copyright_(new QLineEdit),
      eMailApp_(new QComboBox),
      updateCheck_(new QComboBox),
      appearance_(new QComboBox),
      photoLibrary_(new QComboBox),
      copiesCarry_(new QComboBox) {
  setWindowTitle(Shown(kWindowTitle));
  setWindowModality(Qt::NonModal);
  auto* content = new QWidget(this);
  auto* form = new QFormLayout(content);
  form->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  form->setSpacing(8);
  form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow(Shown(kFullName), contactName_);
  form->addRow(Shown(kContactLink), contactLink_);
  auto* sign = new ifkButton(nullptr, QStringLiteral("\u00A9"));
  sign->setFixedSize(32, kFieldHeight);
  sign->setToolTip(Shown(kCopyRightHelp));
  sign->Action = [this] { copyright_->insert(QStringLiteral("\u00A9")); };
  copyRightButton_ = sign;
  auto* copyrightRow = new QHBoxLayout;
  copyrightRow->setSpacing(8);
  copyrightRow->addWidget(copyright_);
  copyrightRow->addWidget(sign);
  form->addRow(Shown(kCopyRight), copyrightRow);
  for (QLineEdit* field : {contactName_, contactLink_, copyright_}) {
    field->setMinimumHeight(kFieldHeight);
  }

  for (const char* name : kMailPrograms) eMailApp_->addItem(QString::fromLatin1(name));
  form->addRow(Shown(kPreferredEmailClient), eMailApp_);
  for (const LocalizedText& text : {kUpdateCheckEveryLaunch, kUpdateCheckDaily, kUpdateCheckWeekly,
                                    kUpdateCheckMonthly, kUpdateCheckNever}) {
    updateCheck_->addItem(Shown(text));
  }
  form->addRow(Shown(kCheckForUpdate), updateCheck_);
  for (const LocalizedText& text : {kFollowDesktop, kLight, kDark}) {
    appearance_->addItem(Shown(text));
  }
  form->addRow(Shown(kAppearance), appearance_);
  form->addRow(Shown(kPhotoLibrary), photoLibrary_);
  for (const LocalizedText& text : {kCarryAll, kCarryWithoutPlace, kCarryNone}) {
    copiesCarry_->addItem(Shown(text));
  }
  form->addRow(Shown(kCopiesCarry), copiesCarry_);
  setCentralWidget(content);
  for (QComboBox* choice : {eMailApp_, updateCheck_, appearance_, photoLibrary_, copiesCarry_}) {
    choice->setMinimumHeight(kFieldHeight);
  }
  for (QLabel* label : content->findChildren<QLabel*>()) label->setMinimumHeight(kFieldHeight);

  contactName_->setText(ToQString(app.usersFullName));
  contactLink_->setText(ToQString(app.usersContactLink));
  copyright_->setText(ToQString(app.usersCopyright));
  eMailApp_->setCurrentIndex(
      std::max(eMailApp_->findText(ToQString(app.usersEmailApp), Qt::MatchExactly), 0));
  updateCheck_->setCurrentIndex(app.UpdateCheckPeriod());
  appearance_->setCurrentIndex(app.AppearanceChoice());
  copiesCarry_->setCurrentIndex(
      std::clamp(app.Preferences().Value(EditSession::kCopiesCarry, 0).ToInt(), 0, 2));
  connect(copiesCarry_, &QComboBox::activated, this,
          [this](int index) { app_.Preferences().Assign(EditSession::kCopiesCarry, index); });
  connect(eMailApp_, &QComboBox::currentTextChanged, this,
          [this](const QString& name) { app_.usersEmailApp = name.toStdString(); });
  FillPhotoLibrary();
  connect(photoLibrary_, &QComboBox::activated, this,
          [this](int index) { ChoosePhotoLibrary(index); });
  connect(appearance_, &QComboBox::currentIndexChanged, this,
          [this](int index) { app_.AppearanceChoice(index); });
  setFixedWidth(kWidth);
  setFixedHeight(sizeHint().height());
}

void PreferencesWindow::FillPhotoLibrary() {
  const std::string chosen = app_.Preferences().Value(LibraryController::kLibraryKey, "").ToText();
  photoLibrary_->clear();
  photoLibrary_->addItem(Shown(kLibraryFromPictures));
  if (!chosen.empty()) photoLibrary_->addItem(ToQString(EnsureUTF8(chosen)));
  photoLibrary_->addItem(Shown(kChooseLibrary));
  photoLibrary_->setCurrentIndex(chosen.empty() ? 0 : 1);
}

void PreferencesWindow::ChoosePhotoLibrary(int index) {
  const bool choose = index == photoLibrary_->count() - 1;
  if (!choose && index != 0) return;
  if (choose) {
    const std::vector<FolderItem> files =
        app_.FileDialogs().Open(kChooseLibraryTitle.Text(), {}, {{kLibraryFile.Text(), "xml"}});
    if (!files.empty()) {
      app_.Preferences().Assign(LibraryController::kLibraryKey, files.front().ShellPath());
    }
  } else {
    app_.Preferences().Assign(LibraryController::kLibraryKey, "");
  }
  FillPhotoLibrary();
  app_.ReadPhotoLibrary();
}

void PreferencesWindow::Save() {
  app_.usersFullName = contactName_->text().toStdString();
  app_.usersContactLink = contactLink_->text().toStdString();
  app_.usersCopyright = copyright_->text().toStdString();
  app_.UpdateCheckPeriod(updateCheck_->currentIndex());
  app_.SaveUserDetails();
}

void PreferencesWindow::closeEvent(QCloseEvent* event) {
  Save();
  ifkWindow::closeEvent(event);
}

void PreferencesWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else {
    ifkWindow::keyPressEvent(event);
  }
}

}  // namespace brivolant
