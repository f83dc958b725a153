// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "metadata/MetadataBlocks.h"
#include "metadata/MetadataChange.h"
#include "metadata/XMPExtension.h"
#include "platform/files/FolderItem.h"
#include "platform/values/Text.h"

namespace brivolant {

class MetadataStream;
struct EmbeddedData;

/// The short description of a picture.
class ImageSummaryObject {
 public:
  static constexpr LocalizedText ColorSpaceGrayScale{"ImageSummaryObject.ColorSpaceGrayScale",
                                                     "Grayscale"};
  static constexpr LocalizedText ColorSpaceBlackWhite{"ImageSummaryObject.ColorSpaceBlackWhite",
                                                      "Black & White"};
  static constexpr LocalizedText ColorSpaceIndexed{"ImageSummaryObject.ColorSpaceIndexed",
                                                   "Indexed Color"};
  static constexpr LocalizedText ColorSpaceRGB{"ImageSummaryObject.ColorSpaceRGB", "RGB"};
  static constexpr LocalizedText ColorSpaceCMYK{"ImageSummaryObject.ColorSpaceCMYK", "CMYK"};
  static constexpr LocalizedText ColorSpaceMultichannel{"ImageSummaryObject.ColorSpaceMultichannel",
                                                        "Multichannel"};
  static constexpr LocalizedText ColorSpaceDuotone{"ImageSummaryObject.ColorSpaceDuotone",
                                                   "Duotone"};
  static constexpr LocalizedText ColorSpaceLab{"ImageSummaryObject.ColorSpaceLab", "Lab"};
  static constexpr LocalizedText ColorSpaceUnknown{"ImageSummaryObject.ColorSpaceUnknown",
                                                   "Unknown"};

  std::uint32_t Width = 0;
  std::uint32_t Height = 0;
  int Depth = 0;
  std::string ColorSpace;
  /// Pixels an inch.
  int DPI = 0;
  std::string FileFormat;

  double Megapixel() const;
  bool isGreyScale() const { return ColorSpace == ColorSpaceGrayScale.Text(); }
};

/// The small picture that a file holds of itself.
struct ThumbnailHolder {
  /// The tags of its directory.
  std::unique_ptr<TIFFDataObject> TIFFData;
  /// A JPEG, where the file holds it apart from a directory.
  std::string RawPictureData;
  /// An older form, with red and blue exchanged.
  bool PhotoShop4Thumbnail = false;
};

/// What a JPEG, a TIFF or a raw file built on it, or a Photoshop file tells of itself, without its
/// pixels. One object reads one file, and keeps what it has when a file ends or makes no sense.
/// Nothing in a file makes it throw, loop, or take more memory than the file is long.
class ImageMetaData {
 public:
  static constexpr LocalizedText kUnableToRead{"ImageMetaData.kUnableToRead",
                                               "Unable to read file."};
  static constexpr LocalizedText kEmpty{"ImageMetaData.kEmpty", "File is empty."};
  static constexpr LocalizedText kNotUnderstood{"ImageMetaData.kNotUnderstood",
                                                "Unable to understand the data"};

  ImageMetaData();
  ~ImageMetaData();
  ImageMetaData(const ImageMetaData&) = delete;
  ImageMetaData& operator=(const ImageMetaData&) = delete;

  /// With `stopAfterTIFF` no more than the first TIFF structure is read.
  void ReadFile(const FolderItem& file, bool stopAfterTIFF = false);

  /// Maps the packet's properties to the tags that mean the same, by their namespaces; with `data`,
  /// a packet in place of the present one.
  void ProcessXMPData(const std::string& data = {});

  /// A block by the name under which it is known outside; null for what the file does not hold.
  struct NamedBlock {
    std::string_view Name;
    const TiffDataCoreClass* Data;
  };
  std::vector<NamedBlock> Blocks() const;
  /// The block whose tags are written under that name; null where it has none, or is not there.
  const TiffDataCoreClass* BlockOf(MetadataBlock block) const;

