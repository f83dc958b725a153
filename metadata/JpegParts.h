// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "metadata/MetadataParts.h"

namespace brivolant {

/// A JPEG: segments in their order up to the first start of scan, and the rest, which is never
/// looked into. What is not changed stays where it is, byte for byte.
class JpegParts final : public MetadataParts {
 public:
  explicit JpegParts(MetadataStream& stream);

  /// The segments make sense, and so does the structure among them.
  bool Good() const { return good_; }
  bool StripAll() override;
  std::string Comment() override;
  bool Take(CarriedData data) override;
  bool HoldsMorePictures() override;
  std::optional<FilePlan> Plan() override;

 protected:
  bool ApplyToComment(const MetadataChange& change) override;
  void StripFurther() override { placeStripped_ = true; }

 private:
  /// In the order in which new ones are written.
  enum class Kind {
    kExif,
    kXmp,
    kPhotoshop,
    kComment,
    kJfif,
    kOtherZero,
    kMpf,
    kProfile,
    kAdobe,
    kXmpFurther,
    kFurther,
    kOtherApp,
    kPicture
  };
  struct Part {
    Kind Is = Kind::kPicture;
    std::uint64_t At = 0;
    std::uint64_t Payload = 0;
    std::uint64_t Length = 0;
    std::uint64_t End = 0;
  };

  Kind KindOf(int marker, std::string_view head);
  std::string PayloadOf(const Part& part, std::size_t skipped);
  void ReadBlocks();
  bool Changed(Kind kind) const;
  std::string NewOf(Kind kind);
  /// Other pictures stand behind this one, at distances from a mark in it.
  static void CorrectPictures(std::string& segment, std::size_t structure, std::int64_t before,
                              std::int64_t moved);
  std::uint64_t EndOfPicture();

  bool good_ = false;
  bool stripped_ = false;
  bool placeStripped_ = false;
  bool exif_ = false;
  bool xmpThere_ = false;
  /// The packet goes on in further segments, which are written with it.
  bool xmpJoined_ = false;
  std::vector<Part> segments_;
  /// Where the first scan begins.
  std::uint64_t rest_ = 0;
  std::string structure_;
  std::unique_ptr<MetadataStream> exifStream_;
  std::optional<std::string> comment_;
};

}  // namespace brivolant
