// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <memory>
#include <vector>

#include "platform/values/Event.h"

class QProgressDialog;

namespace brivolant {

class EditSession;
class Jobs;
class ProgressDialog;

/// Shows what a Jobs does over a window: a label, or a dialog with Cancel, once it takes a while.
/// Work on the photo in the editor takes the window's input meanwhile; any other lets it be.
class JobProgress final : public QObject {
 public:
  /// `locks`: the window takes no input while a job runs.
  JobProgress(Jobs& jobs, QWidget& window, ProgressDialog& label, bool locks);
  ~JobProgress() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Begin();
  void End();
  void Look();

  Jobs& jobs_;
  QWidget& window_;
  ProgressDialog& label_;
  bool locks_;
  bool labelled_ = false;
  QPointer<QProgressDialog> dialog_;
  QTimer patience_;
  QTimer long_;
  QTimer look_;
  std::vector<Listening> listening_;
};

/// A label over the display while a slow preview is rendered.
class RenderProgress {
 public:
  RenderProgress(EditSession& session, QWidget& display, ProgressDialog& label);

 private:
  bool shown_ = false;
  std::vector<Listening> listening_;
};

}  // namespace brivolant