  FolderItem MyFile;
  int ErrorID = -1;
  std::string ErrorMessage;
  std::string JPEGComment;
  std::unique_ptr<ImageSummaryObject> ImageSummary;
  std::unique_ptr<JFIFDataObject> JFIFData;
  std::unique_ptr<TIFFDataObject> TIFFData;
  std::unique_ptr<ThumbnailHolder> Thumbnail;
  std::unique_ptr<EXIFDataObject> ExifData;
  std::unique_ptr<GPSDataObject> GPSData;
  std::unique_ptr<InteroperabilityDataObject> Interoperability;
  std::unique_ptr<TIFFDataObject> SubIFD;
  std::unique_ptr<IPTCDataObject> IPTCData;
  std::unique_ptr<PhotoshopDataObject> Photoshop;
  std::unique_ptr<ColorProfileObject> ColorProfile;
  std::unique_ptr<DCTProfileObject> DCT;
  /// The packet as it stands in the file, with what of it stands in further segments of a JPEG.
  std::string XMP;
  /// Properties, by their usual names, that the owner says beside a file that is never written:
  /// newer than what the file says. One that is empty was taken out.
  std::set<std::string, std::less<>> SaidBeside;
  /// The packet is no longer that of the file alone.
  bool Merged = false;
  /// A tag for which the packet has texts, whether or not its block holds it: what is shown and
  /// found, but no part of the block.
  struct MappedText {
    MetadataBlock Block;
    std::string Tag;
    std::vector<std::string> Texts;
  };
  std::vector<MappedText> MappedXMP;
  /// Of formats that are read by their codecs: the bytes that these have handed over.
  std::shared_ptr<const EmbeddedData> Embedded;
  /// Where the TIFF structure begins, from which its offsets count, and its byte order.
  std::uint64_t TIFFHeaderOffSet = 0;
  bool LittleEndian = false;
  /// What was passed over because it made no sense, one line each.
  std::string StringResult;

 private:
  enum Block { kTiffBlock, kThumbnailBlock, kExifBlock, kGpsBlock, kInteropBlock, kSubBlock };
  void ErrorOccured(int id, const LocalizedText& message);
  void AppendToStringResult(const std::string& line);
  void ReadJPEG(MetadataStream& stream, bool stopAfterTIFF);
  void ReadAPP1(MetadataStream& stream, std::uint64_t length);
  void ReadAPP2(MetadataStream& stream, std::uint64_t length);
  void ReadFrame(MetadataStream& stream);
  void ReadPSD(MetadataStream& stream);
  /// False for what no codec knows.
  bool ReadEmbedded(const FolderItem& file);
  /// False if there is no TIFF structure at the position.
  bool ReadTIFF(MetadataStream& stream);
  /// True if reading must stop altogether.
  bool ReadBlock(MetadataStream& stream, Block block);
  bool ReadEntries(MetadataStream& stream, Block block, int count, TiffDataCoreClass& data,
                   std::vector<std::pair<Block, std::uint64_t>>& links);
  bool TakeLink(MetadataStream& stream, Block block, const std::string& tag,
                const std::vector<TagValue>& values, std::uint64_t at, std::uint64_t bytes,
                std::vector<std::pair<Block, std::uint64_t>>& links);
  TiffDataCoreClass& BlockOf(Block block);
  void ReadPhotoshopBlock(std::string_view bytes);
  void TakeProfile(const std::string& stored, std::string bytes);
  void TakeIPTC(std::string bytes);
  void Summarize();

  /// Directories that were read, by offset: one that leads back to another is not read again.
  std::set<std::uint64_t> visited_;
  /// Bytes of values that were read: many tags may lead to the same ones.
  std::uint64_t taken_ = 0;
  /// Parts of a profile by their number, and of Photoshop's resources in order.
  std::vector<std::pair<int, std::string>> profileParts_;
  std::string resources_;
  XMPExtension further_;
};

/// A packet that says too what records of IPTC alone say, for files that have no place for these.
std::string WithRecords(const std::string& packet, const IPTCDataObject& records);

}  // namespace brivolant
