// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "metadata/TiffDataCoreClass.h"
#include "platform/values/Date.h"

namespace brivolant {

/// A TIFF image file directory: the first one, a thumbnail's, or a sub-directory.
class TIFFDataObject final : public TiffDataCoreClass {
 public:
  TIFFDataObject() : TiffDataCoreClass(TagCatalog::Tiff()) {}

 protected:
  std::string handleStringValue(const std::string& tag, const TagValue& value) const override;
};

/// The Exif directory.
class EXIFDataObject final : public TiffDataCoreClass {
 public:
  EXIFDataObject() : TiffDataCoreClass(TagCatalog::Exif()) {}

 protected:
  std::string handleStringValue(const std::string& tag, const TagValue& value) const override;
};

/// The interoperability directory within the Exif one.
class InteroperabilityDataObject final : public TiffDataCoreClass {
 public:
  InteroperabilityDataObject() : TiffDataCoreClass(TagCatalog::Interoperability()) {}

 protected:
  std::string handleStringValue(const std::string& tag, const TagValue& value) const override;
};

/// The GPS directory.
class GPSDataObject final : public TiffDataCoreClass {
 public:
  GPSDataObject() : TiffDataCoreClass(TagCatalog::Gps()) {}

 protected:
  std::string handleStringValue(const std::string& tag, const TagValue& value) const override;
};

/// The second record of IPTC-IIM; tags are the numbers of its datasets. Of other records the bytes
/// are kept apart.
class IPTCDataObject final : public TiffDataCoreClass {
 public:
  IPTCDataObject() : TiffDataCoreClass(TagCatalog::Iptc()) {}

  /// A dataset of another record: marker and number, and its bytes.
  struct Foreign {
    int Record;
    int Dataset;
    std::string Bytes;
  };
  const std::vector<Foreign>& OtherRecords() const { return others_; }

 protected:
  std::string handleStringValue(const std::string& tag, const TagValue& value) const override;
  int ReturnTagType(const std::string& tag) const override;
  void ProcessRawData(std::string_view bytes) override;

 private:
  std::vector<Foreign> others_;
};

/// Photoshop's image resources that are no block of their own; tags are their identifiers.
class PhotoshopDataObject final : public TiffDataCoreClass {
 public:
  PhotoshopDataObject() : TiffDataCoreClass(TagCatalog::Photoshop()) {}

  /// 1 to 12; 0 for what says no quality.
  static int convertQualityToInteger(std::string_view bytes);

 protected:
  std::string handleStringValue(const std::string& tag, const TagValue& value) const override;
};

/// A colour profile; tags are the signatures of its tag table, beside "dmnd" and "dmdd" of its
/// header.
class ColorProfileObject final : public TiffDataCoreClass {
 public:
  ColorProfileObject() : TiffDataCoreClass(TagCatalog::Profile()) {}

  /// Reads header and table of RawData.
  void ProcessColorProfile();

  /// Where it was found.
  std::string Stored;
  std::string RawData;
  /// Of segments of a JPEG.
  int MaxParts = 0;
  int PartCount = 0;
  std::string PreferredCMMType;
  double ProfileVersion = 0;
  std::string ProfileDevice;
  std::string ColorSpace;
  std::string PCS;
  std::string PrimaryPlatform;
  /// Nothing for numbers that are no date.
  std::optional<Date> CreatedDate;

 protected:
  std::string handleStringValue(const std::string& tag, const TagValue& value) const override;
  std::string GetDataAsRawData() const override;
};

/// What a JFIF segment tells.
struct JFIFDataObject {
  int Version = 0;
  int VersionMinor = 0;
  int units = 0;
  int Xdensity = 0;
  int Ydensity = 0;
  int Xthumbnail = 0;
  int Ythumbnail = 0;
};

/// What the encoder of a JPEG says of its transform, in an APP14 segment.
struct DCTProfileObject {
  int Version = 0;
  int EncoderUsed = 0;
  int Flags = 0;
  /// 0 none, 1 YCbCr, 2 YCCK.
  int ColorTransformationCode = 0;
  /// Who wrote it.
  std::string Kind;
  std::string rawData;

  /// What is shorter than its numbers leaves them 0.
  void fromRawData(std::string bytes);
  const std::string& asRawData() const { return rawData; }
};

/// The properties of an XMP packet: "prefix:name" and their texts, in order. Of structures the
/// texts of their fields.
using XMPProperties = std::vector<std::pair<std::string, std::vector<std::string>>>;

/// Which prefixes the names of properties have: those of the packet, or those that their namespaces
/// usually have.
enum class XMPNames { kAsWritten, kUsual };
/// False if it is no XML with RDF in it.
bool ReadXMP(std::string_view packet, XMPProperties& properties,
             XMPNames names = XMPNames::kAsWritten);

}  // namespace brivolant
