// SPDX-License-Identifier: MIT
#include "app/edit/CropEditor.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "effects/crop/CropModule.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkButton.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

using namespace CropEditorTexts;

constexpr int kMargin = 12;

}  // namespace

CropEditor::CropEditor(QWidget* parent)
    : ifkWindow(parent, Qt::Tool),
      aspectRatio_(new QComboBox),
      apply_(new ifkButton(nullptr, Shown(kApply))),
      cancel_(new ifkButton(nullptr, Shown(Captions::kCancel))) {
  setWindowTitle(Shown(kWindowTitle));
  setAttribute(Qt::WA_ShowWithoutActivating);
  auto* content = new QWidget(this);
  auto* row = new QHBoxLayout(content);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->setSpacing(8);
  row->addWidget(aspectRatio_);
  row->addWidget(cancel_);
  row->addWidget(apply_);
  setCentralWidget(content);
  apply_->Default = true;
  aspectRatio_->setAccessibleName(Shown(kWindowTitle));
  connect(aspectRatio_, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (updating || myModule == nullptr || index < 0) return;
    myModule->SetCropRatio(aspectRatio_->itemText(index).toStdString());
  });
  apply_->Action = [this] {
    if (myModule != nullptr) myModule->Apply();
  };
  cancel_->Action = [this] {
    if (myModule != nullptr) myModule->Cancel();
  };
}

void CropEditor::FillRatios() {
  const Pair photo = myModule->PhotoRatio();
  const std::string ratio =
      std::to_string(std::lround(photo.Left)) + ':' + std::to_string(std::lround(photo.Right));
  aspectRatio_->clear();
  aspectRatio_->addItem(ToQString(WithPlaceholders(kCurrentRatio.Text(), {{"<ratio>", ratio}})));
  aspectRatio_->insertSeparator(aspectRatio_->count());
  for (const LocalizedText& text : {kCropAspectRatio1x1, kCropAspectRatio3x2, kCropAspectRatio4x3,
                                    kCropAspectRatio8x10, kCropAspectRatio16x9}) {
    aspectRatio_->addItem(Shown(text));
  }
  aspectRatio_->insertSeparator(aspectRatio_->count());
  aspectRatio_->addItem(Shown(kCropAspectRatioFreeForm));
}

int CropEditor::IndexOfRatio() const {
  const Pair ratio = myModule->CropRatio;
  // A crop in whole pixels misses its proportions by a little.
  constexpr double kTolerance = 0.01;
  const auto is = [&ratio](double a, double b) {
    return ratio.Right > 0 && std::abs(ratio.Left / ratio.Right * b / a - 1) < kTolerance;
  };
  const Pair photo = myModule->PhotoRatio();
  if (is(photo.Left, photo.Right)) return 0;
  if (is(1, 1)) return 2;
  if (is(3, 2)) return 3;
  if (is(4, 3)) return 4;
  if (is(8, 10)) return 5;
  if (is(16, 9)) return 6;
  return 8;
}

void CropEditor::Show(CropModule& module, const QWidget& control) {
  myModule = &module;
  updating = true;
  FillRatios();
  aspectRatio_->setCurrentIndex(IndexOfRatio());
  resize(sizeHint());
  const QPoint corner = control.mapToGlobal(QPoint(0, 0));
  QPoint place(corner.x() + (control.width() - width()) / 2, corner.y() + control.height());
  // A window that reaches the screen's end leaves no room below it.
  const QRect available = control.screen()->availableGeometry();
  constexpr int kTitle = 32;
  place.setY(std::min(place.y(), available.bottom() - height() - kTitle));
  place.setX(std::clamp(place.x(), available.left(),
                        std::max(available.right() - width(), available.left())));
  move(place);
  updating = false;
  show();
}

void CropEditor::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    apply_->Push();
  } else if (event->key() == Qt::Key_Escape) {
    cancel_->Push();
  } else {
    ifkWindow::keyPressEvent(event);
  }
}

void CropEditor::closeEvent(QCloseEvent* event) {
  // Closing the palette gives the crop up.
  if (myModule != nullptr) {
    event->ignore();
    myModule->Cancel();
    return;
  }
  ifkWindow::closeEvent(event);
}

}  // namespace brivolant
