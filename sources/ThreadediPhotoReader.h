// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/services/Services.h"
#include "sources/PhotoLibrary.h"
#include "sources/XMLDictionaryReader.h"

namespace brivolant {

/// Makes albums, rolls and photos of a library's property list.
class ThreadediPhotoReader final : public XMLDictionaryReader {
 public:
  static constexpr LocalizedText kEvents{"ThreadediPhotoReader.kEvents", "Events"};
  enum State { kFailed = -1, kIdle = 0, kStarted = 1, kFinished = 2 };

  /// Both must outlive the reader; they are used on the thread that reads.
  ThreadediPhotoReader(Log& log, Random& random) : log_(log), random_(random) {}

  /// The albums in display order, the events first.
  std::vector<std::shared_ptr<iPhotoAlbum>> Library;
  std::atomic<int> Status = kIdle;
  /// Not empty: only photos of that media type.
  std::string Filter;
  /// The eight names of drawings.
  static std::string IconFor(const iPhotoAlbum& album);

 protected:
  void Started() override;
  bool NodeAdded(const std::string& path, const Variant& value) override;
  void ErrorOccured() override;
  void Completed() override;

 private:
  std::vector<std::shared_ptr<iPhotoItem>> PhotosOf(const Dictionary& list) const;
  void TakeMasterImages(const Dictionary& images);
  std::shared_ptr<iPhotoAlbum> Events();

  Log& log_;
  Random& random_;
  std::vector<Dictionary> tempiPhotoAlbums;
  std::vector<Dictionary> tempiPhotoRolls;
  std::unordered_map<std::string, std::shared_ptr<iPhotoItem>> tempiPhotoMasterImageList;
};

/// The library file in the user's pictures folder; nil if there is none.
FolderItem DefaultPhotoLibrary(const FolderItem& pictures);

}  // namespace brivolant
