// SPDX-License-Identifier: MIT
#include "app/browse/PasteEditsSheet.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "kit/InterfaceKitSupport.h"
#include "platform/services/SharedFolders.h"
#include "platform/values/Captions.h"
#include "platform/values/Numbers.h"

namespace brivolant {
namespace {

constexpr int kMargin = 24;
constexpr int kGap = 8;
constexpr const char* kPlaceKey = "PasteEdits.place";

}  // namespace

PasteEditsSheet::PasteEditsSheet(QWidget& window, ManyEdits::Order order, Preferences& preferences)
    : QDialog(&window),
      order_(std::move(order)),
      preferences_(preferences),
      crop_(new QCheckBox(Shown(kCrop))),
      turns_(new QCheckBox(Shown(kTurns))),
      place_(new QComboBox) {
  setWindowTitle(Shown(kTitle));
  setWindowModality(Qt::WindowModal);
  setAttribute(Qt::WA_DeleteOnClose);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(2 * kGap);
  auto* form = new QFormLayout;
  form->setSpacing(kGap);
  form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
  column->addLayout(form);
  const auto plain = [](const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    return label;
  };
  form->addRow(Shown(kFrom),
               plain(order_.Edits.Name.empty() ? Shown(kClipboard) : ToQString(order_.Edits.Name)));
  form->addRow(Shown(kOnto),
               plain(ToQString(ReadableNumber(static_cast<double>(order_.Items.size()), 0))));
  form->addRow(Shown(kAlso), crop_);
  form->addRow(QString(), turns_);
  // A style has neither.
  form->setRowVisible(crop_, order_.Edits.OfPhoto);
  form->setRowVisible(turns_, order_.Edits.OfPhoto);
  place_->addItem(Shown(kBeside));
  place_->addItem(ToQString(WithPlaceholders(
      kInFolder.Text(),
      {{"<name>", otherSharedComponents::DefaultPipDocumentsFolder().DisplayName()}})));
  place_->setCurrentIndex(preferences_.Value(kPlaceKey, 0).ToInt() == 1 ? 1 : 0);
  form->addRow(Shown(kPlace), place_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  buttons->button(QDialogButtonBox::Ok)->setText(Shown(kPaste));
  buttons->button(QDialogButtonBox::Cancel)->setText(Shown(Captions::kCancel));
  column->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(this, &QDialog::accepted, this, [this] { Choose(); });
}

void PasteEditsSheet::Choose() {
  order_.Crop = crop_->isChecked();
  order_.Turns = turns_->isChecked();
  const FolderItem own = otherSharedComponents::DefaultPipDocumentsFolder();
  order_.Spare = own;
  if (place_->currentIndex() == 1) order_.Folder = own;
  preferences_.Assign(kPlaceKey, place_->currentIndex());
  if (Accepted) Accepted(order_);
}

}  // namespace brivolant
