// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <functional>
#include <map>
#include <vector>

#include "app/session/ManyInfos.h"
#include "platform/values/Text.h"

class QCheckBox;
class QComboBox;
class QDateTimeEdit;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;
class QStackedWidget;

namespace brivolant {

/// What the owner says of one photo or of many: only what is changed here is given to them.
class EditInfoSheet final : public QDialog {
 public:
  static constexpr LocalizedText kTitleOne{"EditInfoSheet.kTitleOne",
                                           "Edit Info of \"<filename>\""};
  static constexpr LocalizedText kTitleMany{"EditInfoSheet.kTitleMany",
                                            "Edit Info of <count> Photos"};
  static constexpr LocalizedText kTitle{"EditInfoSheet.kTitle", "Title:"};
  static constexpr LocalizedText kDescription{"EditInfoSheet.kDescription", "Description:"};
  static constexpr LocalizedText kKeywords{"EditInfoSheet.kKeywords", "Keywords:"};
  static constexpr LocalizedText kCreator{"EditInfoSheet.kCreator", "Creator:"};
  static constexpr LocalizedText kCopyright{"EditInfoSheet.kCopyright", "Copyright:"};
  static constexpr LocalizedText kRating{"EditInfoSheet.kRating", "Rating:"};
  static constexpr LocalizedText kNoRating{"EditInfoSheet.kNoRating", "None"};
  static constexpr LocalizedText kRejected{"EditInfoSheet.kRejected", "Rejected"};
  static constexpr LocalizedText kCity{"EditInfoSheet.kCity", "City:"};
  static constexpr LocalizedText kState{"EditInfoSheet.kState", "State or Province:"};
  static constexpr LocalizedText kCountry{"EditInfoSheet.kCountry", "Country:"};
  static constexpr LocalizedText kPosition{"EditInfoSheet.kPosition", "Position:"};
  static constexpr LocalizedText kPositionHelp{"EditInfoSheet.kPositionHelp",
                                               "Latitude, longitude: 52.5163, 13.3777"};
  static constexpr LocalizedText kTaken{"EditInfoSheet.kTaken", "Date Taken:"};
  static constexpr LocalizedText kTakenLeave{"EditInfoSheet.kTakenLeave", "Leave as it is"};
  static constexpr LocalizedText kTakenSet{"EditInfoSheet.kTakenSet", "Set to"};
  static constexpr LocalizedText kTakenShift{"EditInfoSheet.kTakenShift", "Shift by"};
  static constexpr LocalizedText kDays{"EditInfoSheet.kDays", " days"};
  static constexpr LocalizedText kHours{"EditInfoSheet.kHours", " hours"};
  static constexpr LocalizedText kMinutes{"EditInfoSheet.kMinutes", " minutes"};
  static constexpr LocalizedText kSeconds{"EditInfoSheet.kSeconds", " seconds"};
  static constexpr LocalizedText kDiffering{"EditInfoSheet.kDiffering", "Different values"};
  static constexpr LocalizedText kWordsHelp{"EditInfoSheet.kWordsHelp",
                                            "Keywords of all photos, with commas between"};
  static constexpr LocalizedText kBeside{
      "EditInfoSheet.kBeside",
      "Photos of kinds that are never written keep it beside them, in files ending with \".xmp\"."};
  static constexpr LocalizedText kNoPlace{
      "EditInfoSheet.kNoPlace",
      "The position is no place on Earth. Please enter latitude and longitude."};

  EditInfoSheet(QWidget& window, const std::vector<FolderItem>& files,
                const ManyInfos::Common& common);

  QLineEdit& Field(MetadataField field) { return *fields_.at(field); }
  QPlainTextEdit& Description() { return *description_; }
  QLineEdit& Keywords() { return *keywords_; }
  QComboBox& Rating() { return *rating_; }
  QLineEdit& Position() { return *position_; }
  /// Left as it is, set, shifted.
  QComboBox& Taken() { return *taken_; }
  QDateTimeEdit& Moment() { return *moment_; }
  QSpinBox& Days() { return *days_; }
  QSpinBox& Hours() { return *hours_; }

  /// What was changed.
  std::function<void(const ManyInfos::Order& order)> Accepted;
  /// What cannot be meant is told in words, and the sheet stays open.
  std::function<void(const std::string& why)> Rejected;

  void accept() override;

 private:
  bool Differs(MetadataField field) const;
  std::string Said(MetadataField field) const;
  ManyInfos::Order Order() const;
  void ShowTaken();

  ManyInfos::Common common_;
  /// What a field showed first.
  std::map<MetadataField, QString> shown_;
  QString shownWords_;
  /// Between keywords; a comma may be a part of one.
  QChar between_ = QLatin1Char(',');
  std::map<MetadataField, QLineEdit*> fields_;
  QPlainTextEdit* description_;
  QLineEdit* keywords_;
  QComboBox* rating_;
  QLineEdit* position_;
  QComboBox* taken_;
  QDateTimeEdit* moment_;
  QWidget* shift_;
  /// What is asked of the moment: nothing, a new one, or a distance.
  QStackedWidget* asked_;
  QSpinBox* days_;
  QSpinBox* hours_;
  QSpinBox* minutes_;
  QSpinBox* seconds_;
};

}  // namespace brivolant
