// SPDX-License-Identifier: MIT
#include "metadata/ImageMetaData.h"

#include <algorithm>
#include <array>

#include "metadata/JpegMarks.h"
#include "metadata/MetadataStream.h"
#include "platform/codecs/EmbeddedData.h"
#include "platform/files/BinaryStream.h"

namespace brivolant {
namespace {

using namespace JpegMarks;

constexpr std::uint16_t kStart = 0xFFD8;

bool BeginsLike(std::string_view bytes, std::string_view mark) {
  return bytes.size() >= mark.size() && EqualIgnoringCase(bytes.substr(0, mark.size()), mark);
}

}  // namespace

double ImageSummaryObject::Megapixel() const {
  constexpr double kMillion = 1000000;
  return static_cast<double>(Width) * Height / kMillion;
}

ImageMetaData::ImageMetaData() = default;
ImageMetaData::~ImageMetaData() = default;

std::vector<ImageMetaData::NamedBlock> ImageMetaData::Blocks() const {
  return {
      {"TIFF", TIFFData.get()},   {"EXIF", ExifData.get()},
      {"GPS", GPSData.get()},     {"Interoperability", Interoperability.get()},
      {"SubIFD", SubIFD.get()},   {"Thumbnail", Thumbnail ? Thumbnail->TIFFData.get() : nullptr},
      {"IPTC", IPTCData.get()},   {"Photoshop", Photoshop.get()},
      {"ICC", ColorProfile.get()}};
}

const TiffDataCoreClass* ImageMetaData::BlockOf(MetadataBlock block) const {
  switch (block) {
    case MetadataBlock::kTiff:
      return TIFFData.get();
    case MetadataBlock::kExif:
      return ExifData.get();
    case MetadataBlock::kGps:
      return GPSData.get();
    case MetadataBlock::kInterop:
      return Interoperability.get();
    case MetadataBlock::kIptc:
      return IPTCData.get();
    default:
      return nullptr;
  }
}

void ImageMetaData::ErrorOccured(int id, const LocalizedText& message) {
  ErrorID = id;
  ErrorMessage = message.Text();
}

void ImageMetaData::AppendToStringResult(const std::string& line) {
  StringResult += line + "\n";
}

void ImageMetaData::ReadFile(const FolderItem& file, bool stopAfterTIFF) {
  if (file.IsNil()) return;
  MyFile = file;
  MetadataStream stream(file);
  if (!stream.IsOpen()) return ErrorOccured(0, kUnableToRead);
  if (stream.Length() == 0) return ErrorOccured(1, kEmpty);
  ImageSummary = std::make_unique<ImageSummaryObject>();
  const std::uint16_t mark = stream.ReadUInt16();
  stream.Position(0);
  if (mark == kStart) {
    ImageSummary->FileFormat = "JPEG";
    ReadJPEG(stream, stopAfterTIFF);
  } else if (mark == 0x3842) {
    ReadPSD(stream);
  } else if (mark == 0x4D4D || mark == 0x4949) {
    if (ReadTIFF(stream)) Summarize();
  } else if (!ReadEmbedded(file)) {
    ErrorOccured(2, kNotUnderstood);
  }
  if (!resources_.empty()) ReadPhotoshopBlock(resources_);
  if (XMP.empty() && TIFFData && TIFFData->hasKey("02BC")) {
    XMP = std::string(BytesOf(TIFFData->Value("02BC", 1)));
  }
  if (stopAfterTIFF) return;
  XMP = further_.Joined(XMP);
  ProcessXMPData();
}

// JPEG.

void ImageMetaData::ReadJPEG(MetadataStream& stream, bool stopAfterTIFF) {
  stream.Position(2);
  while (stream.Remaining() >= 4) {
    if (stream.ReadUInt8() != 0xFF) return;
    int marker = 0xFF;
    // Any number of them may stand before a marker.
    while (marker == 0xFF && !stream.EndOfFile()) marker = stream.ReadUInt8();
    // Behind the start of the scan, or the end, nothing is told any more.
    if (marker == 0xDA || marker == 0xD9) return;
    if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7)) continue;
    const std::uint64_t begin = stream.Position();
    const std::uint64_t length = stream.ReadUInt16();
    if (length < 2) {
      AppendToStringResult("A segment with a length of " + std::to_string(length) + ".");
      continue;
    }
    const std::uint64_t payload = std::min<std::uint64_t>(length - 2, stream.Remaining());
    switch (marker) {
      case 0xE0: {
        const std::string bytes = stream.Read(payload);
        if (!bytes.starts_with(kJfifMark) || bytes.size() < 14 || JFIFData) break;
        BinaryStream jfif(std::string_view(bytes).substr(kJfifMark.size()));
        JFIFData = std::make_unique<JFIFDataObject>();
        JFIFData->Version = jfif.ReadUInt8();
        JFIFData->VersionMinor = jfif.ReadUInt8();
        JFIFData->units = jfif.ReadUInt8();
        JFIFData->Xdensity = jfif.ReadUInt16();
        JFIFData->Ydensity = jfif.ReadUInt16();
        JFIFData->Xthumbnail = jfif.ReadUInt8();
        JFIFData->Ythumbnail = jfif.ReadUInt8();
        ImageSummary->DPI = JFIFData->Xdensity;
        break;
      }
      case 0xE1:
        ReadAPP1(stream, payload);
        if (stopAfterTIFF && TIFFData) return;
        break;
      case 0xE2:
        ReadAPP2(stream, payload);
        break;
      case 0xED: {
        const std::string bytes = stream.Read(payload);
        // A block of resources that is longer than a segment goes on in the next.
        if (bytes.starts_with(kPhotoshopMark)) resources_ += bytes.substr(kPhotoshopMark.size());
        break;
      }
      case 0xEE:
        DCT = std::make_unique<DCTProfileObject>();
        DCT->fromRawData(stream.Read(payload));
        break;
      case 0xFE:
        JPEGComment = JpegCommentText(stream.Read(payload));
        break;
      default:
        if (marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 &&
            marker != 0xCC) {
          ReadFrame(stream);
        }
        break;
    }
    stream.Position(begin + length);
  }
}

