// SPDX-License-Identifier: MIT
#include "app/browse/LibraryController.h"

#include <QFile>
#include <QStandardPaths>
#include <mutex>

#include "browser/DiskThreads.h"
#include "platform/services/SystemServices.h"
#include "sources/ThreadediPhotoReader.h"

namespace brivolant {
namespace {

FolderItem Pictures() {
  return FolderItem(
      QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation))
          .toStdString());
}

}  // namespace

/// One read, which has its reader until it ends, whatever becomes of the controller.
struct LibraryController::Read final : private Log {
  Read() : reader(*this, random) {}
  void Write(std::string_view line) override { lines.emplace_back(line); }

  SystemRandom random;
  std::vector<std::string> lines;
  ThreadediPhotoReader reader;
  /// Under it the controller is there, as long as the read has not ended.
  std::mutex mutex;
  bool ended = false;
};

LibraryController::LibraryController(const Desk& desk) : desk_(desk) {}

LibraryController::~LibraryController() {
  End();
}

void LibraryController::End() {
  if (!read_) return;
  read_->reader.Stop();
  const std::lock_guard lock(read_->mutex);
  read_->ended = true;
}

void LibraryController::ReadPhotoLibrary() {
  End();
  if (!iPhotolibrary.empty()) Take({});
  read_ = std::make_shared<Read>();
  const std::string chosen = desk_.Preferences.Value(kLibraryKey, "").ToText();
  const FolderItem place = chosen.empty() ? Pictures() : FolderItem(chosen);
  DiskThreads::Run(place, [this, read = read_, chosen] {
    const FolderItem file = chosen.empty() ? DefaultPhotoLibrary(Pictures()) : FolderItem(chosen);
    const bool found = file && read->reader.ReadXML(file);
    const std::lock_guard lock(read->mutex);
    if (read->ended) return;
    QMetaObject::invokeMethod(
        this,
        [this, read, found] {
          if (read != read_) return;
          for (const std::string& line : read->lines) desk_.Services.Log.Write(line);
          if (found) Take(read->reader.Library);
        },
        Qt::QueuedConnection);
  });
}

void LibraryController::Take(const std::vector<std::shared_ptr<iPhotoAlbum>>& albums) {
  iPhotolibrary = albums;
  Changed();
}

}  // namespace brivolant
