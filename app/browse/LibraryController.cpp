// SPDX-License-Identifier: MIT
#include "app/browse/LibraryController.h"

#include <QFile>
#include <QStandardPaths>

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

LibraryController::LibraryController(const Desk& desk) : desk_(desk) {}

LibraryController::~LibraryController() {
  if (reader_) reader_->Stop();
  pool_.waitForDone();
}

void LibraryController::ReadPhotoLibrary() {
  if (reader_) reader_->Stop();
  pool_.waitForDone();
  const int read = ++reads_;
  const std::string chosen = desk_.Preferences.Value(kLibraryKey, "").ToText();
  const FolderItem file = chosen.empty() ? DefaultPhotoLibrary(Pictures()) : FolderItem(chosen);
  if (!iPhotolibrary.empty()) Take({});
  if (file.IsNil()) return;
  random_ = std::make_unique<SystemRandom>();
  reader_ = std::make_unique<ThreadediPhotoReader>(desk_.Services.Log, *random_);
  pool_.start([this, file, read] {
    if (!reader_->ReadXML(file)) return;
    QMetaObject::invokeMethod(
        this,
        [this, read, albums = reader_->Library] {
          if (read == reads_) Take(albums);
        },
        Qt::QueuedConnection);
  });
}

void LibraryController::Take(const std::vector<std::shared_ptr<iPhotoAlbum>>& albums) {
  iPhotolibrary = albums;
  Changed();
}

}  // namespace brivolant
