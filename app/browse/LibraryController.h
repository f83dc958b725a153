// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "app/core/Desk.h"
#include "platform/values/Event.h"

namespace brivolant {

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
  struct Read;
  void End();
  /// The present read; null before the first.
  std::shared_ptr<Read> read_;
};

}  // namespace brivolant
