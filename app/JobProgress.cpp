// SPDX-License-Identifier: MIT
#include "app/JobProgress.h"

#include <QApplication>
#include <QKeyEvent>
#include <QProgressDialog>
#include <QPushButton>

#include "app/ProgressDialog.h"
#include "app/core/Jobs.h"
#include "app/session/EditSession.h"
#include "kit/InterfaceKitSupport.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

constexpr LocalizedText kUpdatingPreview{"MainWindow.kUpdatingPreview", "Updating Preview..."};
/// Milliseconds that work may take before it is told of: a label that only flickers helps nobody.
constexpr int kPatience = 250;
/// The same of what is usually done soon, but may wait for a disk: from then on it can be given up.
constexpr int kLong = 2500;
/// Between two looks at how far it is.
constexpr int kLook = 50;
constexpr int kSteps = 100;

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      return true;
    default:
      return false;
  }
}

}  // namespace

JobProgress::JobProgress(Jobs& jobs, QWidget& window, ProgressDialog& label, bool locks)
    : jobs_(jobs), window_(window), label_(label), locks_(locks) {
  patience_.setSingleShot(true);
  patience_.setInterval(kPatience);
  look_.setInterval(kLook);
  long_.setSingleShot(true);
  long_.setInterval(kLong);
  connect(&long_, &QTimer::timeout, this, [this] { Look(); });
  connect(&patience_, &QTimer::timeout, this, [this] { Look(); });
  connect(&look_, &QTimer::timeout, this, [this] { Look(); });
  listening_.push_back(jobs_.Started.Listen([this] { Begin(); }));
  listening_.push_back(jobs_.Ended.Listen([this] { End(); }));
}

JobProgress::~JobProgress() {
  End();
}

void JobProgress::Begin() {
  if (locks_) qApp->installEventFilter(this);
  if (jobs_.Text().empty()) return;
  patience_.start();
  if (jobs_.Unmeasured()) long_.start();
}

void JobProgress::End() {
  qApp->removeEventFilter(this);
  patience_.stop();
  long_.stop();
  look_.stop();
  // Not at once: this may be said from within a call of the dialog.
  if (dialog_ != nullptr) {
    dialog_->hide();
    dialog_->deleteLater();
    dialog_ = nullptr;
  }
  if (labelled_) label_.hide();
  labelled_ = false;
}

void JobProgress::Look() {
  const QString text = ToQString(jobs_.Text());
  if (!jobs_.CanCancel() || long_.isActive()) {
    if (dialog_ != nullptr) dialog_->hide();
    labelled_ = true;
    return label_.Show(jobs_.Text(), &window_);
  }
  if (labelled_) label_.hide();
  labelled_ = false;
  if (dialog_ == nullptr) {
    dialog_ = new QProgressDialog(text, Shown(Captions::kCancel), 0,
                                  jobs_.Unmeasured() ? 0 : kSteps, &window_);
    // A modal one would turn the event loop whenever it is told of progress; the window's input is
    // taken by the filter where it must be.
    dialog_->setWindowModality(Qt::NonModal);
    // The keyboard stays with what is being typed.
    dialog_->setAttribute(Qt::WA_ShowWithoutActivating);
    for (QPushButton* button : dialog_->findChildren<QPushButton*>()) {
      button->setFocusPolicy(Qt::NoFocus);
      button->setAutoDefault(false);
    }
    dialog_->setAutoClose(false);
    dialog_->setAutoReset(false);
    dialog_->setMinimumDuration(0);
    connect(dialog_, &QProgressDialog::canceled, this, [this] { jobs_.Cancel(); });
    dialog_->show();
    look_.start();
  }
  dialog_->setValue(static_cast<int>(jobs_.Done() * kSteps));
}

bool JobProgress::eventFilter(QObject* watched, QEvent* event) {
  if (!IsInput(event->type())) return false;
  const auto* widget = qobject_cast<const QWidget*>(watched);
  if (widget == nullptr || widget->window() != &window_) return false;
  if (event->type() == QEvent::KeyPress && dialog_ != nullptr &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    jobs_.Cancel();
  }
  event->ignore();
  return true;
}

RenderProgress::RenderProgress(EditSession& session, QWidget& display, ProgressDialog& label) {
  listening_.push_back(session.RenderStarted.Listen([this, &session, &display, &label] {
    if (!session.Processor().nonLiveMode || label.isVisible() || !display.isVisible()) return;
    shown_ = true;
    label.Show(kUpdatingPreview.Text(), &display);
  }));
  listening_.push_back(session.Rendered.Listen([this, &label] {
    if (shown_) label.hide();
    shown_ = false;
  }));
}

}  // namespace brivolant
