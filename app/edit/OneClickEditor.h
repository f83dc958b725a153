// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <map>
#include <string>

#include "app/core/Desk.h"
#include "effects/styles/OneClickWonder.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace brivolant {

class ifkButton;

/// The details of a 1-Click style: texts by language, maker, preview.
class oneClickEditor final : public QDialog {
 public:
  static constexpr LocalizedText kTitleEditOneClickWonder{"oneClickEditor.kTitleEditOneClickWonder",
                                                          "Edit 1-Click Style"};
  static constexpr LocalizedText kTitleCreateOneClickWonder{
      "oneClickEditor.kTitleCreateOneClickWonder", "Create New 1-Click Style"};
  static constexpr LocalizedText kName{"oneClickEditor.kName", "Name:"};
  static constexpr LocalizedText kDescription{"oneClickEditor.kDescription", "Description:"};
  static constexpr LocalizedText kCategory{"oneClickEditor.kCategory", "Category:"};
  static constexpr LocalizedText kCreator{"oneClickEditor.kCreator", "Made by:"};
  static constexpr LocalizedText kContact{"oneClickEditor.kContact", "Contact:"};
  static constexpr LocalizedText kSave{"oneClickEditor.kSave", "Save"};
  static constexpr LocalizedText kCancel{"oneClickEditor.kCancel", "Cancel"};
  static constexpr LocalizedText kPreviewHelp{"oneClickEditor.kPreviewHelp",
                                              "Click to render the preview anew"};

  oneClickEditor(const Desk& desk, QWidget* parent);
  ~oneClickEditor() override;

  /// Shows the window and waits. True if the style was saved. An empty title is that of editing.
  [[nodiscard]] bool edit1Click(OneClickWonder& style, const std::string& title);
  /// Fills the window; edit1Click does it too.
  void Fill(OneClickWonder& style, const std::string& title);

  // Named controls.
  QLineEdit* name;
  QPlainTextEdit* description;
  QComboBox* languagemenu;
  QComboBox* categoryMenu;
  QLineEdit* creatorsname;
  QLineEdit* creatorsContact;
  ifkButton* ImageWell1;
  ifkButton* ifkSaveButton;
  ifkButton* ifkCancel;

 private:
  void Save();
  void ShowPreview();
  void RenderPreview();
  void Changed();
  void ChangeLanguage(int language);

  Desk desk_;
  OneClickWonder* my1Click_ = nullptr;
  std::map<int, std::string> mName_;
  std::map<int, std::string> mDescription_;
  QLabel* categoryLabel_ = nullptr;
  bool updating_ = true;
  Picture preview_;
};

}  // namespace brivolant
