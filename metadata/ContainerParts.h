// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "metadata/MetadataParts.h"

namespace brivolant {

/// A PNG or a JPEG 2000 file that takes what a photo tells: Exif and the packet, in chunks before
/// the pixels or boxes behind them. It has no place for records of IPTC: what these alone say goes
/// into the packet. Only copies are written so.
class ContainerParts final : public MetadataParts {
 public:
  explicit ContainerParts(MetadataStream& stream);

  /// The file is one of these, and makes sense.
  bool Good() const { return good_; }
  bool StripAll() override { return false; }
  bool Take(CarriedData data) override;
  std::optional<FilePlan> Plan() override;

 private:
  /// Chunks or boxes. Those that tell something of the photo make room for what is taken.
  struct Run {
    bool Tells = false;
    std::uint64_t At = 0;
    std::uint64_t End = 0;
  };
  void ReadPng();
  void ReadJpeg2000();
  /// A chunk of that type, whose data begin so, tells of the photo.
  static bool Tells(const std::string& type, const std::string& head);
  void Keep(bool tells, std::uint64_t at, std::uint64_t end);

  bool png_ = false;
  /// Dots of a PNG, across and down; empty where it does not say.
  std::vector<std::uint32_t> perMetre_;
  bool good_ = false;
  std::vector<Run> runs_;
  /// What is new stands before this run.
  std::size_t place_ = 0;
};

}  // namespace brivolant
