// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "metadata/DirectoryEditor.h"
#include "metadata/ImageResources.h"
#include "metadata/MetadataChange.h"
#include "metadata/MetadataStream.h"

namespace brivolant {

/// A run of bytes of a new file: of the old one, or its own.
struct FilePiece {
  std::uint64_t From = 0;
  std::uint64_t Length = 0;
  std::string Bytes{};
};
/// A new file: pieces one behind another, and then what of them is overwritten.
struct FilePlan {
  std::vector<FilePiece> Pieces;
  std::vector<BytePatch> Patches;
  /// What lies between the pieces and this is zero.
  std::uint64_t Length = 0;

  void Take(std::uint64_t from, std::uint64_t length);
  void Take(std::string bytes);
};

/// What goes along with a copy, in the form of no file.
struct CarriedData {
  /// Null for nothing. Its values are in its own order.
  std::unique_ptr<DirectoryEditor> Tiff;
  std::string XMP;
  std::string IPTC;
  std::string Comment;
  /// Photoshop's, by their numbers: whether it is anybody's, and where he is found.
  std::vector<std::pair<int, std::string>> Resources{};
};

/// What of a file can be changed, in the form in which it can. What a kind of file does not hold
/// yet is made when it is needed.
class MetadataParts {
 public:
  virtual ~MetadataParts() = default;

  /// Beginnings of the names of XMP properties that say where, or a prefix.
  static constexpr std::array<std::string_view, 11> kPlaces{
      "GPS",      "City",     "State", "Country",          "Location",        "Sublocation",
      "Province", "coverage", "geo:",  "AbsoluteAltitude", "RelativeAltitude"};
  /// The same of those that describe the pixels of the very file.
  static constexpr std::array<std::string_view, 27> kOfPixels{"ImageWidth",
                                                              "ImageLength",
                                                              "BitsPerSample",
                                                              "Compression",
                                                              "Photometric",
                                                              "SamplesPerPixel",
                                                              "PlanarConfiguration",
                                                              "PixelXDimension",
                                                              "PixelYDimension",
                                                              "Thumbnails",
                                                              "MotionPhoto",
                                                              "MicroVideo",
                                                              "Regions",
                                                              "CFAPattern",
                                                              "XResolution",
                                                              "YResolution",
                                                              "ResolutionUnit",
                                                              "ICCProfile",
                                                              "ColorSpace",
                                                              "GPano:",
                                                              "hdrgm:",
                                                              "Container:",
                                                              "crs:",
                                                              "GImage:",
                                                              "GDepth:",
                                                              "GAudio:",
                                                              "HDRGainMap:"};

  /// By what the file begins with; null for a kind that is not written, or what makes no sense.
  static std::unique_ptr<MetadataParts> Of(MetadataStream& stream);

  /// False for what this file cannot hold.
  [[nodiscard]] bool Apply(const MetadataChange& change);
  /// Takes out where the photo was taken. False if some of it would stay among the bytes.
  [[nodiscard]] bool StripPlace();
  /// Other pictures stand behind this one and may tell the same.
  virtual bool HoldsMorePictures() { return false; }
  /// Takes out all that does not say how the pixels are to be shown.
  [[nodiscard]] virtual bool StripAll() = 0;
  /// What the file holds of a structure; null where there is none.
  const DirectoryEditor* Held() const { return tiff_.get(); }
  const std::string& XMP() const { return xmp_; }
  virtual std::string IPTC() const { return std::string(resources_.Data(ImageResources::kIptc)); }
  /// Of those resources that go along the ones that the file has.
  std::vector<std::pair<int, std::string>> Resources() const;
  /// What a JPEG says beside.
  virtual std::string Comment() { return {}; }
  /// Takes all that another file tells of itself.
  [[nodiscard]] virtual bool Take(CarriedData data) = 0;
  /// The new file; nothing if what was asked for does not fit.
  virtual std::optional<FilePlan> Plan() = 0;

 protected:
  explicit MetadataParts(MetadataStream& stream) : stream_(stream) {}

  /// A structure is made where there is none.
  DirectoryEditor& Directories();
  /// Second blocks of a kind, which nobody reads here, but others may.
  virtual void StripFurther() {}
  virtual bool ApplyToComment(const MetadataChange&) { return false; }
  virtual bool IPTC(std::string bytes);
  void XMP(std::string packet) {
    xmp_ = std::move(packet);
    xmpChanged_ = true;
  }
  /// What the standards want beside what was set. False if it cannot be.
  bool Complete(DirectoryEditor::Directory directory, bool wasThere);
  /// How the file's own pixels are read where no profile says it: whatever it is told, that stays.
  /// False if it cannot be.
  [[nodiscard]] bool KeepColors(DirectoryEditor& structure) const;
  /// What a structure of its own is made of; nothing changes if there is nothing in it.
  bool TakeStructure(std::unique_ptr<DirectoryEditor> structure);
  /// Packet, records and resources, in place of those that are there.
  bool TakeTexts(CarriedData& data);
  /// The new structure; empty if it would not fit its offsets.
  std::string Structure(const std::string& old);

  MetadataStream& stream_;
  /// Null as long as the file has none.
  std::unique_ptr<DirectoryEditor> tiff_;
  bool tiffChanged_ = false;
  ImageResources resources_;
  bool resourcesChanged_ = false;
  std::string xmp_;
  bool xmpChanged_ = false;
  /// Without a file whose pixels it describes.
  bool newStructure_ = false;

 private:
  bool ApplyToDirectory(const MetadataChange& change, DirectoryEditor::Directory directory);
  bool ApplyToIPTC(const MetadataChange& change);
  bool ApplyToXMP(const MetadataChange& change);
};

}  // namespace brivolant
