// SPDX-License-Identifier: MIT
#include "files/NaturalOrder.h"

#include <QLocale>

namespace brivolant {
namespace {

/// The "C" locale knows no order of names.
QLocale Language() {
  const QLocale locale;
  return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

}  // namespace

NaturalOrder::NaturalOrder() : collator_(Language()) {
  collator_.setNumericMode(true);
  collator_.setCaseSensitivity(Qt::CaseInsensitive);
}

QCollatorSortKey NaturalOrder::Key(std::string_view name) const {
  return collator_.sortKey(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
}

}  // namespace brivolant
