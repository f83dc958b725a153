// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <cstdint>
#include <string>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// The thumbnails that all programs of the desktop share, by the freedesktop.org thumbnail
/// specification: PNG files named by the hash of the file's address, valid while the modification
/// time in them is the file's. May be used by several threads.
class ThumbnailCache {
 public:
  /// Longest side of the pictures of a folder, in pixels.
  enum Size { kLarge = 256, kXLarge = 512 };

  /// `root` is "thumbnails" in the user's cache folder; failures are remembered under `program`.
  ThumbnailCache(FolderItem root, std::string program);
  /// The user's own cache.
  static FolderItem DefaultRoot();

  /// What a cached picture belongs to.
  struct Key {
    std::string URI;
    /// Seconds of the Unix epoch; 0 if the file cannot be reached.
    std::int64_t Modified = 0;
    std::string Hash;
  };
  /// Links are followed, so that a file has one key over whatever way it is reached. A file that is
  /// away, such as one of a volume that is not mounted, has the key of its path.
  static Key KeyOf(const FolderItem& file);

  /// Null if there is none that is valid. For a file that is away the last one counts.
  QImage Find(const Key& key, Size size) const;
  /// True if an earlier try at this very file failed.
  bool Failed(const Key& key) const;
  /// Stores a picture; an error only costs the next visit. A picture with a side longer than the
  /// size is not stored.
  void Store(const Key& key, Size size, const QImage& image) const;
  void StoreFailure(const Key& key) const;

 private:
  FolderItem FileOf(const Key& key, Size size) const;
  FolderItem FailureOf(const Key& key) const;
  static bool Valid(const QImage& image, const Key& key);
  static void Write(const FolderItem& target, const QImage& image, const Key& key);

  FolderItem root_;
  std::string program_;
};

}  // namespace brivolant
