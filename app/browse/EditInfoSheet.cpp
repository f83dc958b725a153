// SPDX-License-Identifier: MIT
#include "app/browse/EditInfoSheet.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "kit/InterfaceKitSupport.h"
#include "platform/values/Captions.h"
#include "platform/values/Numbers.h"

namespace brivolant {
namespace {

constexpr int kMargin = 24;
constexpr int kGap = 8;
constexpr int kFieldWidth = 340;
constexpr int kDescriptionLines = 3;
/// Names hold commas.
constexpr QChar kBetweenNames = QLatin1Char(';');
enum TakenChoice { kLeave, kSetMoment, kShiftMoment };
/// Rejected, none, one to five stars.
constexpr int kFirstRating = -1;
constexpr int kLastRating = 5;

std::vector<std::string> Words(const QString& text, QChar between) {
  std::vector<std::string> words;
  for (const QString& word : text.split(between, Qt::SkipEmptyParts)) {
    if (!word.trimmed().isEmpty()) words.push_back(word.trimmed().toStdString());
  }
  return words;
}

QString Joined(const std::vector<std::string>& words, QChar between) {
  QStringList all;
  for (const std::string& word : words) all << ToQString(word);
  return all.join(between + QStringLiteral(" "));
}

QSpinBox* Number(int most, const LocalizedText& unit) {
  auto* box = new QSpinBox;
  box->setRange(-most, most);
  box->setSuffix(Shown(unit));
  return box;
}

}  // namespace

EditInfoSheet::EditInfoSheet(QWidget& window, const std::vector<FolderItem>& files,
                             const ManyInfos::Common& common)
    : QDialog(&window),
      common_(common),
      description_(new QPlainTextEdit),
      keywords_(new QLineEdit),
      rating_(new QComboBox),
      position_(new QLineEdit),
      taken_(new QComboBox),
      moment_(new QDateTimeEdit),
      shift_(new QWidget),
      asked_(new QStackedWidget),
      days_(Number(36500, kDays)),
      hours_(Number(23, kHours)),
      minutes_(Number(59, kMinutes)),
      seconds_(Number(59, kSeconds)) {
  const bool one = files.size() == 1;
  setWindowTitle(ToQString(
      one ? WithPlaceholders(kTitleOne.Text(), {{"<filename>", files.front().DisplayName()}})
          : WithPlaceholders(kTitleMany.Text(),
                             {{"<count>", ReadableNumber(static_cast<double>(files.size()), 0)}})));
  setWindowModality(Qt::WindowModal);
  setAttribute(Qt::WA_DeleteOnClose);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(2 * kGap);
  auto* form = new QFormLayout;
  form->setSpacing(kGap);
  form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  column->addLayout(form);
  const auto line = [&](MetadataField field, const LocalizedText& label) {
    auto* edit = new QLineEdit(ToQString(Said(field)));
    if (Differs(field)) edit->setPlaceholderText(Shown(kDiffering));
    fields_[field] = edit;
    shown_[field] = edit->text();
    form->addRow(Shown(label), edit);
  };
  line(MetadataField::kTitle, kTitle);
  description_->setPlainText(ToQString(Said(MetadataField::kDescription)));
  if (Differs(MetadataField::kDescription)) description_->setPlaceholderText(Shown(kDiffering));
  // The sheet itself is as wide as its widest row wants.
  description_->setMinimumWidth(kFieldWidth);
  description_->setTabChangesFocus(true);
  description_->setFixedHeight(description_->fontMetrics().lineSpacing() * kDescriptionLines + 12);
  form->addRow(Shown(kDescription), description_);
  shown_[MetadataField::kDescription] = description_->toPlainText();
  const bool commas = std::ranges::any_of(
      common_.Words, [](const std::string& word) { return word.find(',') != std::string::npos; });
  if (commas) between_ = QLatin1Char(';');
  shownWords_ = Joined(common_.Words, between_);
  keywords_->setText(shownWords_);
  keywords_->setToolTip(Shown(kWordsHelp));
  keywords_->setPlaceholderText(Shown(kWordsHelp));
  form->addRow(Shown(kKeywords), keywords_);
  for (int stars = kFirstRating; stars <= kLastRating; ++stars) {
    rating_->addItem(stars < 0    ? Shown(kRejected)
                     : stars == 0 ? Shown(kNoRating)
                                  : QString(stars, QChar(0x2605)),
                     stars);
  }
  const auto stars = NumberFromText(Said(MetadataField::kRating));
  const double rated = stars ? std::clamp<double>(*stars, kFirstRating, kLastRating) : 0;
  rating_->setCurrentIndex(rating_->findData(static_cast<int>(rated)));
  if (Differs(MetadataField::kRating)) {
    rating_->insertItem(0, Shown(kDiffering));
    rating_->setCurrentIndex(0);
  }
  form->addRow(Shown(kRating), rating_);
  line(MetadataField::kCreator, kCreator);
  line(MetadataField::kCopyright, kCopyright);
  line(MetadataField::kCity, kCity);
  line(MetadataField::kState, kState);
  line(MetadataField::kCountry, kCountry);
  position_->setText(ToQString(Said(MetadataField::kPosition)));
  shown_[MetadataField::kPosition] = position_->text();
  position_->setPlaceholderText(
      Shown(Differs(MetadataField::kPosition) ? kDiffering : kPositionHelp));
  position_->setToolTip(Shown(kPositionHelp));
  form->addRow(Shown(kPosition), position_);
  for (const LocalizedText& text : {kTakenLeave, kTakenSet, kTakenShift}) {
    taken_->addItem(Shown(text));
  }
  form->addRow(Shown(kTaken), taken_);
  moment_->setCalendarPopup(true);
  // As the user's locale writes it, but with whole years, and no hour that a clock leaves out in
  // spring.
  QString day = moment_->displayFormat().section(QLatin1Char(' '), 0, 0);
  if (!day.contains(QStringLiteral("yyyy")))
    day.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
  moment_->setTimeSpec(Qt::UTC);
  moment_->setDisplayFormat(day + QStringLiteral(" HH:mm:ss"));
  const Date first = common_.FirstTaken.value_or(Date::Now());
  moment_->setDateTime(QDateTime(QDate(first.Year, first.Month, first.Day),
                                 QTime(first.Hour, first.Minute, first.Second), Qt::UTC));
  auto* row = new QHBoxLayout(shift_);
  row->setContentsMargins(0, 0, 0, 0);
  for (QSpinBox* box : {days_, hours_, minutes_, seconds_}) {
    // Its unit is to be read too, in a language with longer words as well.
    box->setMinimumWidth(box->sizeHint().width());
    row->addWidget(box);
  }
  // As wide as the widest, and the sheet does not jump.
  for (QWidget* page : {new QWidget, static_cast<QWidget*>(moment_), shift_})
    asked_->addWidget(page);
  asked_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  form->addRow(QString(), asked_);
  if (common_.Beside > 0) {
    auto* words = new QLabel(Shown(kBeside));
    words->setWordWrap(true);
    words->setForegroundRole(QPalette::PlaceholderText);
    column->addWidget(words);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
  buttons->button(QDialogButtonBox::Save)->setText(Shown(Captions::kSave));
  buttons->button(QDialogButtonBox::Cancel)->setText(Shown(Captions::kCancel));
  column->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(taken_, &QComboBox::currentIndexChanged, this, [this] { ShowTaken(); });
  ShowTaken();
}

void EditInfoSheet::ShowTaken() {
  asked_->setCurrentIndex(taken_->currentIndex());
}

bool EditInfoSheet::Differs(MetadataField field) const {
  return std::ranges::find(common_.Differing, field) != common_.Differing.end();
}

std::string EditInfoSheet::Said(MetadataField field) const {
  for (const auto& [known, texts] : common_.Said) {
    if (known != field || texts.empty()) continue;
    return field == MetadataField::kCreator ? Joined(texts, kBetweenNames).toStdString()
                                            : texts.front();
  }
  return {};
}

ManyInfos::Order EditInfoSheet::Order() const {
  ManyInfos::Order order;
  const auto give = [&](MetadataField field, const QString& text, bool typed) {
    // What differs stays until something is typed, if only to be taken out again.
    if (text == shown_.at(field) && !(typed && Differs(field))) return;
    const std::string said = text.trimmed().toStdString();
    std::vector<std::string> texts;
    if (!said.empty()) {
      texts = field == MetadataField::kCreator ? Words(text, kBetweenNames) : std::vector{said};
    }
    order.Fields.push_back({field, std::move(texts)});
  };
  for (const auto& [field, edit] : fields_) {
    give(field, edit->text(), edit->isModified());
  }
  give(MetadataField::kDescription, description_->toPlainText(),
       description_->document()->isModified());
  give(MetadataField::kPosition, position_->text(), position_->isModified());
  if (const QVariant stars = rating_->currentData(); stars.isValid()) {
    const auto said = NumberFromText(Said(MetadataField::kRating));
    const bool same =
        !Differs(MetadataField::kRating) && stars.toInt() == (said ? static_cast<int>(*said) : 0);
    if (!same) {
      std::vector<std::string> texts;
      if (stars.toInt() != 0) texts.push_back(std::to_string(stars.toInt()));
      order.Fields.push_back({MetadataField::kRating, std::move(texts)});
    }
  }
  const std::vector<std::string> words =
      keywords_->text() == shownWords_ ? common_.Words : Words(keywords_->text(), between_);
  const auto missing = [](const std::vector<std::string>& all, const std::vector<std::string>& in) {
    std::vector<std::string> gone;
    std::ranges::copy_if(all, std::back_inserter(gone), [&](const std::string& word) {
      return std::ranges::find(in, word) == in.end();
    });
    return gone;
  };
  order.GoneWords = missing(common_.Words, words);
  order.NewWords = missing(words, common_.Words);
  if (taken_->currentIndex() == kSetMoment) {
    order.Fields.push_back(
        {MetadataField::kTaken,
         {moment_->dateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString()}});
  }
  if (taken_->currentIndex() == kShiftMoment) {
    constexpr double kMinute = 60;
    constexpr double kHour = 60 * kMinute;
    order.Shift = days_->value() * 24 * kHour + hours_->value() * kHour +
                  minutes_->value() * kMinute + seconds_->value();
  }
  return order;
}

void EditInfoSheet::accept() {
  const std::string position = position_->text().trimmed().toStdString();
  if (!position.empty() && !PositionFromText(position)) {
    if (Rejected) Rejected(kNoPlace.Text());
    position_->setFocus();
    return;
  }
  const ManyInfos::Order order = Order();
  QDialog::accept();
  if (Accepted && !order.IsEmpty()) Accepted(order);
}

}  // namespace brivolant
