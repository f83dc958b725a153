// SPDX-License-Identifier: MIT
#include "app/edit/OneClickEditor.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "effects/styles/OneClickWonderStorage.h"
#include "effects/styles/StyleSource.h"
#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkButton.h"
#include "support/LanguageTools.h"

namespace brivolant {
namespace {

constexpr int kMargin = 24;
constexpr int kSpace = 8;
constexpr int kWell = 132;
constexpr int kPreviewSide = 100;
constexpr int kFieldHeight = 28;
constexpr int kWidth = 560;

}  // namespace

oneClickEditor::oneClickEditor(const Desk& desk, QWidget* parent)
    : QDialog(parent),
      name(new QLineEdit),
      description(new QPlainTextEdit),
      languagemenu(new QComboBox),
      categoryMenu(new QComboBox),
      creatorsname(new QLineEdit),
      creatorsContact(new QLineEdit),
      ImageWell1(new ifkButton),
      ifkSaveButton(new ifkButton(nullptr, Shown(kSave))),
      ifkCancel(new ifkButton(nullptr, Shown(kCancel))),
      desk_(desk) {
  setModal(true);
  for (const LocalizedText& text : OneClickWonderStorage::CategoryName) {
    categoryMenu->addItem(Shown(text));
  }
  for (int i = 0; i < LanguageTools::kLanguageCount; ++i) {
    languagemenu->addItem(ToQString(LanguageTools::Name(i)));
  }
  ImageWell1->setFixedSize(kWell, kWell);
  ImageWell1->iconSize = kWell - 2 * kSpace;
  ImageWell1->setToolTip(Shown(kPreviewHelp));
  ImageWell1->setAccessibleName(Shown(kPreviewHelp));
  description->setTabChangesFocus(true);
  description->setFixedHeight(3 * kFieldHeight);
  for (QWidget* field :
       {static_cast<QWidget*>(name), static_cast<QWidget*>(creatorsname),
        static_cast<QWidget*>(creatorsContact), static_cast<QWidget*>(languagemenu),
        static_cast<QWidget*>(categoryMenu)}) {
    field->setMinimumHeight(kFieldHeight);
  }
  auto* form = new QFormLayout;
  form->setSpacing(kSpace);
  form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
  form->addRow(Shown(kName), name);
  form->addRow(Shown(kDescription), description);
  form->addRow(Shown(LanguageTools::kLanguage), languagemenu);
  categoryLabel_ = new QLabel(Shown(kCategory));
  form->addRow(categoryLabel_, categoryMenu);
  form->addRow(Shown(kCreator), creatorsname);
  form->addRow(Shown(kContact), creatorsContact);
  auto* above = new QHBoxLayout;
  above->setSpacing(kMargin);
  above->addWidget(ImageWell1, 0, Qt::AlignTop);
  above->addLayout(form, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  for (ifkButton* button : {ifkCancel, ifkSaveButton}) {
    button->setMinimumSize(96, kFieldHeight);
    buttons->addWidget(button);
  }
  ifkSaveButton->Default = true;
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kMargin);
  column->addLayout(above);
  column->addLayout(buttons);
  setMinimumWidth(kWidth);
  for (QLabel* label : findChildren<QLabel*>()) label->setMinimumHeight(kFieldHeight);

  connect(name, &QLineEdit::textEdited, this, [this](const QString& text) {
    mName_[languagemenu->currentIndex()] = text.toStdString();
    Changed();
  });
  connect(description, &QPlainTextEdit::textChanged, this, [this] {
    if (updating_) return;
    mDescription_[languagemenu->currentIndex()] = description->toPlainText().toStdString();
    Changed();
  });
  connect(creatorsname, &QLineEdit::textEdited, this, [this] { Changed(); });
  connect(creatorsContact, &QLineEdit::textEdited, this, [this] { Changed(); });
  connect(categoryMenu, &QComboBox::currentIndexChanged, this, [this] { Changed(); });
  connect(languagemenu, &QComboBox::currentIndexChanged, this,
          [this](int language) { ChangeLanguage(language); });
  connect(name, &QLineEdit::returnPressed, this, [this] {
    if (ifkSaveButton->isEnabled()) Save();
  });
  ImageWell1->Action = [this] { RenderPreview(); };
  ifkSaveButton->Action = [this] { Save(); };
  ifkCancel->Action = [this] { reject(); };
}

oneClickEditor::~oneClickEditor() = default;

void oneClickEditor::Fill(OneClickWonder& style, const std::string& title) {
  updating_ = true;
  setWindowTitle(title.empty() ? Shown(kTitleEditOneClickWonder) : ToQString(title));
  my1Click_ = &style;
  mName_.clear();
  mDescription_.clear();
  for (int i = 0; i < LanguageTools::kLanguageCount; ++i) {
    if (!style.Name(i).empty()) mName_[i] = style.Name(i);
    if (!style.Description(i).empty()) mDescription_[i] = style.Description(i);
  }
  categoryMenu->setCurrentIndex(style.Category);
  // Styles of one's own stay where one looks for them; who holds Alt may file them elsewhere.
  const bool free = QGuiApplication::queryKeyboardModifiers().testFlag(Qt::AltModifier);
  categoryMenu->setVisible(free);
  categoryLabel_->setVisible(free);
  languagemenu->setCurrentIndex(LanguageTools::UsersLangeuageID());
  name->setText(ToQString(style.Name()));
  description->setPlainText(ToQString(style.Description()));
  creatorsname->setText(ToQString(style.Creator));
  creatorsContact->setText(ToQString(style.ContactLink));
  preview_ = style.Preview();
  updating_ = false;
  if (preview_.IsNil()) {
    RenderPreview();
  } else {
    ShowPreview();
  }
  // A new style may be saved as it is.
  ifkSaveButton->setEnabled(style.File.IsNil());
  name->setFocus();
  name->selectAll();
}

bool oneClickEditor::edit1Click(OneClickWonder& style, const std::string& title) {
  Fill(style, title);
  return exec() == QDialog::Accepted;
}

void oneClickEditor::Changed() {
  if (!updating_) ifkSaveButton->setEnabled(true);
}

void oneClickEditor::ChangeLanguage(int language) {
  if (updating_) return;
  updating_ = true;
  const auto shown = [language](const std::map<int, std::string>& texts) {
    const auto found = texts.find(language);
    return found == texts.end() ? QString() : ToQString(found->second);
  };
  name->setText(shown(mName_));
  description->setPlainText(shown(mDescription_));
  updating_ = false;
  Changed();
}

void oneClickEditor::RenderPreview() {
  preview_ = StyleSource::Render(my1Click_->StyleData, OneClickWonderStorage::PreviewImage(),
                                 kPreviewSide, desk_.Services);
  ShowPreview();
  Changed();
}

void oneClickEditor::ShowPreview() {
  ImageWell1->icon(QIcon(QPixmap::fromImage(ImageFromPicture(preview_))));
  ImageWell1->update();
}

void oneClickEditor::Save() {
  OneClickWonder& style = *my1Click_;
  if (!preview_.IsNil() && !preview_.SharesPixelsWith(style.Preview())) style.Preview(preview_);
  style.Creator = creatorsname->text().toStdString();
  style.ContactLink = creatorsContact->text().toStdString();
  style.Category = categoryMenu->currentIndex();
  for (const auto& [language, text] : mName_) style.Name(language, text);
  for (const auto& [language, text] : mDescription_) style.Description(language, text);
  const bool fresh = style.File.IsNil();
  if (fresh) style.GenerateFile(desk_.Styles.usersCustomWondersFolder);
  if (!style.Save({})) {
    const std::string why = style.LastErrorMessage;
    if (fresh) style.File = {};
    desk_.Services.Dialogs.Message(why, {});
    return;
  }
  desk_.KeepMaker(style.Creator, style.ContactLink);
  accept();
}

}  // namespace brivolant
