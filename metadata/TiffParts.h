// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "metadata/MetadataParts.h"

namespace brivolant {

/// A TIFF. All of it stays where it is; what is new goes to the end.
class TiffParts final : public MetadataParts {
 public:
  explicit TiffParts(MetadataStream& stream);

  /// A structure that makes sense, and is no camera's raw file.
  bool Good() const;
  bool StripAll() override;
  std::string IPTC() const override { return iptc_; }
  bool Take(CarriedData data) override;
  bool HoldsMorePictures() override { return tiff_->MorePlaces(); }
  std::optional<FilePlan> Plan() override;

 protected:
  bool IPTC(std::string bytes) override;
  void StripFurther() override;

 private:
  std::string iptc_;
  bool iptcChanged_ = false;
};

/// A Photoshop file: its section of image resources is written anew.
class PhotoshopParts final : public MetadataParts {
 public:
  explicit PhotoshopParts(MetadataStream& stream);

  bool Good() const { return good_; }
  bool StripAll() override;
  bool Take(CarriedData data) override;
  std::optional<FilePlan> Plan() override;

 private:
  bool good_ = false;
  /// Of the section's length, and of what follows the section.
  std::uint64_t begin_ = 0;
  std::uint64_t end_ = 0;
  std::unique_ptr<MetadataStream> exifStream_;
  std::string structure_;
};

}  // namespace brivolant
