// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QThreadPool>
#include <memory>
#include <vector>

#include "app/core/Desk.h"
#include "platform/values/Event.h"

namespace brivolant {

class ThreadediPhotoReader;
class iPhotoAlbum;

/// Reads the photo library of the preferences, else the one in the pictures folder.
class LibraryController final : public QObject {
 public:
  /// Where the chosen photo library's path is kept; empty for the one in the pictures folder.
  static constexpr const char* kLibraryKey = "iPhotoLibrary.file";

  explicit LibraryController(const Desk& desk);
  ~LibraryController() override;

  /// Begins to read, on another thread; what was read before is gone.
  void ReadPhotoLibrary();

  /// The albums, the events first; empty until the library is read.
  std::vector<std::shared_ptr<iPhotoAlbum>> iPhotolibrary;
  /// There are other albums.
  Event<> Changed;

 private:
  void Take(const std::vector<std::shared_ptr<iPhotoAlbum>>& albums);

  Desk desk_;
  std::unique_ptr<Random> random_;
  std::unique_ptr<ThreadediPhotoReader> reader_;
  QThreadPool pool_;
  /// Counts the reads: what an earlier one found late is not taken.
  int reads_ = 0;
};

}  // namespace brivolant
