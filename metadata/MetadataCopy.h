// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/files/FolderItem.h"

namespace brivolant {

struct CarriedData;

/// What a photo tells of itself, as it goes along with a picture that is made of it. What describes
/// the photo's own pixels does not: strips, compression, mosaics, sub-directories; the copy has its
/// own size and lies upright. Maker notes keep their offset and their byte order where the new file
/// lets them, else they stay behind.
class MetadataCopy {
 public:
  enum class Rule {
    kAll,
    /// Nothing that says where: maker notes, which may, stay behind too.
    kWithoutPlace,
    kNone
  };
  /// Of the picture that was made. What is empty leaves what the photo says.
  struct Facts {
    /// 0 to leave it to the file.
    int Width = 0;
    int Height = 0;
    /// How its pixels are to be turned.
    int Orientation = 1;
    std::string Software{};
    std::string Creator{};
    std::string Copyright{};
    /// A JPEG no side of which is longer than 160; empty for none.
    std::string Thumbnail{};
    /// The colours are sRGB's.
    bool SRGB = true;
  };

  /// Reads what the photo tells. One that cannot be read, or tells nothing, carries nothing. What
  /// its owner says of it goes before what it tells: `packet`, or what is kept beside the photo.
  MetadataCopy(const FolderItem& photo, Rule rule, const std::string& packet = {});
  ~MetadataCopy();
  MetadataCopy(const MetadataCopy&) = delete;
  MetadataCopy& operator=(const MetadataCopy&) = delete;

  /// There was something to read. Pictures of formats that tell nothing here count as well, as long
  /// as they usually have nothing to tell.
  bool Good() const;
  /// The photo says more than how its pixels are shown.
  bool Tells() const;
  /// Writes it into a JPEG, a TIFF, a PNG, a JPEG 2000 or a Photoshop file; what the photo does not
  /// tell stays. Empty if it is done, or else one sentence that names the file, which is then as it
  /// was.
  [[nodiscard]] std::string Into(const FolderItem& file, const Facts& facts) const;
  /// A type of file that can take it, by its identifier, such as "public.jpeg".
  static bool Takes(std::string_view type);

 private:
  struct Photo;
  std::unique_ptr<Photo> photo_;
  Rule rule_;
};

}  // namespace brivolant
