// SPDX-License-Identifier: MIT
#include "metadata/MetadataRows.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "metadata/ImageMetaData.h"
#include "metadata/TagCatalog.h"
#include "metadata/XMPEditor.h"
#include "platform/values/Numbers.h"

namespace brivolant {
namespace {

using Section = MetadataSection;

constexpr LocalizedText kFormat{"MetaDataBrowser.kFormat", "Format:"};
constexpr LocalizedText kDimensions{"MetaDataBrowser.kDimensions", "Dimensions:"};
constexpr LocalizedText kAt{"MetaDataBrowser.kAt", " at "};
constexpr LocalizedText kDPI{"MetaDataBrowser.kDPI", " DPI"};
constexpr LocalizedText kMegapixel{"MetaDataBrowser.kMegapixel", " Megapixel"};
constexpr LocalizedText kMegapixels{"MetaDataBrowser.kMegapixels", " Megapixels"};
constexpr LocalizedText kAspectRatio{"MetaDataBrowser.kAspectRatio", "Aspect Ratio:"};
constexpr LocalizedText kColors{"MetaDataBrowser.kColors", "Colors:"};
constexpr LocalizedText kBit{"MetaDataBrowser.kBit", "-Bit "};
constexpr LocalizedText kVersion{"MetaDataBrowser.kVersion", "Version:"};
constexpr LocalizedText kUnits{"MetaDataBrowser.kUnits", "Units:"};
constexpr LocalizedText kXdensity{"MetaDataBrowser.kXdensity", "Xdensity:"};
constexpr LocalizedText kYdensity{"MetaDataBrowser.kYdensity", "Ydensity:"};
constexpr LocalizedText kXthumbnail{"MetaDataBrowser.kXthumbnail", "Xthumbnail:"};
constexpr LocalizedText kYthumbnail{"MetaDataBrowser.kYthumbnail", "Ythumbnail:"};
constexpr LocalizedText kKind{"MetaDataBrowser.kKind", "Kind:"};
constexpr LocalizedText kEncoder{"MetaDataBrowser.kEncoder", "Encoder:"};
constexpr LocalizedText kFlags{"MetaDataBrowser.kFlags", "Flags:"};
constexpr LocalizedText kTransformation{"MetaDataBrowser.kTransformation",
                                        "ColorTransformationCode:"};
constexpr LocalizedText kComment{"MetaDataBrowser.kComment", "Comment:"};
constexpr LocalizedText kProfile{"MetaDataBrowser.kProfile", "Profile:"};

constexpr LocalizedText kSummarySection{"MetaDataBrowser.kSummarySection", "Image Summary"};
constexpr LocalizedText kPhotoshopSection{"MetaDataBrowser.kPhotoshopSection",
                                          "Photoshop\xC2\xAE Data"};
constexpr LocalizedText kInteropSection{"MetaDataBrowser.kInteropSection", "Interoperability:"};
constexpr LocalizedText kDctSection{"MetaDataBrowser.kDctSection", "DCT Profile:"};
constexpr LocalizedText kCommentSection{"MetaDataBrowser.kCommentSection", "JPEG Comment:"};
constexpr LocalizedText kProfileSection{"MetaDataBrowser.kProfileSection", "Color Profile:"};

std::string Whole(double value) {
  return FixedNumber(value, 0);
}

/// Bytes in the two-byte units of Windows.
bool OfWindows(MetadataBlock block, std::string_view tag) {
  return block == MetadataBlock::kTiff && tag.size() == 4 && tag >= "9C9B" && tag <= "9C9F";
}

/// "3:2": exact where the numbers are small, else the nearest whole ones of which the larger
/// differs by one, or of long pictures by seven.
std::string AspectRatio(std::uint32_t width, std::uint32_t height) {
  std::uint32_t a = width;
  std::uint32_t b = height;
  while (b != 0) a = std::exchange(b, a % b);
  constexpr std::uint32_t kMost = 32;
  const std::uint32_t across = width / a;
  const std::uint32_t down = height / a;
  if (across <= kMost && down <= kMost) return Whole(across) + ":" + Whole(down);
  const double longer = std::max(width, height);
  const double shorter = std::min(width, height);
  constexpr double kLong = 0.6;
  double unit = longer - shorter;
  if (shorter / longer < kLong) unit = std::floor(unit / 7);
  const auto side = [unit](double pixels) { return FixedNumber(std::max(1.0, pixels / unit), 0); };
  return side(width) + ":" + side(height);
}

Section Summary(const ImageSummaryObject& summary) {
  Section section{Section::kSummary, kSummarySection.Text()};
  section.Rows.push_back({kFormat.Text(), summary.FileFormat});
  if (summary.Width == 0 || summary.Height == 0) return section;
  std::string size = Whole(summary.Width) + " x " + Whole(summary.Height);
  if (summary.DPI != 0) size += kAt.Text() + Whole(summary.DPI) + kDPI.Text();
  section.Rows.push_back({kDimensions.Text(), std::move(size)});
  const std::string millions = Decimals(summary.Megapixel(), 1);
  section.Rows.push_back({"", millions + (millions == "1" ? kMegapixel : kMegapixels).Text()});
  section.Rows.push_back({kAspectRatio.Text(), AspectRatio(summary.Width, summary.Height)});
  if (summary.Depth > 0) {
    section.Rows.push_back(
        {kColors.Text(), Whole(summary.Depth) + kBit.Text() + summary.ColorSpace});
  }
  return section;
}

Section Jfif(const JFIFDataObject& jfif) {
  return {Section::kJfif,
          "JFIF",
          {},
          {{kVersion.Text(), Whole(jfif.Version) + "." + PaddedNumber(jfif.VersionMinor, 2)},
           {kUnits.Text(), Whole(jfif.units)},
           {kXdensity.Text(), Whole(jfif.Xdensity)},
           {kYdensity.Text(), Whole(jfif.Ydensity)},
           {kXthumbnail.Text(), Whole(jfif.Xthumbnail)},
           {kYthumbnail.Text(), Whole(jfif.Ythumbnail)}}};
}

Section Dct(const DCTProfileObject& dct) {
  return {Section::kDct,
          kDctSection.Text(),
          {},
          {{kKind.Text(), dct.Kind},
           {kVersion.Text(), Whole(dct.Version)},
           {kEncoder.Text(), Whole(dct.EncoderUsed)},
           {kFlags.Text(), Whole(dct.Flags)},
           {kTransformation.Text(), Whole(dct.ColorTransformationCode)}}};
}

bool Editable(MetadataBlock block, const TiffDataCoreClass& data, const std::string& tag) {
  return data.TagType(tag) == kAsciiType || OfWindows(block, tag);
}

void AddMapped(const ImageMetaData& data, MetadataBlock block, Section& section) {
  for (const ImageMetaData::MappedText& mapped : data.MappedXMP) {
    if (mapped.Block != block) continue;
    std::vector<MetadataRow*> held;
    for (MetadataRow& row : section.Rows) {
      if (row.Tag == mapped.Tag) held.push_back(&row);
    }
    if (held.empty()) {
      int index = 0;
      for (const std::string& text : mapped.Texts) {
        MetadataRow row{NameOfTag(block, mapped.Tag) + ":", EnsureUTF8(text), mapped.Tag, ++index};
        // It is changed where it is said.
        row.Mapped = true;
        section.Rows.push_back(std::move(row));
      }
      continue;
    }
    std::string joined;
    for (const std::string& text : mapped.Texts) {
      joined += (joined.empty() ? "" : ", ") + EnsureUTF8(text);
    }
    const bool same = held.size() == mapped.Texts.size() &&
                      std::ranges::all_of(held, [&](const MetadataRow* row) {
                        return std::ranges::any_of(mapped.Texts, [&](const std::string& text) {
                          return Trim(EnsureUTF8(text)) == Trim(row->Value);
                        });
                      });
    if (!same) held.front()->Differs = std::move(joined);
  }
}

Section Block(const ImageMetaData& all, const TiffDataCoreClass* data, Section section,
              bool hideUnknown) {
  const bool lists = section.Block == MetadataBlock::kIptc;
  if (data != nullptr) {
    for (const auto& entry : data->AllData()) {
      const std::string name = data->TagName(entry.Tag);
      constexpr std::string_view kUnknown = "unknown";
      if (hideUnknown &&
          EqualIgnoringCase(std::string_view(name).substr(0, kUnknown.size()), kUnknown)) {
        continue;
      }
      MetadataRow row{name + ":", data->StringValue(entry.Tag), entry.Tag};
      row.Text = section.Block && Editable(*section.Block, *data, entry.Tag);
      if (!lists) {
        section.Rows.push_back(std::move(row));
        continue;
      }
      for (const TagValue& value : entry.Values) {
        row.Value = data->StringValue(entry.Tag, value);
        section.Rows.push_back(row);
        ++row.Index;
      }
    }
  }
  if (section.Block) AddMapped(all, *section.Block, section);
  return section;
}

Section Xmp(const std::string& packet) {
  Section section = EmptySection(MetadataBlock::kXmp);
  XMPProperties properties;
  if (!ReadXMP(packet, properties)) return section;
  for (const auto& [name, texts] : properties) {
    const bool plain = IsPlainProperty(name);
    // Of texts in several languages the first is everybody's.
    const bool languages = XMPEditor::InLanguages(name);
    int index = 0;
    for (const std::string& text : texts) {
      MetadataRow row{name + ":", EnsureUTF8(text), name, ++index};
      row.Text = plain && (index == 1 || !languages);
      section.Rows.push_back(std::move(row));
    }
  }
  return section;
}

std::span<const CatalogTag> CatalogOf(MetadataBlock block) {
  switch (block) {
    case MetadataBlock::kTiff:
    case MetadataBlock::kThumbnail:
      return TagCatalog::Tiff();
    case MetadataBlock::kExif:
      return TagCatalog::Exif();
    case MetadataBlock::kGps:
      return TagCatalog::Gps();
    case MetadataBlock::kInterop:
      return TagCatalog::Interoperability();
    case MetadataBlock::kIptc:
      return TagCatalog::Iptc();
    default:
      return {};
  }
}

}  // namespace

std::vector<MetadataSection> SectionsOf(const ImageMetaData& data, bool hideUnknown) {
  std::vector<Section> sections;
  if (data.ImageSummary) sections.push_back(Summary(*data.ImageSummary));
  if (data.JFIFData) sections.push_back(Jfif(*data.JFIFData));
  const auto add = [&](const TiffDataCoreClass* block, Section section) {
    section = Block(data, block, std::move(section), hideUnknown);
    if (block != nullptr || !section.Rows.empty()) sections.push_back(std::move(section));
  };
  add(data.TIFFData.get(), EmptySection(MetadataBlock::kTiff));
  add(data.ExifData.get(), EmptySection(MetadataBlock::kExif));
  add(data.SubIFD.get(), {Section::kSubIfd, "SubIFD"});
  add(data.Photoshop.get(), {Section::kPhotoshop, kPhotoshopSection.Text()});
  add(data.IPTCData.get(), EmptySection(MetadataBlock::kIptc));
  if (!data.XMP.empty()) sections.push_back(Xmp(data.XMP));
  add(data.GPSData.get(), EmptySection(MetadataBlock::kGps));
  add(data.Interoperability.get(), EmptySection(MetadataBlock::kInterop));
  if (data.DCT) sections.push_back(Dct(*data.DCT));
  if (!data.JPEGComment.empty()) {
    sections.push_back(EmptySection(MetadataBlock::kComment));
    MetadataRow row{kComment.Text(), data.JPEGComment};
    row.Text = true;
    sections.back().Rows.push_back(std::move(row));
  }
  if (data.ColorProfile) {
    Section profile{Section::kProfile, kProfileSection.Text()};
    if (data.ColorProfile->hasKey("desc")) {
      profile.Rows.push_back({kProfile.Text(), data.ColorProfile->StringValue("desc")});
    }
    sections.push_back(std::move(profile));
  }
  return sections;
}

MetadataSection EmptySection(MetadataBlock block) {
  switch (block) {
    case MetadataBlock::kExif:
      return {Section::kExif, "EXIF", block};
    case MetadataBlock::kGps:
      return {Section::kGps, "GPS", block};
    case MetadataBlock::kInterop:
      return {Section::kInteroperability, kInteropSection.Text(), block};
    case MetadataBlock::kIptc:
      return {Section::kIptc, "IPTC", block};
    case MetadataBlock::kXmp:
      return {Section::kXmp, "XMP", block};
    case MetadataBlock::kComment:
      return {Section::kComment, kCommentSection.Text(), block};
    default:
      return {Section::kTiff, "TIFF", MetadataBlock::kTiff};
  }
}

std::string NameOfTag(MetadataBlock block, const std::string& tag) {
  if (block == MetadataBlock::kComment) {
    const std::string label = kComment.Text();
    return label.substr(0, label.rfind(':'));
  }
  const std::string name = TagCatalog::NameOf(CatalogOf(block), tag);
  return name.empty() ? tag : name;
}

bool IsPlainProperty(const std::string& name) {
  constexpr std::array kStructured{"photoshop:DocumentAncestors", "photoshop:TextLayers",
                                   "Iptc4xmpCore:CreatorContactInfo", "xmp:Thumbnails",
                                   "xap:Thumbnails"};
  constexpr std::array kPlain{
      "dc:", "photoshop:", "xmp:", "xap:", "xmpRights:", "xapRights:", "Iptc4xmpCore:", "lr:"};
  if (std::ranges::find(kStructured, name) != kStructured.end()) return false;
  return std::ranges::any_of(kPlain, [&](const char* start) { return name.starts_with(start); });
}

}  // namespace brivolant
