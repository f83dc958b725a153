// SPDX-License-Identifier: MIT
#include "app/SaveAsCopy.h"

#include <QEventLoop>
#include <QProgressDialog>
#include <QScopeGuard>
#include <QTimer>
#include <array>
#include <atomic>
#include <exception>
#include <thread>

#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "files/FolderitemExtensions.h"
#include "kit/InterfaceKitSupport.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/values/Captions.h"
#include "platform/values/SharedComponents.h"

namespace brivolant::SaveAsCopy {
namespace {

constexpr LocalizedText kSaving{"SaveAsCopy.kSaving", "Saving \"<filename>\"..."};
constexpr LocalizedText kCannotReplace{
    "SaveAsCopy.kCannotReplace",
    "The file \"<filename>\" cannot be replaced: it could not be moved to the trash."};
/// Milliseconds before a dialog appears, and between two looks at the progress.
constexpr int kSilence = 300;
constexpr int kLook = 50;
/// The share of rendering in the whole; the rest is writing.
constexpr double kRendering = 0.8;

FolderItem Beside(const FolderItem& file, Random& random) {
  std::string name(1, '.');
  name.append(otherSharedComponents::NewGUID(random)).append("-").append(file.Name());
  return file.Parent().Child(name);
}

}  // namespace

Outcome Run(const Job& job, const Services& services, const std::function<bool(double)>& progress,
            std::string& error) {
  brivolantProcessorLite processor(EffectRegistry(), services);
  processor.Startup();
  processor.StyleData(job.StyleData);
  processor.Progress = [&](double done) { return progress(done * kRendering); };
  const Picture result = processor.Process(job.Source, job.Pasted);
  if (!progress(kRendering)) return Outcome::kCancelled;
  if (result.IsNil()) {
    error = CodecMessage(codecTexts::kNoMemory, job.File);
    return Outcome::kFailed;
  }
  const FolderItem working = job.File.Exists() ? Beside(job.File, services.Random) : job.File;
  const std::array<EncodeImage, 1> images{{{result, job.Quality}}};
  error = EncodeImageFile(working, job.Type, images);
  if (!error.empty()) return Outcome::kFailed;
  const auto lacks = [&] {
    for (const std::string& warning : processor.Warnings()) {
      error += (error.empty() ? "" : " ") + warning;
    }
    return Outcome::kDone;
  };
  if (working == job.File) return lacks();
  // What stood there is not lost: it waits in the trash.
  if (!FolderitemExtensions::MoveToTrash(job.File) || working.MoveFileTo(job.File)) {
    (void)working.Delete();
    error = WithPlaceholders(kCannotReplace.Text(), {{"<filename>", job.File.DisplayName()}});
    return Outcome::kFailed;
  }
  return lacks();
}

Outcome RunWithDialog(const Job& job, const Services& services, QWidget& window,
                      std::string& error) {
  constexpr int kSteps = 100;
  std::atomic<double> done = 0;
  std::atomic<bool> stop = false;
  std::exception_ptr failure;
  Outcome outcome = Outcome::kFailed;
  QProgressDialog dialog(
      ToQString(WithPlaceholders(kSaving.Text(), {{"<filename>", job.File.DisplayName()}})),
      Shown(Captions::kCancel), 0, kSteps, &window);
  dialog.setWindowModality(Qt::WindowModal);
  dialog.setMinimumDuration(kSilence);
  dialog.setAutoClose(false);
  dialog.setAutoReset(false);
  dialog.setValue(0);
  QEventLoop loop;
  std::thread worker([&] {
    try {
      outcome = Run(
          job, services,
          [&](double part) {
            done = part;
            return !stop;
          },
          error);
    } catch (...) {
      failure = std::current_exception();
    }
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
  });
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &dialog, [&] {
    dialog.setValue(static_cast<int>(done * kSteps));
    stop = stop || dialog.wasCanceled();
  });
  QObject::connect(&dialog, &QProgressDialog::canceled, &dialog, [&] { stop = true; });
  look.start(kLook);
  // The window beneath takes no input meanwhile: it is disabled until the dialog appears, too.
  {
    window.setEnabled(false);
    const auto enabled = qScopeGuard([&] { window.setEnabled(true); });
    dialog.setEnabled(true);
    loop.exec();
  }
  worker.join();
  if (failure) std::rethrow_exception(failure);
  return outcome;
}

}  // namespace brivolant::SaveAsCopy