void ImageMetaData::ReadAPP1(MetadataStream& stream, std::uint64_t length) {
  const std::uint64_t begin = stream.Position();
  const std::string head = stream.Read(std::min<std::uint64_t>(length, kXmpMark.size()));
  if (BeginsLike(head, kExifMark) && !TIFFData) {
    // What lies behind the segment is no part of it.
    stream.Position(begin + kExifMark.size());
    MetadataStream segment(stream.Read(length - kExifMark.size()));
    visited_.clear();
    (void)ReadTIFF(segment);
    TIFFHeaderOffSet = begin + kExifMark.size();
  } else if (head == kXmpMark && XMP.empty()) {
    XMP = stream.Read(length - kXmpMark.size());
  } else if (head == kXmpFurtherMark.substr(0, head.size())) {
    stream.Position(begin);
    const std::string bytes = stream.Read(length);
    if (bytes.starts_with(kXmpFurtherMark)) {
      further_.Take(std::string_view(bytes).substr(kXmpFurtherMark.size()));
    }
  }
}

void ImageMetaData::ReadAPP2(MetadataStream& stream, std::uint64_t length) {
  std::string bytes = stream.Read(length);
  constexpr std::size_t kHead = 14;
  if (!bytes.starts_with(kProfileMark) || bytes.size() < kHead || ColorProfile) return;
  const int part = static_cast<unsigned char>(bytes[kHead - 2]);
  const auto parts = static_cast<std::size_t>(static_cast<unsigned char>(bytes[kHead - 1]));
  profileParts_.emplace_back(part, bytes.substr(kHead));
  if (profileParts_.size() != parts) return;
  std::stable_sort(profileParts_.begin(), profileParts_.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::string profile;
  for (const auto& [number, data] : profileParts_) profile += data;
  TakeProfile("In FFE2 marker", std::move(profile));
  ColorProfile->MaxParts = static_cast<int>(parts);
  ColorProfile->PartCount = static_cast<int>(parts);
}

void ImageMetaData::ReadFrame(MetadataStream& stream) {
  ImageSummary->Depth = stream.ReadUInt8();
  ImageSummary->Height = stream.ReadUInt16();
  ImageSummary->Width = stream.ReadUInt16();
  const int components = stream.ReadUInt8();
  const LocalizedText* space = components == 4   ? &ImageSummaryObject::ColorSpaceCMYK
                               : components == 3 ? &ImageSummaryObject::ColorSpaceRGB
                               : components == 1 ? &ImageSummaryObject::ColorSpaceGrayScale
                                                 : nullptr;
  ImageSummary->ColorSpace =
      space == nullptr ? "Unknown value in FFC0: " + std::to_string(components) : space->Text();
}

void ImageMetaData::TakeProfile(const std::string& stored, std::string bytes) {
  if (ColorProfile) return;
  ColorProfile = std::make_unique<ColorProfileObject>();
  ColorProfile->parent = this;
  ColorProfile->Stored = stored;
  ColorProfile->RawData = std::move(bytes);
  ColorProfile->ProcessColorProfile();
}

void ImageMetaData::TakeIPTC(std::string bytes) {
  if (!IPTCData) {
    IPTCData = std::make_unique<IPTCDataObject>();
    IPTCData->parent = this;
  }
  IPTCData->ReadRawData(std::move(bytes));
}

// Photoshop.

void ImageMetaData::ReadPSD(MetadataStream& stream) {
  static constexpr std::array<const LocalizedText*, 10> kModes{
      &ImageSummaryObject::ColorSpaceBlackWhite,
      &ImageSummaryObject::ColorSpaceGrayScale,
      &ImageSummaryObject::ColorSpaceIndexed,
      &ImageSummaryObject::ColorSpaceRGB,
      &ImageSummaryObject::ColorSpaceCMYK,
      nullptr,
      nullptr,
      &ImageSummaryObject::ColorSpaceMultichannel,
      &ImageSummaryObject::ColorSpaceDuotone,
      &ImageSummaryObject::ColorSpaceLab};
  if (stream.Read(4) != "8BPS") return ErrorOccured(2, kNotUnderstood);
  ImageSummary->FileFormat = "Photoshop";
  // Version, reserved bytes and the number of channels.
  stream.Position(14);
  ImageSummary->Height = stream.ReadUInt32();
  ImageSummary->Width = stream.ReadUInt32();
  ImageSummary->Depth = stream.ReadUInt16();
  const std::size_t mode = stream.ReadUInt16();
  const LocalizedText* space = mode < kModes.size() ? kModes.at(mode) : nullptr;
  ImageSummary->ColorSpace =
      (space == nullptr ? ImageSummaryObject::ColorSpaceUnknown : *space).Text();
  const std::uint64_t colors = stream.ReadUInt32();
  stream.Position(stream.Position() + colors);
  const std::uint64_t length = stream.ReadUInt32();
  resources_ = stream.Read(length);
}

void ImageMetaData::ReadPhotoshopBlock(std::string_view bytes) {
  BinaryStream stream(bytes);
  while (stream.Remaining() >= 12) {
    const std::string_view signature = stream.Read(4);
    if (signature != "8BIM" && signature != "MeSa" && signature != "PHUT" && signature != "DCSR" &&
        signature != "AgHg") {
      return AppendToStringResult("Photoshop's resources end in what is none.");
    }
    const std::string id = Hexadecimal(stream.ReadUInt16(), 4);
    // The name has a length, and is padded with it to an even one.
    const std::size_t name = stream.ReadUInt8();
    (void)stream.ReadUpTo(name + (name + 1) % 2);
    const std::size_t size = stream.ReadUInt32();
    std::string data(stream.ReadUpTo(size));
    if (size % 2 == 1) (void)stream.ReadUpTo(1);
    if (id == "040F") {
      TakeProfile("In PSD", std::move(data));
    } else if (id == "040C" || id == "0409") {
      constexpr std::size_t kHead = 28;
      if (!Thumbnail) Thumbnail = std::make_unique<ThumbnailHolder>();
      Thumbnail->PhotoShop4Thumbnail = id == "0409";
      if (data.size() > kHead) Thumbnail->RawPictureData = data.substr(kHead);
    } else if (id == "0404") {
      TakeIPTC(std::move(data));
    } else if (id == "0422") {
      if (TIFFData) continue;
      MetadataStream exif(std::move(data));
      visited_.clear();
      (void)ReadTIFF(exif);
    } else {
      if (id == "0424" && XMP.empty()) XMP = data;
      if (!Photoshop) {
        Photoshop = std::make_unique<PhotoshopDataObject>();
        Photoshop->parent = this;
      }
      Photoshop->AddData(id, 0, TagValue(std::move(data)));
    }
  }
}

// Other formats.

bool ImageMetaData::ReadEmbedded(const FolderItem& file) {
  Embedded = ReadEmbeddedData(file);
  if (!Embedded) return false;
  if (!Embedded->Preview.empty()) {
    // What a raw file's own preview tells is what can be read of it.
    MetadataStream preview(Embedded->Preview);
    ReadJPEG(preview, false);
    ImageSummary->DPI = 0;
  }
  ImageSummary->FileFormat = Embedded->Format;
  ImageSummary->Width = static_cast<std::uint32_t>(Embedded->Width);
  ImageSummary->Height = static_cast<std::uint32_t>(Embedded->Height);
  ImageSummary->Depth = Embedded->BitsPerComponent;
  ImageSummary->ColorSpace = (Embedded->Channels == 4   ? ImageSummaryObject::ColorSpaceCMYK
                              : Embedded->Channels == 1 ? ImageSummaryObject::ColorSpaceGrayScale
                                                        : ImageSummaryObject::ColorSpaceRGB)
                                 .Text();
  if (!Embedded->Exif.empty() && !TIFFData) {
    MetadataStream exif(Embedded->Exif);
    visited_.clear();
    (void)ReadTIFF(exif);
  }
  if (!Embedded->IPTC.empty()) {
    // Some formats wrap the records into Photoshop's resources.
    Embedded->IPTC.starts_with("8BIM") ? ReadPhotoshopBlock(Embedded->IPTC)
                                       : TakeIPTC(Embedded->IPTC);
  }
  if (XMP.empty()) XMP = Embedded->XMP;
  if (!Embedded->Profile.empty()) TakeProfile("In the file", Embedded->Profile);
  return true;
}

// A summary of a TIFF.

void ImageMetaData::Summarize() {
  if (!TIFFData) return;
  const std::string name = LowerCase(MyFile.Name());
  ImageSummary->FileFormat = name.ends_with(".cr2")     ? "Canon CR2"
                             : TIFFData->hasKey("C612") ? "Adobe DNG"
                                                        : "TIFF";
  const auto number = [](const TIFFDataObject& block, const char* tag) {
    return NumberOf(block.Lookup(tag, TagValue(), 1));
  };
  const bool reduced = SubIFD && number(*TIFFData, "00FE") == 1 && number(*SubIFD, "00FE") == 0;
  const TIFFDataObject& block = reduced ? *SubIFD : *TIFFData;
  // Files tell what they like, as numbers of any type.
  const auto whole = [&](const char* tag, double most) {
    const double told = number(block, tag);
    return told > 0 ? std::min(told, most) : 0;
  };
  constexpr double kMostPixels = 4294967295.0;
  constexpr double kMostBits = 65535;
  ImageSummary->Width = static_cast<std::uint32_t>(whole("0100", kMostPixels));
  ImageSummary->Height = static_cast<std::uint32_t>(whole("0101", kMostPixels));
  ImageSummary->Depth = static_cast<int>(whole("0102", kMostBits));
  const double resolution = number(block, "011A");
  // What this kind of resolution has always been multiplied with here; prints use 2.54.
  constexpr double kCentimetre = 2.45;
  const double unit = number(block, "0128");
  const double dpi = unit == 2 ? resolution : unit == 3 ? resolution * kCentimetre : 0;
  constexpr double kMost = 1000000;
  ImageSummary->DPI = dpi > 0 && dpi < kMost ? static_cast<int>(dpi) : 0;
  const double photometric = number(block, "0106");
  ImageSummary->ColorSpace = photometric >= 2 ? block.StringValue("0106")
                             : ImageSummary->Depth > 1
                                 ? ImageSummaryObject::ColorSpaceGrayScale.Text()
                                 : ImageSummaryObject::ColorSpaceBlackWhite.Text();
}

}  // namespace brivolant
